# Makes the folder, and what is missing above it, for everyone to enter. What is there already belongs to its owner.
function(plovi_make_folder folder)
    if(NOT EXISTS "${folder}")
        cmake_path(GET folder PARENT_PATH parent)
        plovi_make_folder("${parent}")
        file(MAKE_DIRECTORY "${folder}")
        file(CHMOD "${folder}"
            PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    endif()
endfunction()
