# The Debian packages, one a component. `scripts/package` makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/cpack")
set(CPACK_PACKAGE_CONTACT "Orbanel <store@orbanel.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL store pack)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/DebianDocuments.cmake")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# What the programs and the window's module link; nothing else of Qt is loaded but what belongs to these libraries.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What they load with its first use; GIO comes with Qt.
set(CPACK_DEBIAN_STORE_PACKAGE_DEPENDS libssl3)

set(CPACK_DEBIAN_STORE_PACKAGE_NAME plovistore)
set(CPACK_DEBIAN_STORE_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_STORE_PACKAGE_RECOMMENDS "fonts-inter, fonts-manrope, qt6-translations-l10n, qt6-wayland")
set(CPACK_COMPONENT_STORE_DESCRIPTION "desktop store that needs no network
A small family of applications in one window. Their archives, icons and
texts lie within the package: an archive is saved once its SHA-256 digest
has been checked, and what is installed can be opened.")

set(CPACK_DEBIAN_PACK_PACKAGE_NAME plovistore-pack)
set(CPACK_DEBIAN_PACK_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACK_PACKAGE_DEPENDS "plovistore (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_PACK_DESCRIPTION "makes and checks stores of applications
Turns a folder of applications, icons and texts into a store that needs no
network, says all that is wrong with it at once, and compares two stores.")
include(CPack)
