// The order of the sources of a runtime: settings, own folder, registry.

#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {
namespace {

class RuntimeSource : public RegisteredRuntimesFixture {
  protected:
    RuntimeSource() { Add(kJdkRoot, L"17", L"registered"); }

    static constexpr const char* kRegistered = "registered\\bin\\server\\jvm.dll";
};

TEST_F(RuntimeSource, SettingsPrecedeOthersWhateverTheVersion) {
    app.AddRuntime(L"mine", kFullJvm, L"bin\\client");
    app.AddRuntime(L"jre64");
    app.AddFile(L"jre64\\bin\\java.dll");
    settings.Runtime(L"JRE Path", app.Path(L"mine")).Runtime(L"Maximum Version", L"");
    EXPECT_EQ(Chosen(), "mine\\bin\\client\\jvm.dll");
    settings.Runtime(L"JRE Path", app.Path(L"mine\\"));
    EXPECT_EQ(Chosen(), "mine\\bin\\client\\jvm.dll");
    // The runtime exists, but not with the required JVM.
    settings.Runtime(L"JVM Type", L"server");
    EXPECT_EQ(Chosen(), "jre64\\bin\\server\\jvm.dll");
}

TEST_F(RuntimeSource, SettingsThatNameNoRuntimeAreSkipped) {
    app.AddFolder(L"empty");
    settings.Runtime(L"JRE Path", app.Path(L"empty"));
    EXPECT_EQ(Chosen(), kRegistered);
    app.environment[L"TARN_TEST_HOME"] = app.AddRuntime(L"mine");
    settings.Runtime(L"JRE Path", L"%TARN_TEST_HOME%");
    EXPECT_EQ(Chosen(), kRegistered);
}

TEST_F(RuntimeSource, SettingsMayBeRelativeToTheCurrentDirectory) {
    app.AddRuntime(L"mine");
    app.directory = app.folder();
    settings.Runtime(L"JRE Path", L"mine");
    EXPECT_EQ(Chosen(), "mine\\bin\\server\\jvm.dll");
    app.directory = app.Path(L"..");
    EXPECT_EQ(Chosen(), kRegistered);
    settings.Application(L"Override WorkingDir", L"Yes");
    EXPECT_EQ(Chosen(), "mine\\bin\\server\\jvm.dll");
}

TEST_F(RuntimeSource, AShippedRuntimePrecedesTheRegistry) {
    app.AddRuntime(L"jre64", kFullJvm, L"bin\\client");
    // java.dll makes it a runtime.
    EXPECT_EQ(Chosen(), kRegistered);
    app.AddFile(L"jre64\\bin\\java.dll");
    settings.Runtime(L"Minimum Version", L"21");
    EXPECT_EQ(Chosen(), "jre64\\bin\\client\\jvm.dll");
}

TEST_F(RuntimeSource, TheLaunchersFolderPrecedesJre64) {
    app.AddRuntime(L"jre64");
    app.AddFile(L"jre64\\bin\\java.dll");
    app.AddRuntime(L".", kFullJvm, L"bin\\hotspot");
    app.AddFile(L"bin\\java.dll");
    EXPECT_EQ(Chosen(), "bin\\hotspot\\jvm.dll");
    // This runtime or none.
    settings.Runtime(L"JVM Type", L"server");
    EXPECT_EQ(Chosen(), kRegistered);
}

TEST_F(RuntimeSource, WithoutAShippedRuntimeTheCurrentDirectoryPrecedesTheRegistry) {
    app.AddRuntime(L"elsewhere", kFullJvm, L"bin\\client");
    app.directory = app.Path(L"elsewhere");
    // The path stays relative.
    EXPECT_EQ(Chosen(), "bin\\client\\jvm.dll");
    EXPECT_EQ(app.Log().After("environment TARN_JVM_PATH="), TextInLog(L"bin\\client\\jvm.dll"));
    app.AddFile(L"jre64\\bin\\java.dll");
    // A shipped runtime without a JVM hides the current directory.
    EXPECT_EQ(Chosen(), kRegistered);
}

}  // namespace
}  // namespace tarn::test
