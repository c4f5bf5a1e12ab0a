# The end-to-end tests: one Windows program that starts the real launcher.exe. A new suite is one
# more file in this list.
set(endToEndTests
    fake_jvm_test.cpp
    framework_test.cpp
)

add_subdirectory(fake_jvm)

add_executable(end_to_end_tests
    ${endToEndTests}
    support/fake_jvm_log.cpp
    support/installed_application.cpp
    support/launched_process.cpp
    support/main.cpp
    support/named_event.cpp
    support/paths.cpp
    support/registry_key.cpp
    support/settings_text.cpp
    support/text.cpp
    support/wait.cpp
    support/windows_of_process.cpp)
target_link_libraries(end_to_end_tests PRIVATE tarn_compile_options tarn_jni gmock)
target_link_options(end_to_end_tests PRIVATE -static)
add_dependencies(end_to_end_tests launcher fake_jvms)

if(TARGET java_fixtures)
    add_dependencies(end_to_end_tests java_fixtures)
endif()

add_custom_target(tests DEPENDS unit_tests end_to_end_tests)
