# One declaration makes a layer: its library, its link line, and the include rule that the `layers` test holds.
#
#   plovi_layer(
#       BELOW platform
#       LINKS Qt6::Core
#       PRIVATE_LINKS simdjson::simdjson
#       SOURCES StoreApp.cpp Catalog.cpp)
#
# It stands in the layer's own folder: src/ui/model becomes the layer `ui/model` and the target plovi_ui_model, tools/pack/files
# becomes `pack/files` and plovi_pack_files. BELOW names every layer that it may include. LINKS also reaches those that
# use the layer, PRIVATE_LINKS does not. MOC runs Qt's moc over it.
function(plovi_layer)
    cmake_parse_arguments(arg "MOC" "" "BELOW;LINKS;PRIVATE_LINKS;SOURCES" ${ARGN})
    file(RELATIVE_PATH name "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
    string(REGEX MATCH "^([^/]+)/(.*)$" _ "${name}")
    set(root "${CMAKE_MATCH_1}")
    set(name "${CMAKE_MATCH_2}")
    string(REPLACE "/" "_" target "plovi_${name}")
    list(TRANSFORM arg_BELOW REPLACE "/" "_" OUTPUT_VARIABLE below_targets)
    list(TRANSFORM below_targets PREPEND "plovi_")

    add_library(${target} STATIC ${arg_SOURCES})
    set_target_properties(${target} PROPERTIES AUTOMOC ${arg_MOC})
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/${root}")
    target_link_libraries(${target} PUBLIC plovi_options ${below_targets} ${arg_LINKS} PRIVATE ${arg_PRIVATE_LINKS})

    if("Qt6::Widgets" IN_LIST arg_LINKS)
        plovi_precompile(${target} widgets)
    else()
        plovi_precompile(${target} core)
    endif()
    plovi_include_rule("${name}" "${arg_BELOW}")
endfunction()

# Lets the target read the library headers that nearly every file wants from one precompiled copy, which the first target
# of each `kind` (core, widgets, tests) makes for the others. The preset `tidy` builds without, so that each file still
# includes what it uses.
function(plovi_precompile target kind)
    get_property(owner GLOBAL PROPERTY PLOVI_PRECOMPILED_${kind})
    if(owner)
        target_precompile_headers(${target} REUSE_FROM ${owner})
        return()
    endif()
    set(headers <QString> <algorithm> <filesystem> <functional> <map> <memory> <optional> <span> <vector>)
    if(kind STREQUAL widgets)
        list(APPEND headers <QApplication> <QBoxLayout> <QPainter> <QWidget>)
    elseif(kind STREQUAL tests)
        list(APPEND headers <gmock/gmock.h>)
    endif()
    target_precompile_headers(${target} PRIVATE ${headers})
    set_property(GLOBAL PROPERTY PLOVI_PRECOMPILED_${kind} ${target})
endfunction()

# Says that the files of src/<name> or tools/<name> include only their own layer and those in the list `below`.
function(plovi_include_rule name below)
    list(JOIN below "," below)
    set_property(GLOBAL APPEND PROPERTY PLOVI_LAYERS "${name}=${below}")
endfunction()

# Adds the test `layers` over all rules declared so far.
function(plovi_add_layers_test)
    get_property(rules GLOBAL PROPERTY PLOVI_LAYERS)
    list(JOIN rules "\n" text)
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/layers.txt" CONTENT "${text}\n")
    add_test(NAME layers
        COMMAND "${CMAKE_COMMAND}" "-DPROJECT=${PROJECT_SOURCE_DIR}" "-DRULES=${PROJECT_BINARY_DIR}/layers.txt"
                -P "${PROJECT_SOURCE_DIR}/cmake/CheckLayers.cmake")
endfunction()

# Has the loader look for a name in these libraries (targets, or -l…) before it does in the target's others: most names
# are theirs, and it looks for fourteen thousand while the window starts.
function(plovi_search_first target)
    list(TRANSFORM ARGN REPLACE "^.+::.+$" "$<TARGET_FILE:\\0>" OUTPUT_VARIABLE files)
    target_link_options(${target} PRIVATE LINKER:--push-state,--no-as-needed ${files} LINKER:--pop-state)
endfunction()
