#include "tests/support/real_runtime_fixture.h"

#include "base/handles.h"
#include "tests/support/paths.h"

namespace tarn::test {

namespace {

bool Exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

std::wstring RuntimeHome(std::string_view version) {
    std::wstring home = GetPaths().runtimes + L'\\' + FromUtf8(version);
    EXPECT_TRUE(Exists(home + L"\\bin\\server\\jvm.dll"))
        << "no Java runtime " << ToUtf8(home) << " (scripts/fetch_runtimes.py fetches it, "
        << "TARN_RUNTIMES names the folder of all)";
    return home;
}

// Hard links where the file system has them: a runtime has 100 MB.
void InstallRuntime(const std::wstring& from, const std::wstring& to) {
    CreateDirectoryW(to.c_str(), nullptr);
    WIN32_FIND_DATAW found{};
    const UniqueFindHandle search(FindFirstFileW((from + L"\\*").c_str(), &found));
    for (BOOL more = search ? TRUE : FALSE; more; more = FindNextFileW(search.get(), &found)) {
        const std::wstring name = found.cFileName;
        if (name == L"." || name == L"..") continue;
        const std::wstring source = from + L'\\' + name;
        const std::wstring target = to + L'\\' + name;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            InstallRuntime(source, target);
        } else if (!CreateHardLinkW(target.c_str(), source.c_str(), nullptr)) {
            ASSERT_TRUE(CopyFileW(source.c_str(), target.c_str(), FALSE)) << ToUtf8(target);
        }
    }
}

RealRuntimeFixture::RealRuntimeFixture() : reportFile_(app.directory + L"report.txt") {
    settings.Runtime(L"Main Class", L"fixture.Application");
    settings.Set(L"Class Path", L"Class Path", GetPaths().javaFixtures);
    app.environment[L"TARN_TEST_REPORT"] = reportFile_;
    // Options from the environment would appear in the tests of options.
    app.environment[L"JAVA_TOOL_OPTIONS"] = std::nullopt;
    app.environment[L"_JAVA_OPTIONS"] = std::nullopt;
    app.environment[L"JDK_JAVA_OPTIONS"] = std::nullopt;
}

void RealRuntimeFixture::UseRuntime(std::string_view version) {
    home = RuntimeHome(version);
    jvmPath = home + L"\\bin\\client\\jvm.dll";
    if (!Exists(jvmPath)) jvmPath = home + L"\\bin\\server\\jvm.dll";
    settings.Runtime(L"JRE Path", home);
}

std::unique_ptr<LaunchedProcess> RealRuntimeFixture::Start(std::wstring_view argumentText) {
    app.WriteSettings(settings);
    DeleteFileW(reportFile_.c_str());
    return app.Launch(argumentText);
}

std::optional<std::int32_t> RealRuntimeFixture::Run(std::wstring_view argumentText) {
    return Start(argumentText)->ExitCode();
}

}  // namespace tarn::test
