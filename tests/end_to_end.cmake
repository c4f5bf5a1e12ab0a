# The end-to-end tests: one Windows program that starts the real launcher.exe, made of every source
# in e2e/, support/ and failing_calls/.
file(GLOB endToEndSources CONFIGURE_DEPENDS
    "${CMAKE_CURRENT_SOURCE_DIR}/e2e/*_test.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/support/*.cpp"
    "${CMAKE_CURRENT_SOURCE_DIR}/failing_calls/*.cpp")
add_subdirectory(fake_jvm)
add_subdirectory(fake_splash)
add_subdirectory(import_hook)
add_subdirectory(programs)

# These require the companion program and its JSON library.
if(NOT TARN_TOOLS)
    list(FILTER endToEndSources EXCLUDE REGEX "/(explain|generated)[a-z_]*\\.cpp$")
endif()

add_executable(end_to_end_tests ${endToEndSources} import_hook/fallible_functions.cpp
    unit_support/url_handler.cpp)
target_link_libraries(end_to_end_tests PRIVATE tarn_compile_options tarn_jni gmock ntdll)
target_link_options(end_to_end_tests PRIVATE -static)
compile_tests_quickly(end_to_end_tests)
add_dependencies(end_to_end_tests launcher fake_jvms fake_splashes import_hook test_programs)

# Beside the program, where it expects them.
file(GLOB testPictures CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/pictures/*.*")
file(COPY ${testPictures} DESTINATION "${CMAKE_CURRENT_BINARY_DIR}/pictures")
set(outcomes "${CMAKE_CURRENT_SOURCE_DIR}/failing_calls/outcomes")
file(GLOB callOutcomes CONFIGURE_DEPENDS RELATIVE "${outcomes}"
    "${outcomes}/*.txt" "${outcomes}/pairs/*.txt")
foreach(each IN LISTS callOutcomes)
    configure_file("${outcomes}/${each}" "${CMAKE_CURRENT_BINARY_DIR}/call_outcomes/${each}" COPYONLY)
endforeach()

if(TARN_TOOLS)
    target_link_libraries(end_to_end_tests PRIVATE tarn_third_party)
    add_dependencies(end_to_end_tests tarn)
endif()
if(TARGET java_fixtures)
    add_dependencies(end_to_end_tests java_fixtures)
endif()

add_custom_target(tests DEPENDS unit_tests end_to_end_tests)
