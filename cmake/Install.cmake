# What `cmake --install` puts where. The component `store` is what users have, `pack` what makers have besides.

# Whatever the umask of whoever installs.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME store)
set(plovi_packaging "${PROJECT_SOURCE_DIR}/packaging")

install(DIRECTORY "${PROJECT_BINARY_DIR}/PloviStore.app" DESTINATION lib/plovistore
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
    PATTERN "MacOS/*" PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/links")
# The program finds its bundle through the link.
file(CREATE_LINK ../lib/plovistore/PloviStore.app/Contents/MacOS/PloviStore
    "${PROJECT_BINARY_DIR}/links/PloviStore" SYMBOLIC)
install(FILES "${PROJECT_BINARY_DIR}/links/PloviStore" DESTINATION bin)

install(FILES "${plovi_packaging}/org.orbanel.PloviStore.desktop" DESTINATION share/applications)
install(FILES "${plovi_packaging}/org.orbanel.PloviStore.metainfo.xml" DESTINATION share/metainfo)
install(FILES "${plovi_packaging}/org.orbanel.PloviStore.svg" DESTINATION share/icons/hicolor/scalable/apps)
install(FILES "${plovi_packaging}/copyright" "${plovi_packaging}/changelog" DESTINATION share/doc/plovistore)

install(TARGETS plovistore-pack DESTINATION bin COMPONENT pack)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/collection/" DESTINATION share/doc/plovistore/examples/collection
    COMPONENT pack
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
    PATTERN apps EXCLUDE PATTERN "*.cmake" EXCLUDE PATTERN CMakeLists.txt EXCLUDE)

function(plovi_install_help program component)
    install(FILES "${plovi_packaging}/man/${program}.1" DESTINATION share/man/man1 COMPONENT ${component})
    install(FILES "${plovi_packaging}/completions/${program}.bash" RENAME ${program}
        DESTINATION share/bash-completion/completions COMPONENT ${component})
    install(FILES "${plovi_packaging}/completions/_${program}" DESTINATION share/zsh/site-functions
        COMPONENT ${component})
endfunction()
plovi_install_help(PloviStore store)
plovi_install_help(plovistore-pack pack)
