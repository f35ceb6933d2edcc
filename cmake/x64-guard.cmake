# The same with another compiler, on the first one's headers and libraries.
include(${CMAKE_CURRENT_LIST_DIR}/x64.cmake)
set(CMAKE_C_COMPILER clang-19)
set(CMAKE_CXX_COMPILER clang++-19)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
# It does not know one kind of format, and takes what those headers use of their own for deprecated.
set(CMAKE_CXX_FLAGS_INIT "-Wno-ignored-attributes -Wno-deprecated-declarations")
