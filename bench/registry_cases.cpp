// What registered runtimes cost a launch that finds its own among them.
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "base/handles.h"
#include "bench/bench_case.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

namespace fs = std::filesystem;

constexpr wchar_t kRoot[] = L"Software\\JavaSoft\\JDK";
// Newer than whatever the machine has installed; the settings let nothing older pass.
constexpr wchar_t kVersion[] = L"60000.";

/// Any number of registered runtimes. Each has the jvm.dll that only
/// records the time. The destructor removes the keys; keys created above them are volatile.
class Registrations {
  public:
    explicit Registrations(const Workspace& workspace)
        : homes_(workspace.scratch / L"registered"), jvm_(workspace.tools / L"stamp_jvm.dll") {}
    Registrations(const Registrations&) = delete;
    Registrations& operator=(const Registrations&) = delete;
    ~Registrations() { Shrink(0); }

    void Want(int count) {
        Shrink(count);
        while (count_ < count) Register(++count_);
    }

  private:
    static std::wstring KeyOf(int number) {
        return std::wstring(kRoot) + L'\\' + kVersion + std::to_wstring(number);
    }

    void Shrink(int count) {
        while (count_ > count) RegDeleteKeyW(HKEY_LOCAL_MACHINE, KeyOf(count_--).c_str());
    }

    void Register(int number) {
        const fs::path home = homes_ / std::to_wstring(number);
        const fs::path library = home / L"bin" / L"server" / L"jvm.dll";
        if (!fs::exists(library)) {
            fs::create_directories(library.parent_path());
            fs::create_hard_link(jvm_, library);
        }
        const std::wstring text = home.wstring();
        UniqueRegistryKey key;
        if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, KeyOf(number).c_str(), 0, nullptr,
                            REG_OPTION_VOLATILE, KEY_WRITE, nullptr, key.put(),
                            nullptr) != ERROR_SUCCESS ||
            RegSetValueExW(
                key.get(), L"JavaHome", 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) != ERROR_SUCCESS) {
            throw std::runtime_error("cannot register a runtime");
        }
    }

    fs::path homes_;
    fs::path jvm_;
    int count_ = 0;
};

std::wstring IniText(const std::wstring& minimum) {
    return L"[Java Runtime Environment]\r\nMain Class=bench.Stamp\r\nMinimum Version=" + minimum +
           L"\r\nMaximum Version=any\r\n[Class Path]\r\nClass Path=C:\\none.jar\r\n";
}

}  // namespace

std::vector<Case> RegistryCases(const Workspace& workspace) {
    const auto run = [](const InstalledApp& app) {
        const std::wstring program = app.program.wstring();
        return Sample{RunTimed(program, Quoted(program)).toMark};
    };
    Case result;
    result.name = "Growth: runtimes in the registry";
    result.rounds = 10;
    result.quantities = {"to JNI_CreateJavaVM, ms"};

    const InstalledApp shipped = InstallApp(workspace, L"shipped", IniText(L"any"));
    const fs::path bin = shipped.folder / L"jre64" / L"bin";
    fs::create_directories(bin / L"server");
    fs::copy_file(workspace.tools / L"stamp_jvm.dll", bin / L"server" / L"jvm.dll");
    std::ofstream(bin / L"java.dll").close();
    result.contenders.push_back({"0, a shipped one", [=] { return run(shipped); }});

    const InstalledApp registered = InstallApp(workspace, L"registered_app", IniText(L"60000"));
    const auto registrations = std::make_shared<Registrations>(workspace);
    for (const int count : {5, 50, 200}) {
        result.contenders.push_back({std::to_string(count), [=] {
                                         registrations->Want(count);
                                         return run(registered);
                                     }});
    }
    return {result};
}

}  // namespace tarn::bench
