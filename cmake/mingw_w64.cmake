# Builds for 64-bit Windows with mingw-w64: cross from Linux, or native on Windows with the
# compiler that is on the Path.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The posix flavour has std::thread and friends, which the tests use; the launcher does not.
find_program(tarnCxx NAMES x86_64-w64-mingw32-g++-posix x86_64-w64-mingw32-g++ g++ REQUIRED)
find_program(tarnCc NAMES x86_64-w64-mingw32-gcc-posix x86_64-w64-mingw32-gcc gcc REQUIRED)
find_program(tarnRc NAMES x86_64-w64-mingw32-windres windres REQUIRED)
set(CMAKE_CXX_COMPILER "${tarnCxx}")
set(CMAKE_C_COMPILER "${tarnCc}")  # GoogleTest's build asks for one
set(CMAKE_RC_COMPILER "${tarnRc}")

if(NOT CMAKE_HOST_WIN32)
    set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
endif()
