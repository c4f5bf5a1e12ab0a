#include "jvm/output_redirection.h"

#include <jni.h>

#include "base/paths.h"
#include "base/text.h"
#include "base/windows.h"
#include "jvm/jni_util.h"
#include "jvm/time_stamp.h"

namespace tarn {
namespace {

// Whether the folder exists afterwards. For an existing folder whose parent is read-only,
// `CreateDirectoryW` fails with "access denied".
bool EnsureFolder(const std::wstring& folder) {
    return CreateDirectoryW(folder.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS ||
           GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// `setter` is the method of `java.lang.System` that replaces the stream. An exception can be
// pending afterwards.
void RedirectStream(JNIEnv* env, const std::wstring& fileName, bool append, const char* setter) {
    CreateOutputFolders(fileName);
    const jstring name = MakeJavaString(env, fileName);
    if (name == nullptr) return;
    const jobject file = NewJavaObject(env, "java/io/FileOutputStream", "(Ljava/lang/String;Z)V",
                                       name, append ? JNI_TRUE : JNI_FALSE);
    if (file == nullptr) return;
    // Without automatic flush: docs/developer/compatibility.md.
    const jobject stream = NewPrintStream(env, file);
    if (stream == nullptr) return;
    CallSystemMethod(env, setter, "(Ljava/io/PrintStream;)V", stream);
}

}  // namespace

void CreateOutputFolders(const std::wstring& fileName) {
    if (!IsAbsolutePath(fileName) || FileExists(fileName)) return;
    for (std::size_t length = 0;;) {
        length = NextFolderLevel(fileName, length);
        if (length == std::wstring::npos || !EnsureFolder(fileName.substr(0, length))) return;
    }
}

void SetUpRedirection(JNIEnv* env, const OutputFiles& files) {
    std::wstring outputFile = files.outputFile;
    std::wstring errorFile = files.errorFile;
    if (SplitTimeStamp(outputFile) || SplitTimeStamp(errorFile)) {
        SYSTEMTIME now;
        GetLocalTime(&now);
        outputFile = ExpandTimeStamp(outputFile, now);
        errorFile = ExpandTimeStamp(errorFile, now);
    }
    if (!outputFile.empty()) {
        RedirectStream(env, outputFile, files.outputAppend, "setOut");
        DescribePending(env);
    }
    if (!errorFile.empty()) {
        RedirectStream(env, errorFile, files.errorAppend, "setErr");
        DescribePending(env);
    }
}

}  // namespace tarn
