#include "tests/support/generated_launch.h"

#include "tests/support/edited_launcher.h"
#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

GeneratedLaunch::GeneratedLaunch(std::uint32_t seed) : random_(seed) {
    app.environment[L"PATH"] = L"C:\\windows\\system32;C:\\windows";
    app.environment[L"TARN_PROBE"] = L"probe value";
    script_ = "main = set_event " + mainRuns.utf8Name() + "\nmain = wait_event " +
              mainMayEnd.utf8Name() + "\nmain = exit " + std::to_string(kMainCode) + '\n';
    GenerateProgram();
    GenerateConfiguredRuntime();
    GenerateOtherRuntimes();
    GenerateRegistry();
    GeneratePolicy();
    GeneratePairedProgram();
    GenerateClassPath();
    GenerateParameters();
    GenerateOutputs();
    GenerateSplash();
    GenerateInstance();
    WriteAll();
}

bool GeneratedLaunch::PairedProgramWasStarted() const {
    return WaitUntil([this] { return !ReadFileBytes(app.Path(L"pair.log")).empty(); });
}

std::string GeneratedLaunch::Description() const {
    return "file:\n" + ToUtf8(file_.Text()) + "built in:\n" + ToUtf8(builtIn_.Text()) +
           "arguments: " + ToUtf8(argumentText) + "\ndirectory: " + ToUtf8(app.directory) + '\n' +
           notes_;
}

// Not the distributions of the library, whose results differ between platforms.
unsigned GeneratedLaunch::RandomBelow(unsigned limit) {
    return static_cast<unsigned>(random_() % limit);
}

void GeneratedLaunch::SetInFile(std::wstring_view section, std::wstring_view key,
                                const std::wstring& value) {
    file_.Set(section, key, value);
    if (!value.empty()) layers[{std::wstring(section), std::wstring(key)}] = "file";
}

void GeneratedLaunch::Set(std::wstring_view section, std::wstring_view key,
                          const std::wstring& value) {
    // Windows removes the quotes around a value, which may leave an empty text.
    if (value.empty() || value.front() == L'"') return;
    const std::wstring additive = std::wstring(section) + L'+';
    const auto note = [&](const char* layer) {
        layers[{std::wstring(section), std::wstring(key)}] = layer;
    };
    const auto buildIn = [&](const std::wstring& text) {
        builtIn_.Set(section, key, text);
        hasBuiltIn_ = true;
    };
    const unsigned place = RandomBelow(100);
    if (place < 76) {
        SetInFile(section, key, value);
        if (place < 6) buildIn(L"hidden");
        if (place < 3) file_.Set(additive, key, L"hidden");
    } else if (place < 90) {
        if (place < 80) file_.Set(section, key, L"");
        buildIn(value);
        note("built-in");
    } else if (place < 95) {
        file_.Set(additive, key, value);
        note("additive");
    } else {
        buildIn(value);
        file_.Set(additive, key, L" more");
        note("built-in+additive");
    }
}

void GeneratedLaunch::SetRuntimeKey(std::wstring_view key, const std::wstring& value) {
    Set(L"Java Runtime Environment", key, value);
}

void GeneratedLaunch::SetApplicationKey(std::wstring_view key, const std::wstring& value) {
    Set(L"Application", key, value);
}

void GeneratedLaunch::GenerateProgram() {
    if (!Chance(4)) {
        SetRuntimeKey(L"Main Class", OneOf({L"com.example.Main", L"com/example/Main", L"Main"}));
    }
    if (Chance(6)) SetApplicationKey(L"Application Type", OneOf({L"service", L"Service"}));
    if (Chance(15)) SetApplicationKey(L"Override WorkingDir", OneOf({L"Yes", L"yes", L"true"}));
    if (Chance(10)) SetApplicationKey(L"Failure Check", OneOf({L"YES", L"no"}));
    if (Chance(40)) {
        SetInFile(L"Product Information", L"Product Name", OneOf({L"Pro/duct: A?", L"Product"}));
        SetInFile(L"Product Information", L"Product Code", L"1234");
    }
    argumentText = OneOf({L"", L"", L"a  \"b c\" ", L"\"\" x\ty", L"-nosplash", L"one /nosplash",
                          L"-NOSPLASH \u00E9\u8A66", L"say \\\"hi\\\" \"C:\\dir\\\" end"});
    if (Chance(30)) app.directory = app.folder();
    if (Chance(20)) app.directory = app.AddFolder(L"work");
    if (Chance(10)) {
        const unsigned id = 206 + RandomBelow(5);
        EXPECT_TRUE(ReplaceMessageText(app.Executable(), id, L"Text of its own: %s\u00E9"));
        notes_ += "text " + std::to_string(id) + " replaced\n";
    }
}

void GeneratedLaunch::GenerateParameters() {
    if (Chance(30)) {
        SetRuntimeKey(L"Library Path",
                      OneOf({L"C:\\native;", L"%TARN_PROBE%;", L"%TARN_UNKNOWN%;x"}));
    }
    if (Chance(30))
        SetRuntimeKey(L"System Path", OneOf({L"C:\\tools", L"%TARN_PROBE%;", L"D:\\x;"}));
    std::wstring parameters;
    for (unsigned count = RandomBelow(6); count > 0; --count) {
        parameters += OneOf({L"-Da=b",
                             L"-Dname=\"a b\"",
                             L"-Dq=\"x\"y\"z w\"",
                             L"\"\"",
                             L"-Xmx50p",
                             L"-Xmx50:256:1024p",
                             L"-Xms25P",
                             L"-Xmx100:16:64t",
                             L"-Xmx0::7p",
                             L"-Xms0:3000000p",
                             L"-Xss1m",
                             L"-Xss512k",
                             L"-Xss1024",
                             L"-Xss1:2m",
                             L"-Xss0:3:8p",
                             L"-XMX50p",
                             L"-Xmx",
                             L"-Dv=%TARN_PROBE%",
                             L"-Dh=%TARN_JVM_HOME%",
                             L"-Du=%TARN_UNKNOWN%",
                             L"-D\u00E9\u20AC=\u8A66",
                             L"-Dd=\"e\"\"f",
                             L"-Dtab=a\tb"});
        parameters += OneOf({L" ", L"  "});
    }
    SetRuntimeKey(L"Virtual Machine Parameters", parameters);
    if (Chance(35)) {
        SetApplicationKey(
            L"Cmd", OneOf({L"one \"two three\"", L"%TARN_PROBE% \"\"", L"x \"%TARN_PROBE%\""}));
    }
    script_ += "default_stack = " + std::to_string(RandomBelow(4) * 1'500'000) + '\n';
}

void GeneratedLaunch::GenerateClassPath() {
    if (Chance(5)) return;
    for (const wchar_t* const jar : {L"lib\\b.jar", L"lib\\a.jar", L"app.jar"}) app.AddFile(jar);
    std::wstring classPath;
    for (unsigned count = 1 + RandomBelow(4); count > 0; --count) {
        classPath += OneOf({L"C:\\app.jar", L"app.jar", L"lib\\*.jar", L"missing.jar", L"*",
                            L"\\\\server\\share\\x.jar", L"%TARN_PROBE%.jar", L"x", L"lib", L""});
        classPath += L';';
    }
    Set(L"Class Path", L"Class Path", classPath);
    if (Chance(15)) SetApplicationKey(L"Embedded Jar", OneOf({L"Yes", L"yes", L"true"}));
}

void GeneratedLaunch::GenerateOutputs() {
    for (const wchar_t* const stream : {L"Output", L"Error"}) {
        if (!Chance(25)) continue;
        std::wstring name = OneOf({L"file.txt", L"file_%yyyy%.txt", L"%TARN_PROBE%.txt",
                                   L"file%.txt", L"file%'a '%'yyyy''x'%gg.txt"});
        if (Chance(50)) name = app.Path(L"logs\\deep\\") + name;
        SetApplicationKey(std::wstring(stream) + L" File", name);
        if (Chance(50)) {
            SetApplicationKey(std::wstring(stream) + L" Append", OneOf({L"yes", L"Yes", L"no"}));
        }
    }
}

void GeneratedLaunch::GenerateSplash() {
    if (!Chance(25)) return;
    SetInFile(L"Display", L"Splash Screen",
              Chance(60) ? GetPaths().pictures + L"\\dot.png" : L"missing.png");
    if (Chance(30)) SetInFile(L"Display", L"Splash Screen Shadow", OneOf({L"true", L"True"}));
    if (!Chance(50)) return;
    SetInFile(L"Display", L"Preffer Native Splash Screen", OneOf({L"YES", L"Yes", L"true"}));
    if (Chance(30)) return;
    const std::wstring from = GetPaths().fakeSplashes + L'\\';
    const std::wstring variant = OneOf({L"full", L"full", L"without_init", L"without_close"});
    app.AddFile(L"jre\\bin\\java.dll", ReadFileBytes(from + L"java.dll"));
    app.AddFile(L"jre\\bin\\splashscreen.dll",
                ReadFileBytes(from + variant + L"\\splashscreen.dll"));
    notes_ += "splash library " + ToUtf8(variant) + '\n';
}

void GeneratedLaunch::GenerateInstance() {
    if (!Chance(20)) return;
    SetApplicationKey(L"Single Instance", OneOf({L"yes", L"yes", L"yes", L"Yes"}));
    if (!Chance(60)) return;
    // This process plays the first instance; the call creates this thread's message queue.
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
    block_.emplace(InstanceBlock::Create(app.Executable()));
    const DWORD noProcess = 0x7FFFFFF0;
    const bool listens = !Chance(20);
    const bool runs = !Chance(20);
    block_->SetNumber(InstanceBlock::kListenerThread, listens      ? GetCurrentThreadId()
                                                      : Chance(50) ? 0
                                                                   : noProcess);
    block_->SetNumber(InstanceBlock::kProcess, runs ? GetCurrentProcessId() : noProcess);
    block_->SetNumber(InstanceBlock::kMessage, kHandOff);
    if (Chance(20)) argumentText = Repeated(L"x", 515 + RandomBelow(8));
    notes_ += std::string("a first instance that ") + (listens ? "listens" : "does not listen") +
              (runs ? "\n" : ", without a process\n");
}

void GeneratedLaunch::WriteAll() {
    app.WriteScript(script_);
    app.WriteSettings(file_);
    if (hasBuiltIn_) {
        EXPECT_TRUE(BuildInSettings(app.Executable(), ToUtf8(builtIn_.Text())));
    }
}

}  // namespace tarn::test
