// The minimal program that runs a Java application in its own process; the reference for the
// launcher's figures. It imports only kernel32 and the C runtime.
// Compiled with TARN_HOST_WINDOW=1 it is window_host, which also shows an empty window.
//
//   bare_host JVM_DLL STACK_BYTES MAIN_CLASS OPTION... -- ARGUMENT...
#include <string>
#include <string_view>
#include <vector>

#include <jni.h>

#include "base/windows.h"
#if TARN_HOST_WINDOW
#include "bench/host_window.h"
#endif

namespace {

using CreateJavaVm = jint(JNICALL*)(JavaVM**, void**, void*);
using FindBootClass = jclass(JNICALL*)(JNIEnv*, const char*);

struct Start {
    CreateJavaVm createJavaVm = nullptr;
    FindBootClass findBootClass = nullptr;
    std::wstring mainClass;
    std::vector<std::string> options;
    std::vector<std::wstring> arguments;
};

std::string Ansi(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_ACP, 0, text.c_str(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.c_str(), length, result.data(), size, nullptr, nullptr);
    return result;
}

jstring JavaString(JNIEnv* env, const std::wstring& text) {
    return env->NewString(reinterpret_cast<const jchar*>(text.c_str()),
                          static_cast<jsize>(text.size()));
}

// Finds the main class as java.exe and the launcher do.
jclass LoadMainClass(JNIEnv* env, const Start& start) {
    jclass helper = start.findBootClass(env, "sun/launcher/LauncherHelper");
    jmethodID load = env->GetStaticMethodID(helper, "checkAndLoadMain",
                                            "(ZILjava/lang/String;)Ljava/lang/Class;");
    return static_cast<jclass>(env->CallStaticObjectMethod(helper, load, JNI_TRUE, jint{1},
                                                           JavaString(env, start.mainClass)));
}

DWORD WINAPI RunJava(void* parameter) noexcept {
    const Start& start = *static_cast<const Start*>(parameter);
    std::vector<JavaVMOption> options;
    options.reserve(start.options.size());
    for (const std::string& option : start.options)
        options.push_back({const_cast<char*>(option.c_str()), nullptr});
    JavaVMInitArgs initArguments{JNI_VERSION_1_2, static_cast<jint>(options.size()), options.data(),
                                 JNI_FALSE};
    JavaVM* javaVm = nullptr;
    JNIEnv* env = nullptr;
    if (start.createJavaVm(&javaVm, reinterpret_cast<void**>(&env), &initArguments) != JNI_OK)
        return 2;
    jclass mainClass = LoadMainClass(env, start);
    if (mainClass == nullptr) return 3;
    jmethodID main = env->GetStaticMethodID(mainClass, "main", "([Ljava/lang/String;)V");
    jobjectArray arguments = env->NewObjectArray(static_cast<jsize>(start.arguments.size()),
                                                 env->FindClass("java/lang/String"), nullptr);
    for (std::size_t i = 0; i < start.arguments.size(); ++i)
        env->SetObjectArrayElement(arguments, static_cast<jsize>(i),
                                   JavaString(env, start.arguments[i]));
    env->CallStaticVoidMethod(mainClass, main, arguments);
    return javaVm->DetachCurrentThread() == JNI_OK ? 0 : 4;
}

// Some runtimes load their own libraries by name while the JVM starts.
void AddRuntimeToPath(const std::wstring& jvmLibraryPath) {
    const std::wstring folder = jvmLibraryPath.substr(0, jvmLibraryPath.rfind(L'\\'));
    const std::wstring bin = folder.substr(0, folder.rfind(L'\\'));
    std::wstring path(GetEnvironmentVariableW(L"Path", nullptr, 0), L'\0');
    path.resize(GetEnvironmentVariableW(L"Path", path.data(), static_cast<DWORD>(path.size())));
    SetEnvironmentVariableW(L"Path", (path + L';' + bin).c_str());
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): the C runtime's entry point.
int wmain(int count, wchar_t** words) {
    if (count < 4) return 5;
    const std::wstring jvmLibraryPath = words[1];
    Start start;
    start.mainClass = words[3];
    bool options = true;
    for (int i = 4; i < count; ++i) {
        const std::wstring_view word = words[i];
        if (options && word == L"--")
            options = false;
        else if (options)
            start.options.push_back(Ansi(std::wstring(word)));
        else
            start.arguments.emplace_back(word);
    }

#if TARN_HOST_WINDOW
    ShowEmptyWindow();
#endif
    AddRuntimeToPath(jvmLibraryPath);
    HMODULE jvm = LoadLibraryW(jvmLibraryPath.c_str());
    if (jvm == nullptr) return 6;
    start.createJavaVm = reinterpret_cast<CreateJavaVm>(
        reinterpret_cast<void*>(GetProcAddress(jvm, "JNI_CreateJavaVM")));
    start.findBootClass = reinterpret_cast<FindBootClass>(
        reinterpret_cast<void*>(GetProcAddress(jvm, "JVM_FindClassFromBootLoader")));

    HANDLE thread = CreateThread(nullptr, static_cast<SIZE_T>(std::stoull(words[2])), RunJava,
                                 &start, 0, nullptr);
    if (thread == nullptr) return 7;
    WaitForSingleObject(thread, INFINITE);
    DWORD exitCode = 8;
    GetExitCodeThread(thread, &exitCode);
    CloseHandle(thread);
    return static_cast<int>(exitCode);
}
