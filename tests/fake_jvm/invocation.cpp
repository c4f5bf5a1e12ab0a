// The exports of the scripted jvm.dll (named in the .def files) and the functions of the VM.

#include <jni.h>

#include <cstring>

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/vm.h"

namespace fake_jvm {

namespace {

// The first version of the arguments, which current headers do not declare.
struct OldArguments {
    jint version;
    char** properties;
    jint checkSource;
    jint nativeStackSize;
    jint javaStackSize;
    jint minHeapSize;
    jint maxHeapSize;
    jint verifyMode;
    char* classpath;
    void* hooks[3];
    jint enableClassGc;
    jint enableVerboseGc;
    jint disableAsyncGc;
    jint verbose;
    jint debugging;
    jint debugPort;
};

std::string Hex(jint value) {
    char text[16];
    wsprintfA(text, "0x%x", value);
    return text;
}

// The size of the calling thread's stack in address space.
std::size_t StackReserve() {
    // Newer than the oldest Windows that the headers are configured for.
    using GetLimits = void(WINAPI*)(ULONG_PTR*, ULONG_PTR*);
    const auto getLimits = reinterpret_cast<GetLimits>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetCurrentThreadStackLimits")));
    ULONG_PTR low = 0;
    ULONG_PTR high = 0;
    getLimits(&low, &high);
    return static_cast<std::size_t>(high - low);
}

void LogSurroundings() {
    Log("stack " + std::to_string(StackReserve()));
    LogVariable(L"Path", "Path");
    LogVariable(L"TARN_JVM_PATH", "TARN_JVM_PATH");
    LogVariable(L"TARN_JVM_HOME", "TARN_JVM_HOME");
    std::wstring directory(GetCurrentDirectoryW(0, nullptr), L'\0');
    directory.resize(GetCurrentDirectoryW(static_cast<DWORD>(directory.size()), directory.data()));
    Log("directory " + QuoteText(std::u16string(directory.begin(), directory.end())));
}

void LogOption(int index, const JavaVMOption& option) {
    Log("option " + std::to_string(index) + ' ' +
        (option.optionString != nullptr ? QuoteBytes(option.optionString) : "null") +
        (option.extraInfo != nullptr ? " with extraInfo" : ""));
}

jint Scripted(const char* function, const char* name) {
    const std::lock_guard guard(Lock());
    const jint result = Script::Get().Number(name, JNI_OK);
    Log(std::string(function) + "()" + (result != JNI_OK ? " fails" : ""));
    return result;
}

jint JNICALL DestroyJavaVM(JavaVM*) {
    const jint result = Scripted("DestroyJavaVM", "destroy");
    RunActions(CurrentEnvironment(), "on_destroy");
    return result;
}

jint Attach(void** env, const char* function) {
    const jint result = Scripted(function, "attach");
    if (result != JNI_OK) return result;
    Environment* const environment = CurrentEnvironment();
    // Thread ids are reused; what an ended thread left pending is discarded.
    if (!environment->attached) environment->pending = nullptr;
    environment->attached = true;
    *env = static_cast<JNIEnv*>(environment);
    RunActions(environment, "on_attach");
    return JNI_OK;
}

jint JNICALL AttachCurrentThread(JavaVM*, void** env, void*) {
    return Attach(env, "AttachCurrentThread");
}

jint JNICALL AttachCurrentThreadAsDaemon(JavaVM*, void** env, void*) {
    return Attach(env, "AttachCurrentThreadAsDaemon");
}

jint JNICALL DetachCurrentThread(JavaVM*) {
    const jint result = Scripted("DetachCurrentThread", "detach");
    Environment* const environment = CurrentEnvironment();
    RunActions(environment, "on_detach");
    if (!environment->attached) LogViolation("detaching a thread that is not attached");
    if (result == JNI_OK) {
        const std::lock_guard guard(Lock());
        environment->attached = false;
        ForgetReferences(environment);
    }
    return result;
}

jint JNICALL GetEnv(JavaVM*, void** env, jint) {
    Scripted("GetEnv", "get_env");
    Environment* const environment = CurrentEnvironment();
    *env = environment->attached ? static_cast<JNIEnv*>(environment) : nullptr;
    return environment->attached ? JNI_OK : JNI_EDETACHED;
}

}  // namespace

const JNIInvokeInterface_* InvocationFunctions() {
    static const JNIInvokeInterface_ table{nullptr,
                                           nullptr,
                                           nullptr,
                                           DestroyJavaVM,
                                           AttachCurrentThread,
                                           DetachCurrentThread,
                                           GetEnv,
                                           AttachCurrentThreadAsDaemon};
    return &table;
}

}  // namespace fake_jvm

extern "C" {

jint JNICALL FakeGetDefaultJavaVMInitArgs(void* arguments) {
    using namespace fake_jvm;
    const std::lock_guard guard(Lock());
    auto* const old = static_cast<OldArguments*>(arguments);
    OldArguments zero{};
    zero.version = old->version;
    Log("JNI_GetDefaultJavaVMInitArgs(version=" + Hex(old->version) +
        (std::memcmp(old, &zero, sizeof zero) == 0 ? ", rest zero)" : ", rest not zero)"));
    RunActions(CurrentEnvironment(), "on_default_args");
    old->javaStackSize = Script::Get().Number("default_stack", 0);
    return Script::Get().Number("default_args", JNI_OK);
}

jint JNICALL FakeCreateJavaVM(JavaVM** machine, void** env, void* argumentsBlock) {
    using namespace fake_jvm;
    const std::lock_guard guard(Lock());
    const auto* const arguments = static_cast<const JavaVMInitArgs*>(argumentsBlock);
    Log("JNI_CreateJavaVM(version=" + Hex(arguments->version) +
        ", options=" + std::to_string(arguments->nOptions) +
        ", ignoreUnrecognized=" + (arguments->ignoreUnrecognized ? "true" : "false") + ')');
    VirtualMachine& virtualMachine = VirtualMachine::Get();
    for (int i = 0; i < arguments->nOptions; ++i) {
        const JavaVMOption& option = arguments->options[i];
        LogOption(i, option);
        if (option.optionString == nullptr || option.extraInfo == nullptr) continue;
        if (std::strcmp(option.optionString, "exit") == 0) {
            virtualMachine.exitHook = reinterpret_cast<void(JNICALL*)(jint)>(option.extraInfo);
        } else if (std::strcmp(option.optionString, "abort") == 0) {
            virtualMachine.abortHook = reinterpret_cast<void(JNICALL*)()>(option.extraInfo);
        }
    }
    LogSurroundings();
    RunActions(CurrentEnvironment(), "on_create");
    const jint result = Script::Get().Number("create", JNI_OK);
    if (result != JNI_OK) {
        // A real JVM leaves its results unchanged on failure; these values reveal a caller that
        // uses them.
        Log("JNI_CreateJavaVM returns " + std::to_string(result));
        return result;
    }
    virtualMachine.interface.functions = InvocationFunctions();
    *machine = &virtualMachine.interface;
    Environment* const environment = CurrentEnvironment();
    environment->attached = true;
    *env = static_cast<JNIEnv*>(environment);
    return JNI_OK;
}

jclass JNICALL FakeFindClassFromBootLoader(JNIEnv* env, const char* name) {
    using namespace fake_jvm;
    Call call(env, "JVM_FindClassFromBootLoader", QuoteText(FromUtf8(name)));
    if (call.Fails() || Script::Get().HasLine(std::string("no_boot_class ") + name)) return nullptr;
    return static_cast<jclass>(NewReference(call.environment(), ClassNamed(name)));
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        fake_jvm::Log("jvm.dll loaded");
        fake_jvm::LogErrorMode("the load of jvm.dll");
        fake_jvm::LogVariable(L"Path", "Path");
    }
    if (reason == DLL_PROCESS_DETACH) fake_jvm::Log("jvm.dll unloaded");
    return TRUE;
}
}
