# Builds the companion program for any system with the pinned cross-compiler that
# scripts/fetch_cross_compiler.py puts into the cache: TARN_ZIG_TARGET names the system, such as
# aarch64-linux-musl. Its C and C++ libraries are linked statically, so that the program runs on
# every release of that system.
set(TARN_ZIG_TARGET "" CACHE STRING "System to build for: x86_64-linux-musl, aarch64-macos ...")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TARN_ZIG_TARGET)

if(TARN_ZIG_TARGET MATCHES "^([^-]+)-macos")
    set(CMAKE_SYSTEM_NAME Darwin)
    # CMake demands it when a second language is enabled, although nothing here is installed with
    # libraries whose names it would change.
    set(CMAKE_INSTALL_NAME_TOOL ":" CACHE INTERNAL "")
elseif(TARN_ZIG_TARGET MATCHES "^([^-]+)-linux")
    set(CMAKE_SYSTEM_NAME Linux)
else()
    message(FATAL_ERROR "TARN_ZIG_TARGET names no system that the companion program is built for: "
        "\"${TARN_ZIG_TARGET}\"")
endif()
set(CMAKE_SYSTEM_PROCESSOR "${CMAKE_MATCH_1}")

set(tarnCache "$ENV{TARN_CACHE}")
if(NOT tarnCache)
    set(tarnCache "$ENV{XDG_CACHE_HOME}")
    if(NOT tarnCache)
        set(tarnCache "$ENV{HOME}/.cache")
    endif()
    string(APPEND tarnCache "/tarn")
endif()
find_program(tarnZig zig PATHS "${tarnCache}/cross-compiler" NO_DEFAULT_PATH REQUIRED
    DOC "The cross-compiler that scripts/fetch_cross_compiler.py fetches")

# One program holds the compilers and the archiver.
set(CMAKE_C_COMPILER "${tarnZig}" cc)
set(CMAKE_CXX_COMPILER "${tarnZig}" c++)
foreach(language C CXX)
    set(CMAKE_${language}_COMPILER_TARGET "${TARN_ZIG_TARGET}")
    set(CMAKE_${language}_ARCHIVE_CREATE "${tarnZig} ar qcD <TARGET> <OBJECTS>")
    set(CMAKE_${language}_ARCHIVE_APPEND "${tarnZig} ar qD <TARGET> <OBJECTS>")
    set(CMAKE_${language}_ARCHIVE_FINISH "${tarnZig} ranlib <TARGET>")
endforeach()
set(CMAKE_EXE_LINKER_FLAGS_INIT -s)
# Only the linker's own search: nothing of the machine that builds.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
