# Builds for 64-bit Windows with clang, on mingw-w64's headers and libraries: a second opinion on
# the same sources. What ships is built by mingw_w64.cmake.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

include("${CMAKE_CURRENT_LIST_DIR}/llvm.cmake")
find_program(tarnRc NAMES x86_64-w64-mingw32-windres windres REQUIRED)
set(CMAKE_CXX_COMPILER "${tarnClangCxx}")
set(CMAKE_C_COMPILER "${tarnClang}")
set(CMAKE_RC_COMPILER "${tarnRc}")
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)

# clang does not search a folder that is named after a flavour; the other compiler does.
find_program(tarnMingwCxx NAMES x86_64-w64-mingw32-g++-posix REQUIRED)
execute_process(COMMAND "${tarnMingwCxx}" -print-file-name=libstdc++.a
    OUTPUT_VARIABLE tarnStandardLibrary OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET tarnStandardLibrary PARENT_PATH tarnMingwLibraries)
set(CMAKE_CXX_FLAGS_INIT "--start-no-unused-arguments -nostdinc++ --end-no-unused-arguments \
-isystem ${tarnMingwLibraries}/include/c++ \
-isystem ${tarnMingwLibraries}/include/c++/x86_64-w64-mingw32")
# The other compiler adds the threads' library by itself.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-L${tarnMingwLibraries} -fuse-ld=${tarnLld} -lwinpthread")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${CMAKE_EXE_LINKER_FLAGS_INIT}")

if(NOT CMAKE_HOST_WIN32)
    set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
endif()
