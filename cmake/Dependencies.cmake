# Third-party libraries, each exposed as one imported target.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
include(${CMAKE_CURRENT_LIST_DIR}/UIKitImported.cmake)
