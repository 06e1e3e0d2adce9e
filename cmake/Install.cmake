# What `cmake --install` gives a host: the module, its public headers, and its description for CMake and pkg-config.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS QsUtils EXPORT QsUtilsTargets FILE_SET HEADERS)
if(TARGET QsUtilsQt)  # a host never links it, and so it isn't described
    install(TARGETS QsUtilsQt LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/qsutils-1)
endif()
install(EXPORT QsUtilsTargets NAMESPACE QsUtils:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QsUtils)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QsUtilsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/QsUtilsConfig.cmake ${PROJECT_BINARY_DIR}/QsUtilsConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QsUtils)

# The pkg-config file finds the tree from where it lies itself, so that a tree that was moved, or staged for a
# package, still works.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
    set(QSUTILS_PC_PREFIX ${CMAKE_INSTALL_PREFIX})
    set(QSUTILS_PC_LIBDIR ${CMAKE_INSTALL_FULL_LIBDIR})
    set(QSUTILS_PC_INCLUDEDIR ${CMAKE_INSTALL_FULL_INCLUDEDIR})
else()
    cmake_path(SET up NORMALIZE "/${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    file(RELATIVE_PATH up ${up} /)
    string(REGEX REPLACE "/$" "" up "${up}")
    set(QSUTILS_PC_PREFIX "\${pcfiledir}/${up}")
    set(QSUTILS_PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
    set(QSUTILS_PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/QsUtils.pc.in ${PROJECT_BINARY_DIR}/QsUtils.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/QsUtils.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
