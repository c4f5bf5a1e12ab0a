// How the time to JNI_CreateJavaVM grows with what an application brings.
#include <fstream>

#include "bench/bench_case.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

constexpr const char* kToCreate = "to JNI_CreateJavaVM, ms";
constexpr int kRounds = 6;

Case EmptyCase(const char* name) {
    Case result;
    result.name = name;
    result.quantities = {kToCreate};
    result.rounds = kRounds;
    return result;
}

Case WildcardCase(const Workspace& workspace) {
    Case result = EmptyCase("Growth: matches of a class path pattern");
    for (const int count : {10, 100, 1000, 10000}) {
        const std::wstring name = L"wildcard" + std::to_wstring(count);
        const InstalledApp app = InstallScriptedApp(workspace, name, L"lib\\*.jar");
        result.contenders.push_back(
            {std::to_string(count), [app, count] {
                 const std::filesystem::path library = app.folder / L"lib";
                 if (std::filesystem::create_directory(library))
                     for (int i = 0; i < count; ++i)
                         std::ofstream(library / (L"library" + std::to_wstring(i) + L".jar"));
                 return Sample{ToCreateJavaVm(app)};
             }});
    }
    return result;
}

Case SettingsCase(const Workspace& workspace) {
    constexpr const wchar_t* kLine = L"a key that is never read=a value of some length, as in\r\n";
    Case result = EmptyCase("Growth: size of the settings file");
    for (const int kib : {1, 10, 100, 1024, 10240}) {
        // The file has two bytes for a character.
        const std::size_t length = static_cast<std::size_t>(kib) * 512;
        std::wstring filler = L"[Filler]\r\n";
        while (filler.size() < length) filler += kLine;
        const InstalledApp app = InstallScriptedApp(workspace, L"settings" + std::to_wstring(kib),
                                                    L"C:\\none.jar", filler);
        result.contenders.push_back(
            {std::to_string(kib) + " KiB", [app] { return Sample{ToCreateJavaVm(app)}; }});
    }
    return result;
}

Case ArgumentsCase(const Workspace& workspace) {
    Case result = EmptyCase("Growth: arguments");
    const InstalledApp app = InstallScriptedApp(workspace, L"arguments");
    for (const int count : {0, 10, 100, 1000, 10000}) {
        // Two characters each: the longest command line has 32,767.
        std::wstring arguments;
        for (int i = 0; i < count; ++i) arguments += L"a ";
        result.contenders.push_back({std::to_string(count), [app, arguments] {
                                         return Sample{ToCreateJavaVm(app, arguments)};
                                     }});
    }
    return result;
}

}  // namespace

std::vector<Case> GrowthCases(const Workspace& workspace) {
    return {WildcardCase(workspace), SettingsCase(workspace), ArgumentsCase(workspace)};
}

}  // namespace tarn::bench
