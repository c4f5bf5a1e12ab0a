// How the time to JNI_CreateJavaVM grows with what an application brings.
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

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

// A jar for whoever reads its directory only.
std::string JarWith(int entries) {
    constexpr std::size_t kEntrySize = 100;
    constexpr std::size_t kEndRecordSize = 22;
    constexpr std::size_t kDirectorySizeOffset = 12;
    const auto size = static_cast<std::uint32_t>(kEntrySize * static_cast<std::size_t>(entries));
    std::string jar(size + kEndRecordSize, '\0');
    std::memcpy(jar.data() + size, "PK\x05\x06", 4);
    std::memcpy(jar.data() + size + kDirectorySizeOffset, &size, sizeof size);
    return jar;
}

// Starts that find no archive, and look whether one can be written.
Case FastStartCase(const Workspace& workspace) {
    Case result = EmptyCase("Growth: fingerprint of the class path");
    for (const std::pair<int, int>& size :
         {std::pair(1, 100), std::pair(10, 100), std::pair(100, 100), std::pair(1, 10'000)}) {
        const int jars = size.first;
        const int entries = size.second;
        const std::wstring name = L"jars" + std::to_wstring(jars) + L"x" + std::to_wstring(entries);
        const std::filesystem::path library = workspace.scratch / name;
        std::vector<std::filesystem::path> paths;
        std::wstring classPath;
        for (int i = 0; i < jars; ++i) {
            paths.push_back(library / (std::to_wstring(i) + L".jar"));
            classPath += paths.back().wstring() + L";";
        }
        const std::wstring key =
            L"[Application]\r\nFast Start=" + (library / L"archives" / L"a").wstring() + L"\r\n";
        for (const bool isFast : {false, true}) {
            const InstalledApp app =
                InstallScriptedApp(workspace, name + (isFast ? L"fast" : L"plain"), classPath,
                                   isFast ? key : std::wstring());
            const std::string shown = std::to_string(jars) + " x " + std::to_string(entries) +
                                      " entries" + (isFast ? ", fast start" : "");
            result.contenders.push_back({shown, [=, home = ScriptedRuntime(workspace)] {
                                             std::ofstream(home / L"release")
                                                 << "JAVA_VERSION=\"21\"\n";
                                             if (std::filesystem::create_directory(library))
                                                 for (const auto& path : paths)
                                                     std::ofstream(path, std::ios::binary)
                                                         << JarWith(entries);
                                             return Sample{ToCreateJavaVm(app)};
                                         }});
        }
    }
    return result;
}

}  // namespace

std::vector<Case> GrowthCases(const Workspace& workspace) {
    return {WildcardCase(workspace), SettingsCase(workspace), ArgumentsCase(workspace),
            FastStartCase(workspace)};
}

}  // namespace tarn::bench
