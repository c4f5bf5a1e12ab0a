#include "runtime/jvm_library.h"

#include "base/paths.h"
#include "base/text.h"
#include "base/windows.h"

namespace tarn {

std::wstring SelectJvmLibrary(const std::wstring& home, JvmType type, bool& server) {
    for (const JvmLibraryPlace& place : JvmLibraryPlaces(type)) {
        std::wstring path = home;
        path += place.path;
        if (FileExists(path)) {
            server = place.server;
            return path;
        }
    }
    return {};
}

void PublishJvmLocation(const std::wstring& jvmLibraryPath) {
    SetEnvironmentVariableW(L"TARN_JVM_PATH", jvmLibraryPath.c_str());
    SetEnvironmentVariableW(L"TARN_JVM_HOME", std::wstring(RuntimeHomeOf(jvmLibraryPath)).c_str());
}

std::wstring FindInRuntimeBin(const std::wstring& jvmLibraryPath, std::wstring_view fileName) {
    const std::wstring_view bin = RuntimeBinOf(jvmLibraryPath);
    std::wstring path(bin);
    if (!bin.ends_with(L'\\') && !bin.ends_with(L'/')) path += L'\\';
    path += fileName;
    if (!FileExists(path)) path.clear();
    return path;
}

}  // namespace tarn
