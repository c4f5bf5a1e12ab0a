// What the search costs a launch that finds its runtime among registered or installed ones.
#include <fstream>
#include <memory>
#include <string>

#include "base/windows.h"
#include "bench/bench_case.h"
#include "bench/registrations.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

namespace fs = std::filesystem;

constexpr int kInstalled = 20;

std::wstring IniText(const std::wstring& minimum, const std::wstring& moreOfRuntime = {}) {
    return L"[Java Runtime Environment]\r\nMain Class=bench.Stamp\r\nMinimum Version=" + minimum +
           L"\r\nMaximum Version=any\r\n" + moreOfRuntime +
           L"[Class Path]\r\nClass Path=C:\\none.jar\r\n";
}

Case RegisteredRuntimesCase(const Workspace& workspace) {
    Case result;
    result.name = "Growth: runtimes in the registry";
    result.rounds = 10;
    result.quantities = {"to JNI_CreateJavaVM, ms"};

    const InstalledApp shipped = InstallApp(workspace, L"shipped", IniText(L"any"));
    const fs::path bin = shipped.folder / L"jre64" / L"bin";
    fs::create_directories(bin / L"server");
    fs::copy_file(workspace.tools / L"stamp_jvm.dll", bin / L"server" / L"jvm.dll");
    std::ofstream(bin / L"java.dll").close();
    result.contenders.push_back(
        {"0, a shipped one", [=] { return Sample{ToCreateJavaVm(shipped)}; }});

    const InstalledApp registered = InstallApp(workspace, L"registered_app", IniText(L"60000"));
    const auto registrations = std::make_shared<Registrations>(workspace, JavaSoftKits(),
                                                               workspace.scratch / L"registered");
    for (const int count : {5, 50, 200}) {
        result.contenders.push_back({std::to_string(count), [=] {
                                         registrations->Want(count);
                                         return Sample{ToCreateJavaVm(registered)};
                                     }});
    }
    return result;
}

/// While the object lives, started processes have this folder for the user's local data.
class LocalDataFolder {
  public:
    explicit LocalDataFolder(const fs::path& folder) {
        wchar_t text[MAX_PATH] = {};
        GetEnvironmentVariableW(kName, text, MAX_PATH);
        before_ = text;
        SetEnvironmentVariableW(kName, folder.c_str());
    }
    LocalDataFolder(const LocalDataFolder&) = delete;
    LocalDataFolder& operator=(const LocalDataFolder&) = delete;
    ~LocalDataFolder() { SetEnvironmentVariableW(kName, before_.c_str()); }

  private:
    static constexpr wchar_t kName[] = L"LOCALAPPDATA";
    std::wstring before_;
};

/// Every source is searched: a maker's keys name each runtime in a version that the settings
/// reject, and only the last source, which finds them again in the maker's folder, accepts them.
Case FurtherSourcesCase(const Workspace& workspace) {
    const std::string quantity = "to JNI_CreateJavaVM, ms";
    const std::string without = "a registered one, no further source";
    const std::string with =
        "all further sources, " + std::to_string(kInstalled) + " installed ones";
    const fs::path local = workspace.scratch / L"local";
    const auto installed =
        std::make_shared<Registrations>(workspace,
                                        RegistrationLayout{L"SOFTWARE\\Eclipse Adoptium\\JDK",
                                                           L"59999.", L"\\hotspot\\MSI", L"Path"},
                                        local / L"Programs" / L"Eclipse Adoptium");
    const auto registered = std::make_shared<Registrations>(workspace, JavaSoftKits(),
                                                            workspace.scratch / L"registered");
    const InstalledApp plain = InstallApp(workspace, L"no_further_source", IniText(L"60000"));
    const InstalledApp further =
        InstallApp(workspace, L"further_sources",
                   IniText(L"60000", L"Further Sources=vendors;user;java_home;path;folders\r\n"));

    Case result;
    result.name = "Further sources of a runtime";
    result.quantities = {quantity};
    result.contenders.push_back({without, [=] {
                                     registered->Want(1);
                                     return Sample{ToCreateJavaVm(plain)};
                                 }});
    result.contenders.push_back({with, [=] {
                                     registered->Want(0);
                                     installed->Want(kInstalled);
                                     for (int number = 1; number <= kInstalled; ++number) {
                                         std::ofstream(installed->HomeOf(number) / L"release")
                                             << "IMPLEMENTOR=\"Bench\"\nJAVA_VERSION=\"60000."
                                             << number << "\"\n";
                                     }
                                     const LocalDataFolder folder(local);
                                     return Sample{ToCreateJavaVm(further)};
                                 }});
    result.budgets = {{quantity, with, without, Budget::Kind::DifferenceAtMost, 10}};
    return result;
}

}  // namespace

std::vector<Case> RegistryCases(const Workspace& workspace) {
    return {RegisteredRuntimesCase(workspace), FurtherSourcesCase(workspace)};
}

}  // namespace tarn::bench
