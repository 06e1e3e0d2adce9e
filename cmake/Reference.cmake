# The reference of the public headers, as web pages: build/<preset>/reference/html/index.html. Not part of any other
# target. A warning is an error, so that no public name goes without a word.
find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
    add_custom_target(docs
        COMMAND ${CMAKE_COMMAND} -E echo "The reference needs doxygen, which is missing; configure again when it is there."
        COMMAND ${CMAKE_COMMAND} -E false VERBATIM)
    return()
endif()

get_target_property(headers QsUtils HEADER_SET)
set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/reference)
set(DOXYGEN_PROJECT_BRIEF "The host's reference")
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR})
set(DOXYGEN_STRIP_FROM_INC_PATH ${PROJECT_SOURCE_DIR})
set(DOXYGEN_FULL_PATH_NAMES YES)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE ${PROJECT_SOURCE_DIR}/docs/reference.md)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_EXCLUDE_SYMBOLS QsText::FormatArgument)  # what CString::Format is made of
set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_WARN_NO_PARAMDOC NO)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED QSUTILS_API=)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_GENERATE_LATEX NO)
doxygen_add_docs(docs ${headers} ${PROJECT_SOURCE_DIR}/docs/reference.md COMMENT "The reference of the public headers")
