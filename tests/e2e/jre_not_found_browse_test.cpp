// Browsing for a runtime in the dialog: which folders are accepted, and the launch with them.

#include "tests/support/jre_not_found_fixture.h"

namespace tarn::test {
namespace {

using JreNotFoundBrowse = JreNotFoundFixture;

TEST_F(JreNotFoundBrowse, AFolderWithARuntimeEnablesOkAndIsUsed) {
    const std::wstring runtime = app.AddRuntime(L"other jre");
    app.WriteScript("main = exit 7");
    StartUntilDialog(L"one \"two words\"");
    EXPECT_FALSE(OkIsEnabled());
    BrowseTo(runtime);
    EXPECT_EQ(ShownPath(), runtime);
    EXPECT_TRUE(OkIsEnabled());
    EXPECT_EQ(Confirm(), 7);
    EXPECT_EQ(app.Log().After("environment TARN_JVM_HOME="), TextInLog(runtime));
    EXPECT_EQ(app.Log().After("CallStaticVoidMethod(com/example/Main.main([Ljava/lang/String;)V, "),
              R"x(["one", "two words"]))x");
}

TEST_F(JreNotFoundBrowse, TheNextStartFindsTheRuntimeWithoutTheDialog) {
    const std::wstring runtime = app.AddRuntime(L"other jre");
    app.WriteScript("main = exit 7");
    StartUntilDialog();
    BrowseTo(runtime);
    EXPECT_EQ(Confirm(), 7);
    EXPECT_EQ(app.Launch()->ExitCode(), 7);
}

TEST_F(JreNotFoundBrowse, TheBrowserShowsItsPurpose) {
    StartUntilDialog();
    const HWND browser = OpenBrowser();
    ASSERT_NE(browser, nullptr);
    EXPECT_EQ(GetWindow(browser, GW_OWNER), dialog);
    EXPECT_FALSE(IsWindowEnabled(dialog));
    std::vector<std::wstring> texts;
    for (const HWND each : Children(browser)) {
        if (IsWindowVisible(each)) texts.push_back(WindowText(each));
    }
    EXPECT_THAT(texts, testing::Contains(L"Browse for JRE folder"));
    // The button for a new folder is hidden.
    EXPECT_THAT(texts, testing::Not(testing::Contains(testing::HasSubstr(L"New"))));
    CloseBrowser(browser, kCancel);
    PressButton(dialog, kCancel);
    EXPECT_EQ(End(), -1);
}

TEST_F(JreNotFoundBrowse, ACancelledBrowserChangesNothing) {
    const std::wstring runtime = app.AddRuntime(L"other jre");
    app.WriteScript("main = exit 7");
    StartUntilDialog();
    HWND browser = OpenBrowser();
    Select(browser, runtime);
    CloseBrowser(browser, kCancel);
    EXPECT_EQ(ShownPath(), L"");
    EXPECT_FALSE(OkIsEnabled());

    BrowseTo(runtime);
    browser = OpenBrowser();
    Select(browser, app.AddFolder(L"empty"));
    CloseBrowser(browser, kCancel);
    EXPECT_EQ(ShownPath(), runtime);
    EXPECT_TRUE(OkIsEnabled());
    EXPECT_EQ(Confirm(), 7);
}

TEST_F(JreNotFoundBrowse, AFolderWithoutARuntimeIsShownAndLeavesOkDisabled) {
    const std::wstring empty = app.AddFolder(L"empty");
    StartUntilDialog();
    BrowseTo(empty);
    EXPECT_EQ(ShownPath(), empty);
    EXPECT_FALSE(OkIsEnabled());
    PressButton(dialog, kCancel);
    EXPECT_EQ(End(), -1);
    EXPECT_EQ(GetFileAttributesW(PerUserFile().c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(JreNotFoundBrowse, OkStaysEnabledAndTheLastFolderCounts) {
    const std::wstring runtime = app.AddRuntime(L"other jre");
    const std::wstring empty = app.AddFolder(L"empty");
    StartUntilDialog();
    BrowseTo(runtime);
    ASSERT_TRUE(OkIsEnabled());
    BrowseTo(empty);
    EXPECT_EQ(ShownPath(), empty);
    EXPECT_TRUE(OkIsEnabled());
    PressButton(dialog, kOk);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(dialog); }));
    // The library cannot be loaded, which the launch reports.
    EXPECT_THAT(CloseErrorBox(*process),
                testing::StartsWith(L"Failed to load Java VM library:  (errno = "));
    EXPECT_EQ(End(), -1);
    EXPECT_THAT(ReadFileBytes(PerUserFile()), testing::HasSubstr("\\empty\\\r\n"));
}

TEST_F(JreNotFoundBrowse, AFolderOfADevelopmentKitWithAnInnerRuntimeIsRejected) {
    app.AddRuntime(L"jdk\\jre");
    app.WriteScript("main = exit 7");
    StartUntilDialog();
    BrowseTo(app.Path(L"jdk"));
    EXPECT_FALSE(OkIsEnabled());
    BrowseTo(app.Path(L"jdk\\jre"));
    EXPECT_TRUE(OkIsEnabled());
    EXPECT_EQ(Confirm(), 7);
}

TEST_F(JreNotFoundBrowse, ARequiredServerJvmMustBeInTheFolder) {
    settings.Runtime(L"JVM Type", L"server");
    const std::wstring client = app.AddRuntime(L"client jre", kFullJvm, L"bin\\client");
    const std::wstring server = app.AddRuntime(L"server jre");
    StartUntilDialog();
    BrowseTo(client);
    EXPECT_FALSE(OkIsEnabled());
    BrowseTo(server);
    EXPECT_TRUE(OkIsEnabled());
    EXPECT_EQ(Confirm(), 0);
}

TEST_F(JreNotFoundBrowse, AClientJvmIsAcceptedOtherwise) {
    const std::wstring client = app.AddRuntime(L"client jre", kFullJvm, L"bin\\client");
    StartUntilDialog();
    BrowseTo(client);
    EXPECT_TRUE(OkIsEnabled());
    EXPECT_EQ(Confirm(), 0);
}

TEST_F(JreNotFoundBrowse, AFolderRemovedMeanwhileIsUnusable) {
    const std::wstring folder = app.AddRuntime(L"removed drive\\jre");
    StartUntilDialog();
    const HWND browser = OpenBrowser();
    Select(browser, folder);
    RemoveFolder(app.Path(L"removed drive"));
    CloseBrowser(browser, kOk);
    EXPECT_FALSE(OkIsEnabled());
    PressButton(dialog, kCancel);
    EXPECT_EQ(End(), -1);
}

TEST_F(JreNotFoundBrowse, AFolderWithoutAPathChangesNothing) {
    const std::wstring runtime = app.AddRuntime(L"other jre");
    StartUntilDialog();
    BrowseTo(runtime);
    // Some items below the desktop ("My Computer") are not in the file system. The browser disables
    // its button for them, so the test sends the button's command.
    const HWND browser = OpenBrowser();
    ASSERT_NE(browser, nullptr);
    SelectVirtualFolder(browser);
    CloseBrowser(browser, kOk);
    EXPECT_TRUE(OkIsEnabled());
    EXPECT_EQ(Confirm(), 0);
}

TEST_F(JreNotFoundBrowse, TheRootOfADriveKeepsItsSingleBackslash) {
    StartUntilDialog();
    BrowseTo(L"C:\\");
    EXPECT_EQ(ShownPath(), L"C:\\");
    PressButton(dialog, kCancel);
    EXPECT_EQ(End(), -1);
}

}  // namespace
}  // namespace tarn::test
