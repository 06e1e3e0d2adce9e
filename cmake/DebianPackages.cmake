# The Debian packages: one for each group of installed files, with the documents that each of them has to have.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/QsUtils)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)

# What every package has to have in its folder of documents. The date of a release is the one in CHANGELOG.md.
file(STRINGS CHANGELOG.md release REGEX "^## \\[${PROJECT_VERSION}\\] - ")
string(REGEX REPLACE ".* - " "" release "${release}")
execute_process(COMMAND date -uR -d "${release}" OUTPUT_VARIABLE release_time OUTPUT_STRIP_TRAILING_WHITESPACE)
set(documents ${PROJECT_BINARY_DIR}/debian)
configure_file(cmake/debian/changelog.in ${documents}/changelog @ONLY)
configure_file(CHANGELOG.md ${documents}/NEWS.md COPYONLY)
execute_process(COMMAND gzip -9nfk ${documents}/changelog ${documents}/NEWS.md COMMAND_ERROR_IS_FATAL ANY)

# What programs that are linked with the library depend on; CPack's own way would run ldconfig by itself.
file(WRITE ${documents}/shlibs "libQsUtils 1 libqsutils1 (>= ${PROJECT_VERSION})\n")
file(WRITE ${documents}/triggers "activate-noawait ldconfig\n")

# debian_package(COMPONENT NAME SUMMARY DESCRIPTION [OPTION VALUE]...): the options are those of CPack, without what they
# all begin with.
macro(debian_package component name summary description)
    string(TOUPPER CPACK_DEBIAN_${component} prefix)
    set(${prefix}_PACKAGE_NAME ${name})
    set(${prefix}_DESCRIPTION "${summary}\n${description}")
    set(options ${ARGN})
    while(options)
        list(POP_FRONT options option value)
        set(${prefix}_${option} "${value}")
    endwhile()
    install(FILES cmake/debian/copyright ${documents}/changelog.gz ${documents}/NEWS.md.gz
        DESTINATION share/doc/${name} COMPONENT ${component})
endmacro()

set(same_version "(= ${PROJECT_VERSION})")
debian_package(runtime libqsutils1 "utility library of construction-cost estimation products"
"Item codes and their order, quantity formulas, Chinese amounts, decimals
and factors of units, XML and configuration files, the folders of an
installation and its cost libraries, backup of a project's working copy,
background tasks and a log, the same in every program of such a product."
    PACKAGE_RECOMMENDS "libqsutils1-qt ${same_version}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${documents}/shlibs ${documents}/triggers)
debian_package(dialogs libqsutils1-qt "dialogs of the construction-cost utility library"
"What shows the library's dialogs, loaded with the first one: the picker of
templates, the browser of folders and the tip. Without this package the
dialogs answer as if cancelled."
    PACKAGE_DEPENDS "libqsutils1 ${same_version}"
    PACKAGE_RECOMMENDS "fonts-wqy-zenhei | fonts-noto-cjk")
debian_package(development libqsutils-dev "construction-cost utility library, development files"
"What programs are built with that use the library: its headers for C++ and
C, and its descriptions for CMake and pkg-config."
    PACKAGE_SECTION libdevel
    PACKAGE_DEPENDS "libqsutils1 ${same_version}")
debian_package(tools qsutils-tools "pricing of bills of quantities on the command line"
"The program estimate, which prices bills of quantities and lists the cost
libraries of an installation; the companion module that knows cost libraries
from a catalogue on disk; and a sample installation."
    PACKAGE_SECTION utils
    PACKAGE_DEPENDS "libqsutils1 ${same_version}")
