# Takes the first host out of a document.
#   DOCUMENT  the document
#   WORK      the folder for the host's sources and, as `expected`, for what it prints
include(${CMAKE_CURRENT_LIST_DIR}/Document.cmake)
read_block(text ${DOCUMENT} host/main.cpp)
file(WRITE ${WORK}/main.cpp "${text}")
read_block(text ${DOCUMENT} host/CMakeLists.txt)
file(WRITE ${WORK}/CMakeLists.txt "${text}")
read_block(text ${DOCUMENT} "host: output")
file(WRITE ${WORK}/expected "${text}")
