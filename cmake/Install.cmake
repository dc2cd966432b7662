# What `cmake --install` puts where. The component `store` is what users have, `pack` what makers have besides.

set(plovi_everyone OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${plovi_everyone})
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME store)

# install() into a folder that everyone may enter: CMake would make those on the way to it under the umask of whoever
# installs.
install(SCRIPT "${CMAKE_CURRENT_LIST_DIR}/MakeFolder.cmake" ALL_COMPONENTS)
function(plovi_install)
    cmake_parse_arguments(arg "" "DESTINATION;COMPONENT" "" ${ARGN})
    if(NOT arg_COMPONENT)
        set(arg_COMPONENT store)
    endif()
    install(CODE "plovi_make_folder(\"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${arg_DESTINATION}\")"
        COMPONENT ${arg_COMPONENT})
    install(${ARGN})
endfunction()

set(plovi_packaging "${PROJECT_SOURCE_DIR}/packaging")

plovi_install(DIRECTORY "${PROJECT_BINARY_DIR}/PloviStore.app" DESTINATION lib/plovistore
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
    PATTERN "MacOS/*" PERMISSIONS ${plovi_everyone})
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/links")
# The program finds its bundle through the link.
file(CREATE_LINK ../lib/plovistore/PloviStore.app/Contents/MacOS/PloviStore
    "${PROJECT_BINARY_DIR}/links/PloviStore" SYMBOLIC)
plovi_install(FILES "${PROJECT_BINARY_DIR}/links/PloviStore" DESTINATION bin)

plovi_install(FILES "${plovi_packaging}/org.orbanel.PloviStore.desktop" DESTINATION share/applications)
plovi_install(FILES "${plovi_packaging}/org.orbanel.PloviStore.metainfo.xml" DESTINATION share/metainfo)
set(plovi_icon org.orbanel.PloviStore)
plovi_install(FILES "${plovi_packaging}/${plovi_icon}.svg" DESTINATION share/icons/hicolor/scalable/apps)
# For desktops that draw no SVG.
foreach(edge IN ITEMS 48 128 256)
    set(picture "${PROJECT_BINARY_DIR}/icons/${edge}.png")
    add_custom_command(OUTPUT "${picture}"
        COMMAND plovistore-icon "${plovi_packaging}/${plovi_icon}.svg" ${edge} "${picture}"
        DEPENDS plovistore-icon "${plovi_packaging}/${plovi_icon}.svg"
        VERBATIM)
    list(APPEND plovi_icons "${picture}")
    plovi_install(FILES "${picture}" DESTINATION share/icons/hicolor/${edge}x${edge}/apps RENAME ${plovi_icon}.png)
endforeach()
add_custom_target(icons ALL DEPENDS ${plovi_icons})
plovi_install(FILES "${plovi_packaging}/copyright" "${plovi_packaging}/changelog" DESTINATION share/doc/plovistore)

plovi_install(TARGETS plovistore-pack DESTINATION bin COMPONENT pack)
plovi_install(DIRECTORY "${PROJECT_SOURCE_DIR}/collection/" DESTINATION share/doc/plovistore/examples/collection
    COMPONENT pack
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
    PATTERN apps EXCLUDE PATTERN "*.cmake" EXCLUDE PATTERN CMakeLists.txt EXCLUDE)

function(plovi_install_help program component)
    plovi_install(FILES "${plovi_packaging}/man/${program}.1" DESTINATION share/man/man1 COMPONENT ${component})
    plovi_install(FILES "${plovi_packaging}/completions/${program}.bash" RENAME ${program}
        DESTINATION share/bash-completion/completions COMPONENT ${component})
    plovi_install(FILES "${plovi_packaging}/completions/_${program}" DESTINATION share/zsh/site-functions
        COMPONENT ${component})
endfunction()
plovi_install_help(PloviStore store)
plovi_install_help(plovistore-pack pack)
