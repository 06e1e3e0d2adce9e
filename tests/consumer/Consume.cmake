# Installs the build into a tree of its own, and builds and runs a program against it.
#   BUILD     the build folder to install from
#   SOURCE    the program
#   WORK      a folder for this run
#   THROUGH   cmake or pkg-config
#   COMPILER  the program's compiler
#   LIBDIR    the library folder of an installed tree
#   SUFFIX    what the name of a program ends in
#   TOOLCHAIN and EMULATOR   those of a build for another system, else empty
file(REMOVE_RECURSE ${WORK})
set(tree ${WORK}/tree)

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The tree is moved after the installation: nothing in it may know where it was.
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/staged)
file(RENAME ${WORK}/staged ${tree})

set(consumer ${EMULATOR} ${WORK}/program/consumer${SUFFIX})
file(MAKE_DIRECTORY ${WORK}/program)
if(THROUGH STREQUAL "cmake")
    run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/program -G Ninja -DCMAKE_CXX_COMPILER=${COMPILER}
        -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_PREFIX_PATH=${tree})
    run(${CMAKE_COMMAND} --build ${WORK}/program)
else()
    set(ENV{PKG_CONFIG_PATH} ${tree}/${LIBDIR}/pkgconfig)
    execute_process(COMMAND pkg-config --cflags --libs QsUtils
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    run(${COMPILER} ${SOURCE}/main.cpp -o ${WORK}/program/consumer ${flags} -Wl,-rpath,${tree}/${LIBDIR})
    if(TOOLCHAIN)
        # This program has the compiler's runtime in libraries of its own, while the module holds it in itself.
        file(GLOB module ${tree}/bin/*.dll)
        file(COPY ${module} DESTINATION ${WORK}/program)
        foreach(library IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
            execute_process(COMMAND ${COMPILER} -print-file-name=${library}
                OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
            file(COPY ${file} DESTINATION ${WORK}/program)
        endforeach()
    endif()
endif()
run(${consumer})

# The installed host finds the module without help.
run(${EMULATOR} ${tree}/bin/estimate${SUFFIX} --version)
if(NOT TOOLCHAIN)
    foreach(file IN ITEMS man/man1/estimate.1 man/zh_CN/man1/estimate.1 bash-completion/completions/estimate
            zsh/site-functions/_estimate)
        if(NOT EXISTS ${tree}/share/${file})
            message(FATAL_ERROR "share/${file} is not installed")
        endif()
    endforeach()
endif()
