include(${CMAKE_CURRENT_LIST_DIR}/QsUtilsTargets.cmake)
