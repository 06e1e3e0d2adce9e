# What every target of the project is compiled with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(qsutils_compile INTERFACE)
target_compile_options(qsutils_compile INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A symbol bound as unique would keep the module mapped after it has been unloaded.
    target_compile_options(qsutils_compile INTERFACE -fno-gnu-unique)
    # g++ 12 takes a literal joined in front of a std::string for an overlapping copy (GCC bug 105651).
    if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(qsutils_compile INTERFACE -Wno-restrict)
    endif()
endif()
# Where several sources are compiled as one, the names of each are in sight of the next, and none of them stands in a
# header. Both warnings are for sources that are compiled by themselves.
if(CMAKE_UNITY_BUILD)
    target_compile_options(qsutils_compile INTERFACE -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
target_include_directories(qsutils_compile INTERFACE ${PROJECT_SOURCE_DIR})

set(QSUTILS_SANITIZE "" CACHE STRING "Sanitizers for all targets, for instance address,undefined")
if(QSUTILS_SANITIZE)
    add_compile_options(-fsanitize=${QSUTILS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${QSUTILS_SANITIZE})
endif()

if(QSUTILS_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

option(QSUTILS_COVERAGE "Count executed lines" OFF)
if(QSUTILS_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

# Gives a program a folder of its own in the build tree, in which files beside the executable can lie. On Windows, where
# programs look for their modules there, those are put beside it.
function(qsutils_own_folder program)
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
    if(WIN32)
        add_custom_command(TARGET ${program} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E copy_if_different
                $<TARGET_RUNTIME_DLLS:${program}> $<TARGET_FILE_DIR:${program}>
            COMMAND_EXPAND_LISTS)
    endif()
endfunction()
