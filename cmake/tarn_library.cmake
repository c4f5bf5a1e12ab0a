# tarn_library(NAME
#     [PURE file...]           sources without a Windows include, compiled on every platform
#     [WINDOWS file...]        leaf sources that call Windows or Java
#     [TESTS file...]          unit tests of the pure sources, run on the host and on Windows
#     [WINDOWS_TESTS file...]  unit tests of the leaf sources
#     [USES library...]        the libraries of ours that it may include
#     [SYSTEM library...])     system import libraries that its leaf sources need
#
# One static library a folder. A library can only use those defined before it, so the arrows
# between the folders point one way; scripts/check_includes.py holds the #include lines to USES.
function(tarn_library name)
    cmake_parse_arguments(arg "TOOL" "" "PURE;WINDOWS;TESTS;WINDOWS_TESTS;USES;SYSTEM" ${ARGN})
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "tarn_library(${name}): unknown words ${arg_UNPARSED_ARGUMENTS}")
    endif()
    set(sources ${arg_PURE})
    if(TARN_PURE_TESTS)
        set(tests ${arg_TESTS})
    else()
        set(tests "")
    endif()
    if(WIN32)
        list(APPEND sources ${arg_WINDOWS})
        list(APPEND tests ${arg_WINDOWS_TESTS})
    endif()

    if(sources)
        add_library(tarn_${name} STATIC ${sources})
        set(scope PUBLIC)
        if(arg_TOOL)
            target_link_libraries(tarn_${name} PRIVATE tarn_compile_options tarn_third_party)
        else()
            target_link_libraries(tarn_${name} PRIVATE tarn_shipped_options)
        endif()
    else()
        add_library(tarn_${name} INTERFACE)
        set(scope INTERFACE)
    endif()
    foreach(used IN LISTS arg_USES)
        if(NOT TARGET tarn_${used})
            message(FATAL_ERROR "${name} uses ${used}, which comes after it: the arrows point one way")
        endif()
        target_link_libraries(tarn_${name} ${scope} tarn_${used})
    endforeach()
    if(WIN32)
        target_link_libraries(tarn_${name} ${scope} ${arg_SYSTEM})
    endif()

    foreach(test IN LISTS tests)
        set_property(GLOBAL APPEND PROPERTY TARN_UNIT_TESTS "${CMAKE_CURRENT_SOURCE_DIR}/${test}")
    endforeach()
    set_property(GLOBAL APPEND PROPERTY TARN_LIBRARIES tarn_${name})
endfunction()

# tarn_library for the companion program, whose code never gets into the launcher: with exceptions
# and the libraries of third_party/.
function(tarn_tool_library name)
    tarn_library(${name} TOOL ${ARGN})
endfunction()
