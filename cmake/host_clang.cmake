# Builds for this machine with clang.
include("${CMAKE_CURRENT_LIST_DIR}/llvm.cmake")
set(CMAKE_CXX_COMPILER "${tarnClangCxx}")
set(CMAKE_C_COMPILER "${tarnClang}")
