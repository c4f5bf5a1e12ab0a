# How our own code is compiled and linked. `tarn_compile_options` carries the warnings and the
# code generation switches; libraries of others never link it.
add_library(tarn_compile_options INTERFACE)
target_include_directories(tarn_compile_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_features(tarn_compile_options INTERFACE cxx_std_20)
target_compile_options(tarn_compile_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Werror
    # Without this the build folder's path would be in the file and two builds would differ.
    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.")
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # std::stable_sort of GCC 12's library calls a deprecated function of its own, which clang
    # reports since version 17. GCC reports our own uses of deprecated functions.
    target_compile_options(tarn_compile_options INTERFACE -Wno-deprecated-declarations)
endif()

# The shipped code is built without exceptions and run-time type information (core/no_exceptions.cpp
# replaces what the library throws). The tests are ordinary C++.
add_library(tarn_shipped_options INTERFACE)
target_link_libraries(tarn_shipped_options INTERFACE tarn_compile_options)
target_compile_options(tarn_shipped_options INTERFACE -fno-exceptions -fno-rtti)

if(WIN32)
    # Windows 7 is the oldest system that any supported Java runtime still starts on.
    target_compile_definitions(tarn_compile_options INTERFACE
        UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
    target_compile_options(tarn_shipped_options INTERFACE
        -ffunction-sections -fdata-sections -fno-ident)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Nothing runs them (core/process_entry.cpp).
        target_compile_options(tarn_shipped_options INTERFACE
            -Wglobal-constructors -Wexit-time-destructors)
    endif()
    set(CMAKE_CXX_FLAGS_MINSIZEREL "-Os -DNDEBUG")
    set(CMAKE_CXX_FLAGS_DEBUG "-Og -g")
    # A program is optimised as a whole when it is linked, which makes the launcher a quarter
    # smaller. In one piece: GCC 12 fails on the parts that it would otherwise work on by turns.
    # With -Os, GCC makes the two forms of a constructor call a third one, which every source gets a
    # copy of: three of the same 96 bytes for moving a text alone.
    # Locals are reached through a frame pointer: on this processor that takes a byte less each time
    # than through the stack pointer, and in a large frame four.
    if(CMAKE_BUILD_TYPE STREQUAL "MinSizeRel" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(tarn_shipped_options INTERFACE
            -Oz -fno-omit-frame-pointer -fno-declone-ctor-dtor -flto -ffat-lto-objects)
        add_link_options(-Oz -flto -flto-partition=none)
        if(TARN_SYMBOLS)
            target_compile_options(tarn_shipped_options INTERFACE -g)
            add_link_options(-g)
        endif()
    endif()
else()
    # Windows' wide characters are 16 bits; the pure parts are compiled with the same width
    # nowhere else, so they may not depend on it.
    if(TARN_SANITIZE)
        # The sanitizers' reports need lines only; variables and types take a tenth of the compile time.
        set(CMAKE_CXX_FLAGS_DEBUG "-g1")
        add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        add_link_options(-fsanitize=address,undefined)
    endif()
endif()
