// The runtimes of a generated launch: which are installed, and what the settings say about them.

#include "tests/support/generated_launch.h"
#include "tests/support/jvm_files.h"
#include "tests/support/pair_product.h"
#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

/// Copies a random jvm.dll into the home.
std::wstring GeneratedLaunch::AddHome(const std::wstring& home) {
    const std::wstring place = OneOf({L"server", L"server", L"server", L"server", L"client",
                                      L"classic", L"hotspot", L"jrockit"});
    const std::wstring variant =
        Chance(88) ? kFullJvm
                   : OneOf({kJvmWithoutBootLoader, kJvmWithoutCreate, kJvmWithoutDefaults});
    app.AddRuntime(home, variant.c_str(), L"bin\\" + place);
    if (Chance(15)) app.AddRuntime(home, kFullJvm, L"bin\\client");
    const std::wstring library = home + L"\\bin\\" + place + L"\\jvm.dll";
    notes_ += "runtime " + ToUtf8(library) + ' ' + ToUtf8(variant);
    if (Chance(4)) {
        app.AddFile(library, "no library at all");
        notes_ += " (broken)";
    } else if (Chance(10)) {
        app.AddFile(library, HeadersOf32BitLibrary());
        notes_ += " (32-bit)";
    }
    notes_ += '\n';
    return app.Path(home);
}

void GeneratedLaunch::GenerateConfiguredRuntime() {
    const unsigned kind = RandomBelow(100);
    if (kind < 12) return;
    std::wstring home = AddHome(L"jre");
    if (kind < 24) home += L'\\';
    if (kind >= 85) home = app.Path(L"no runtime here");
    if (kind >= 92) home = L"jre";
    if (!Chance(15)) {
        SetRuntimeKey(L"JRE Path", home);
        return;
    }
    // For both products; the user's file hides the word in the application's file.
    SetRuntimeKey(L"JRE Path", app.Path(L"hidden"));
    for (const wchar_t* const product : {L"Product", L"Product A"}) {
        const std::wstring folder = app.AppDataFolder() + L'\\' + product + L"\\1234";
        CreateFolders(folder);
        WriteFileBytes(folder + L"\\sample.ini",
                       Utf16File(L"[Java Runtime Environment]\r\nJRE Path=" + home + L"\r\n"));
    }
    layers.erase({L"Java Runtime Environment", L"JRE Path"});
    notes_ += "files of the user's own\n";
}

void GeneratedLaunch::GenerateOtherRuntimes() {
    const unsigned kind = RandomBelow(100);
    if (kind < 8) {
        AddHome(L"jre64");
        app.AddFile(L"jre64\\bin\\java.dll");
    } else if (kind < 14) {
        AddHome(L"bin\\..");
        app.AddFile(L"bin\\java.dll");
    } else if (kind < 18) {
        // Found only by launches with this working directory.
        AddHome(L"work");
    }
}

void GeneratedLaunch::GenerateRegistry() {
    if (!Chance(35)) return;
    registered_ = std::make_unique<RegisteredRuntimes>();
    for (unsigned count = 1 + RandomBelow(4); count > 0; --count) {
        const std::wstring root = OneOf({kJdkRoot, kJreRoot, kJdkRoot, kJreRoot, kOldJdkRoot,
                                         kOldJreRoot, kJrockitJreRoot, kJrockitJdkRoot, kIbmRoot});
        // A different key each time, whatever the version.
        const std::wstring name = OneOf({L"1.8.0_", L"11.0.", L"17.", L"9.", L"jdk-17+", L"abc"}) +
                                  std::to_wstring(count);
        const RegistryView view = Chance(75) ? RegistryView::k64Bit : RegistryView::k32Bit;
        notes_ += "registered " + ToUtf8(root) + '\\' + ToUtf8(name) +
                  (view == RegistryView::k32Bit ? " (32-bit view)\n" : "\n");
        if (Chance(8)) {
            registered_->AddEmpty(root, name, view);
            continue;
        }
        const std::wstring home = L"registered" + std::to_wstring(count);
        // The runtime of an old JDK is in its folder `jre`.
        const bool inside = root == kOldJdkRoot || root == kJrockitJdkRoot;
        if (!Chance(10)) AddHome(inside ? home + L"\\jre" : home);
        registered_->Add(root, name, app.Path(home), view);
    }
}

void GeneratedLaunch::GeneratePolicy() {
    SetRuntimeKey(L"JVM Type",
                  OneOf({L"", L"", L"", L"", L"", L"server", L"favor_server", L"Server"}));
    SetRuntimeKey(L"JVM Source", OneOf({L"", L"", L"", L"", L"favor_JRE", L"favor_JDK", L"only_JDK",
                                        L"only_JRE", L"Favor_JRE"}));
    SetRuntimeKey(L"VM Provider", OneOf({L"", L"", L"", L"", L"ibm", L"any", L"FAVOR_sun",
                                         L"JRockit", L"favor_ibm", L"sun"}));
    SetRuntimeKey(L"Minimum Version", OneOf({L"", L"any", L"any", L"1.8", L"11"}));
    SetRuntimeKey(L"Maximum Version",
                  OneOf({L"any", L"any", L"any", L"any", L"", L"1.8", L"11", L"17"}));
    SetRuntimeKey(L"Preferred versions", OneOf({L"", L"", L"", L"1.8", L"11;17", L"9;;"}));
}

void GeneratedLaunch::GeneratePairedProgram() {
    if (!Chance(45)) return;
    SetApplicationKey(L"Pair Product", Chance(80) ? GetPaths().programs + L"\\pair_product.exe"
                                                  : app.Path(L"missing.exe"));
    app.environment[L"PAIR_LOG"] = app.Path(L"pair.log");
    app.environment[L"PAIR_EXIT"] = std::to_wstring(kPairCode);
    if (Chance(30)) {
        app.AddFile(L"jre\\bin\\client\\jvm.dll", HeadersOf32BitLibrary());
        notes_ += "a 32-bit client JVM in jre\n";
    }
    if (Chance(50)) SetApplicationKey(L"Pair Return Code", OneOf({L"Yes", L"yes", L"on"}));
}

}  // namespace tarn::test
