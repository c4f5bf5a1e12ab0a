// A real runtime that is shipped with the application.

#include "base/windows.h"
#include "tests/support/real_runtime_test.h"

namespace tarn::test {
namespace {

// Links instead of copies where the file system has them: a runtime is 100 MB.
void PutRuntime(const std::wstring& from, const std::wstring& to) {
    CreateDirectoryW(to.c_str(), nullptr);
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileW((from + L"\\*").c_str(), &found));
    for (BOOL more = search ? TRUE : FALSE; more; more = FindNextFileW(search.get(), &found)) {
        const std::wstring name = found.cFileName;
        if (name == L"." || name == L"..") continue;
        const std::wstring source = from + L'\\' + name;
        const std::wstring target = to + L'\\' + name;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            PutRuntime(source, target);
        } else if (!CreateHardLinkW(target.c_str(), source.c_str(), nullptr)) {
            ASSERT_TRUE(CopyFileW(source.c_str(), target.c_str(), FALSE)) << ToUtf8(target);
        }
    }
}

class ShippedRuntime : public RealRuntimeTest {};

TEST_F(ShippedRuntime, InJre64BesideTheApplicationNeedsNoSetting) {
    PutRuntime(RuntimeHome("17"), app.Path(L"jre64"));
    ASSERT_EQ(Run(L"do:facts do:exit:9"), 9);
    EXPECT_EQ(Report().One("environment:TARN_JVM_HOME"), app.Path(L"jre64"));
    EXPECT_EQ(Report().One("javaHome"), app.Path(L"jre64"));
}

TEST_F(ShippedRuntime, WhoseBinFolderHoldsTheApplicationsFolderIsTaken) {
    PutRuntime(RuntimeHome("21"), app.folder().substr(0, app.folder().size() - 1));
    ASSERT_EQ(Run(L"do:facts do:exit:9"), 9);
    EXPECT_EQ(Report().One("environment:TARN_JVM_PATH"), app.Path(L"bin\\server\\jvm.dll"));
}

TEST_F(ShippedRuntime, GivesWayToTheConfiguredOne) {
    PutRuntime(RuntimeHome("17"), app.Path(L"jre64"));
    UseRuntime("25");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_EQ(Report().One("environment:TARN_JVM_HOME"), home);
}

}  // namespace
}  // namespace tarn::test
