# Makes a store that runs on machines without Qt: copies into BUNDLE every library, plug-in and translation that it
# needs, and lets them find each other from where they lie. Run with -DBUNDLE=… -DQT_PLUGINS=… -DQT_TRANSLATIONS=… and
# with -DLATE=…, the libraries that the store itself loads.
cmake_minimum_required(VERSION 3.25)
set(contents "${BUNDLE}/Contents")
set(frameworks "${contents}/Frameworks")

# Both kinds of display, what they need for typing, and the desktop's own file dialogs. The toolkit's frames for Wayland
# would need OpenGL.
set(plugins
    platforms/libqxcb.so
    platforms/libqwayland-generic.so
    wayland-shell-integration/libxdg-shell.so
    platforminputcontexts/libcomposeplatforminputcontextplugin.so
    platforminputcontexts/libibusplatforminputcontextplugin.so
    platformthemes/libqxdgdesktopportal.so)

# What stays outside, because it has to match something else on the machine:
set(outside
    # the kernel and the loader
    ld-linux.* libc libm libdl libpthread librt libresolv
    # the display server; nothing is drawn with a graphics driver, whose libraries come along for those who link them
    libX11 libX11-xcb libxcb libwayland-client
    # the fonts' configuration; and the three read each other's structures
    libfontconfig libfreetype libharfbuzz
    # modules of the desktop's own, which GIO loads
    libglib-2\\.0 libgobject-2\\.0 libgmodule-2\\.0 libgio-2\\.0
    # the session's bus
    libdbus-1)
list(TRANSFORM outside PREPEND "^")
list(TRANSFORM outside APPEND "\\.so")

# Copies the file, and writes into it that it looks for libraries in `folder`, relative to itself.
function(carry source target folder)
    cmake_path(GET target PARENT_PATH parent)
    file(MAKE_DIRECTORY "${parent}")
    if(NOT source STREQUAL target)
        file(COPY_FILE "${source}" "${target}")
    endif()
    execute_process(COMMAND patchelf --set-rpath "\$ORIGIN${folder}" "${target}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(programs "${contents}/MacOS/PloviStore")
file(GLOB modules "${frameworks}/*.so")
set(loaded ${modules})
foreach(plugin IN LISTS plugins)
    list(APPEND loaded "${QT_PLUGINS}/${plugin}")
endforeach()
file(GET_RUNTIME_DEPENDENCIES
    EXECUTABLES ${programs}
    MODULES ${loaded} ${LATE}
    RESOLVED_DEPENDENCIES_VAR libraries
    PRE_EXCLUDE_REGEXES ${outside})

carry("${programs}" "${programs}" "/../Frameworks")
foreach(module IN LISTS modules)
    carry("${module}" "${module}" "")
endforeach()
foreach(library IN LISTS libraries LATE)
    cmake_path(GET library FILENAME name)
    carry("${library}" "${frameworks}/${name}" "")
endforeach()
foreach(plugin IN LISTS plugins)
    carry("${QT_PLUGINS}/${plugin}" "${frameworks}/plugins/${plugin}" "/../..")
endforeach()

file(MAKE_DIRECTORY "${contents}/Resources/translations")
file(COPY "${QT_TRANSLATIONS}/qtbase_ru.qm" DESTINATION "${contents}/Resources/translations")
file(WRITE "${contents}/MacOS/qt.conf" "[Paths]\nPrefix=..\nPlugins=Frameworks/plugins\nTranslations=Resources/translations\n")
