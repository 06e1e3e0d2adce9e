# Installs the build into a tree of its own, and builds and runs a program against it.
#   BUILD     the build folder to install from
#   SOURCE    the program's folder
#   WORK      a folder for this run
#   THROUGH   cmake or pkg-config
#   COMPILER  the program's compiler
#   LIBDIR    the library folder of an installed tree
#   SUFFIX    what the name of a program ends in
#   TOOLCHAIN and EMULATOR   those of a build for another system, else empty
# In place of SOURCE the program may stand in a document, so that what people read is what was tried:
#   DOCUMENT  the document, with blocks labelled `HOST/main.cpp` and `HOST: output`
#   LISTS     the document with a block `host/CMakeLists.txt`
#   HOST      which of its hosts
#   ARGUMENTS what the host is given; paths begin in the installed tree
include(${CMAKE_CURRENT_LIST_DIR}/Document.cmake)
file(REMOVE_RECURSE ${WORK})
set(tree ${WORK}/tree)

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Where a program looks for its modules in its own folder, that is where somebody has to put them.
function(copy_module)
    if(TOOLCHAIN)
        file(GLOB module ${tree}/bin/*.dll)
        file(COPY ${module} DESTINATION ${WORK}/program)
    endif()
endfunction()

# The tree is moved after the installation: nothing in it may know where it was.
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/staged)
file(RENAME ${WORK}/staged ${tree})

set(PROGRAM consumer)
if(DOCUMENT)
    set(PROGRAM host)
    set(SOURCE ${WORK}/source)
    read_block(text ${DOCUMENT} ${HOST}/main.cpp)
    file(WRITE ${SOURCE}/main.cpp "${text}")
    read_block(text ${LISTS} host/CMakeLists.txt)
    file(WRITE ${SOURCE}/CMakeLists.txt "${text}")
    read_block(expected ${DOCUMENT} "${HOST}: output")
endif()
set(program ${WORK}/program/${PROGRAM}${SUFFIX})
file(MAKE_DIRECTORY ${WORK}/program)
if(THROUGH STREQUAL "cmake")
    run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/program -G Ninja -DCMAKE_CXX_COMPILER=${COMPILER}
        -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_PREFIX_PATH=${tree})
    run(${CMAKE_COMMAND} --build ${WORK}/program)
    file(READ ${SOURCE}/CMakeLists.txt text)
    string(FIND "${text}" TARGET_RUNTIME_DLLS copies_modules)
    if(copies_modules EQUAL -1)
        copy_module()
    endif()
else()
    set(ENV{PKG_CONFIG_PATH} ${tree}/${LIBDIR}/pkgconfig)
    execute_process(COMMAND pkg-config --cflags --libs QsUtils
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    run(${COMPILER} ${SOURCE}/main.cpp -o ${WORK}/program/${PROGRAM} ${flags} -Wl,-rpath,${tree}/${LIBDIR})
    copy_module()
    if(TOOLCHAIN)
        # This program has the compiler's runtime in libraries of its own, while the module holds it in itself.
        foreach(library IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
            execute_process(COMMAND ${COMPILER} -print-file-name=${library}
                OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
            file(COPY ${file} DESTINATION ${WORK}/program)
        endforeach()
    endif()
endif()
# Into a file: a pipe would be held open by the servers that an emulator starts.
execute_process(COMMAND ${EMULATOR} ${program} ${ARGUMENTS} WORKING_DIRECTORY ${tree}
    OUTPUT_FILE ${WORK}/output.txt COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
file(READ ${WORK}/output.txt output)
message("${output}")
if(DOCUMENT)
    string(REPLACE "\r\n" "\n" output "${output}")
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "${DOCUMENT} says:\n${expected}but the host says:\n${output}")
    endif()
endif()

# The installed host finds the module without help.
run(${EMULATOR} ${tree}/bin/estimate${SUFFIX} --version)
if(NOT TOOLCHAIN)
    foreach(file IN ITEMS man/man1/estimate.1.gz man/zh_CN/man1/estimate.1.gz bash-completion/completions/estimate
            zsh/site-functions/_estimate)
        if(NOT EXISTS ${tree}/share/${file})
            message(FATAL_ERROR "share/${file} is not installed")
        endif()
    endforeach()
endif()
