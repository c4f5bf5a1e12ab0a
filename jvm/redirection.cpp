#include "jvm/redirection.h"

#include <string>

#include "base/windows.h"
#include "jvm/java_objects.h"
#include "jvm/java_text.h"
#include "jvm/output_folders.h"
#include "jvm/time_stamp_format.h"

namespace tarn {
namespace {

/// `setter` is the method of `java.lang.System` that takes the stream. On false an exception may
/// be pending.
bool RedirectStream(JNIEnv* env, const std::wstring& fileName, bool append, const char* setter) {
    CreateOutputFolders(fileName);
    const jstring name = MakeJavaString(env, fileName);
    if (name == nullptr) return false;
    const jobject file = NewJavaObject(env, "java/io/FileOutputStream", "(Ljava/lang/String;Z)V",
                                       name, append ? JNI_TRUE : JNI_FALSE);
    if (file == nullptr) return false;
    const jobject stream = NewPrintStream(env, file);
    if (stream == nullptr) return false;
    const jclass system = env->FindClass("java/lang/System");
    if (system == nullptr) return false;
    const jmethodID set = env->GetStaticMethodID(system, setter, "(Ljava/io/PrintStream;)V");
    if (set == nullptr) return false;
    env->CallStaticVoidMethod(system, set, stream);
    return !DescribePending(env);
}

}  // namespace

void SetUpRedirection(JNIEnv* env, const OutputFiles& files) {
    std::wstring outputFile = files.outputFile;
    std::wstring errorFile = files.errorFile;
    if (outputFile.find(L'%') != std::wstring::npos || errorFile.find(L'%') != std::wstring::npos) {
        SYSTEMTIME now;  // one instant, so that the two names go together
        GetLocalTime(&now);
        outputFile = ExpandTimeStamp(outputFile, now);
        errorFile = ExpandTimeStamp(errorFile, now);
    }
    if (!outputFile.empty() && !RedirectStream(env, outputFile, files.outputAppend, "setOut")) {
        DescribePending(env);
    }
    if (!errorFile.empty() && !RedirectStream(env, errorFile, files.errorAppend, "setErr")) {
        DescribePending(env);
    }
}

}  // namespace tarn
