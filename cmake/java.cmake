# Finds the JDK: JAVA_HOME if it is set, else the first version in toolchain_versions.txt among the
# distribution's packages, else whatever is in the usual places.
file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/toolchain_versions.txt" tarnVersions REGEX "^jdk ")
string(REGEX MATCHALL "[0-9]+" tarnVersions "${tarnVersions}")
set(tarnJdks $ENV{JAVA_HOME})
foreach(tarnVersion IN LISTS tarnVersions)
    file(GLOB tarnInstalledJdks LIST_DIRECTORIES true "/usr/lib/jvm/java-${tarnVersion}-openjdk*")
    list(APPEND tarnJdks ${tarnInstalledJdks})
endforeach()
file(GLOB tarnInstalledJdks LIST_DIRECTORIES true /usr/lib/jvm/*)

# Where jni.h comes from: any JDK's, for its platform half is ours (jvm/platform/jni_md.h).
if(WIN32)
    find_path(TARN_JNI_INCLUDE jni.h
        HINTS ${tarnJdks} PATHS ${tarnInstalledJdks}
        PATH_SUFFIXES include NO_CMAKE_FIND_ROOT_PATH REQUIRED
        DOC "Folder of the JDK's jni.h")
    add_library(tarn_jni INTERFACE)
    # The JDK's header is not ours to warn about. Our platform half comes first, so that a JDK
    # that has one of its own beside jni.h makes no difference.
    target_include_directories(tarn_jni SYSTEM INTERFACE
        "${PROJECT_SOURCE_DIR}/jvm/platform" "${TARN_JNI_INCLUDE}")
endif()
