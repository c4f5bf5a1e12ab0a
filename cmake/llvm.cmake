# Finds the LLVM tools of the first version in toolchain_versions.txt that is installed; without any
# of them the unversioned names:
#     tarnClang, tarnClangCxx   the C and the C++ compiler
#     tarnLld                   the linker that -fuse-ld= names
file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/toolchain_versions.txt" tarnVersions REGEX "^llvm ")
string(REGEX MATCHALL "[0-9]+" tarnVersions "${tarnVersions}")
set(tarnLlvmSuffix "")
foreach(tarnVersion IN LISTS tarnVersions)
    find_program(tarnClangCxx${tarnVersion} clang++-${tarnVersion})
    mark_as_advanced(tarnClangCxx${tarnVersion})
    if(tarnClangCxx${tarnVersion})
        set(tarnLlvmSuffix "-${tarnVersion}")
        break()
    endif()
endforeach()

# A compiler and a linker of different versions would not understand each other's objects.
find_program(tarnClangCxx clang++${tarnLlvmSuffix} REQUIRED)
find_program(tarnClang clang${tarnLlvmSuffix} REQUIRED)
set(tarnLld "lld${tarnLlvmSuffix}")
