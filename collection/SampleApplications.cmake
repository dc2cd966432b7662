# Makes one application for each entry of the sample's collection.json, its only list, and names in `inputs` all that the
# sample is packed from.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS collection.json)
file(READ collection.json collection)
string(JSON count LENGTH "${collection}")
math(EXPR last "${count} - 1")

find_package(Qt6 6.4 REQUIRED COMPONENTS Svg)
add_executable(sample_app apps/main.cpp)
target_link_libraries(sample_app PRIVATE plovi_options Qt6::Widgets Qt6::Svg)
target_link_options(sample_app PRIVATE $<$<CONFIG:Release>:-s>)

set(inputs
    "${CMAKE_CURRENT_SOURCE_DIR}/collection.json"
    "${CMAKE_CURRENT_SOURCE_DIR}/Brand.svg"
    "${CMAKE_CURRENT_SOURCE_DIR}/BriskoScreen.png")

foreach(index RANGE ${last})
    string(JSON app GET "${collection}" ${index})
    foreach(key IN ITEMS name version bundleID)
        string(JSON ${key} GET "${app}" ${key})
    endforeach()

    set(app_contents "${apps}/${name}.app/Contents")
    file(CONFIGURE OUTPUT "${app_contents}/Resources/app.json" CONTENT "${app}\n" @ONLY)
    configure_file(apps/Info.plist.in "${app_contents}/Info.plist" @ONLY)
    configure_file("icons/${name}.svg" "${app_contents}/Resources/icon.svg" COPYONLY)
    add_custom_command(OUTPUT "${app_contents}/MacOS/${name}"
        COMMAND "${CMAKE_COMMAND}" -E copy $<TARGET_FILE:sample_app> "${app_contents}/MacOS/${name}"
        DEPENDS sample_app
        VERBATIM)

    list(APPEND inputs
        "${CMAKE_CURRENT_SOURCE_DIR}/icons/${name}.svg"
        "${app_contents}/Info.plist"
        "${app_contents}/MacOS/${name}"
        "${app_contents}/Resources/app.json"
        "${app_contents}/Resources/icon.svg")
endforeach()
