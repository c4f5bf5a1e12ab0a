# Where jni.h comes from: any JDK's, for its platform half is ours (jvm/platform/jni_md.h).
if(WIN32)
    file(GLOB tarnInstalledJdks LIST_DIRECTORIES true /usr/lib/jvm/*)
    find_path(TARN_JNI_INCLUDE jni.h
        HINTS /usr/lib/jvm/java-17-openjdk-amd64 ENV JAVA_HOME
        PATHS ${tarnInstalledJdks}
        PATH_SUFFIXES include NO_CMAKE_FIND_ROOT_PATH REQUIRED
        DOC "Folder of the JDK's jni.h")
    add_library(tarn_jni INTERFACE)
    # The JDK's header is not ours to warn about. Our platform half comes first, so that a JDK
    # that has one of its own beside jni.h makes no difference.
    target_include_directories(tarn_jni SYSTEM INTERFACE
        "${PROJECT_SOURCE_DIR}/jvm/platform" "${TARN_JNI_INCLUDE}")
endif()
