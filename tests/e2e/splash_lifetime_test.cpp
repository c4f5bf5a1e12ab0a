// The time during which the splash is shown, and its effect on the launch.

#include "tests/support/splash_fixture.h"

namespace tarn::test {
namespace {

using SplashLifetime = SplashFixture;

TEST_F(SplashLifetime, BeginsWhileTheMainThreadIsBlocked) {
    NamedEvent release;
    // The entry thread calls this last before the JVM is created.
    app.WriteScript("on_default_args = wait_event " + release.utf8Name() + "\n" + WaitInMain());
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EXPECT_TRUE(app.Log().WaitFor("JNI_GetDefaultJavaVMInitArgs"));
    EXPECT_EQ(app.Log().Count("JNI_CreateJavaVM"), 0U);
    release.Set();
    EXPECT_TRUE(MainRuns());
    EndSuccessfully(*process);
}

TEST_F(SplashLifetime, LastsThroughTheCreationOfTheJvmAndMain) {
    NamedEvent release;
    app.WriteScript("on_create = wait_event " + release.utf8Name() + "\n" + WaitInMain());
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    EXPECT_TRUE(app.Log().WaitFor("JNI_CreateJavaVM"));
    release.Set();
    EXPECT_TRUE(MainRuns());
    EXPECT_TRUE(IsWindowVisible(splash));
    EndSuccessfully(*process);
    EXPECT_FALSE(IsWindow(splash));
}

TEST_F(SplashLifetime, EndsBeforeTheExceptionDialogOpens) {
    settings.Application(L"Failure Check", L"Yes");
    NamedEvent release;
    app.WriteScript("main = wait_event " + release.utf8Name() + "\nmain = throw\n");
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    release.Set();
    const HWND dialog = WaitForWindow(*process, L"#32770");
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(IsWindow(splash));
    EXPECT_EQ(SplashesOf(*process), 0U);
    PressButton(dialog, IDCANCEL);
    process->ExitCode();
}

TEST_F(SplashLifetime, EndsWithAnExceptionThatIsNotShown) {
    NamedEvent detaching;
    NamedEvent release;
    app.WriteScript("main = throw\non_detach = set_event " + detaching.utf8Name() +
                    "\non_detach = wait_event " + release.utf8Name() + "\n");
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_TRUE(detaching.Wait());
    EXPECT_EQ(SplashesOf(*process), 0U);
    release.Set();
    EXPECT_EQ(process->ExitCode(), 0);
}

TEST_F(SplashLifetime, OutlastsMainUntilTheLauncherEnds) {
    NamedEvent detaching;
    NamedEvent release;
    app.WriteScript("on_detach = set_event " + detaching.utf8Name() + "\non_detach = wait_event " +
                    release.utf8Name() + "\n");
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EXPECT_TRUE(detaching.Wait());
    EXPECT_EQ(SplashesOf(*process), 1U);
    release.Set();
    EXPECT_EQ(process->ExitCode(), 0);
}

TEST_F(SplashLifetime, DoesNotPreventSystemExit) {
    NamedEvent release;
    app.WriteScript("main = wait_event " + release.utf8Name() + "\nmain = exit 7\n");
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    release.Set();
    EXPECT_EQ(process->ExitCode(), 7);
}

TEST_F(SplashLifetime, MayBeEndedByTheApplicationItself) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    PostMessageW(splash, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(splash); }));
    EXPECT_TRUE(MainRuns());
    EndSuccessfully(*process);
}

TEST_F(SplashLifetime, LoadsGdiPlus) {
    app.WriteScript(WaitInMain() + "main = log_modules\n");
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EndSuccessfully(*process);
    EXPECT_TRUE(app.Log().Has("module \"gdiplus.dll\""));
}

TEST_F(SplashLifetime, OwnsTheErrorBoxes) {
    NamedEvent release;
    app.WriteScript("create = -1\non_create = wait_event " + release.utf8Name() + "\n");
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    release.Set();
    const auto box = WaitForMessageBox(*process);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->owner, splash);
    // The box is above: the splash follows it in the z-order.
    HWND below = box->window;
    while (below != nullptr && below != splash) below = GetWindow(below, GW_HWNDNEXT);
    EXPECT_EQ(below, splash);
    // The splash still paints while the box waits for an answer.
    DWORD_PTR answer = 0;
    EXPECT_NE(SendMessageTimeoutW(splash, WM_NULL, 0, 0, SMTO_NORMAL, 10'000, &answer), 0);
    EXPECT_TRUE(IsWindowVisible(splash));
    EXPECT_EQ(CloseErrorBox(*process, splash),
              L"JNI exception: failed to create the Java VM\nReason: unknown.\n");
    EXPECT_EQ(process->ExitCode(), -1);
}

TEST_F(SplashLifetime, WithoutASplashErrorBoxesHaveNoOwner) {
    app.WriteScript("create = -1\n");
    ShowTestPicture(L"opaque.png");
    const auto process = Start(L"-nosplash");
    CloseErrorBox(*process);
    EXPECT_EQ(process->ExitCode(), -1);
}

// A picture that is opened but cannot be read to its end, as on a share that stops responding.
class BlockedPicture {
  public:
    BlockedPicture()
        : path_(L"\\\\.\\pipe\\tarn-picture-" + std::to_wstring(GetCurrentProcessId())),
          pipe_(CreateNamedPipeW(path_.c_str(), PIPE_ACCESS_OUTBOUND | FILE_FLAG_OVERLAPPED,
                                 PIPE_TYPE_BYTE, PIPE_UNLIMITED_INSTANCES, 0, 0, 0, nullptr)),
          opened_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        overlapped_.hEvent = opened_.get();
        ConnectNamedPipe(pipe_.get(), &overlapped_);
    }

    const std::wstring& path() const { return path_; }
    bool IsOpened() const { return WaitForSingleObject(opened_.get(), 0) == WAIT_OBJECT_0; }
    void Close() { pipe_.reset(); }

  private:
    std::wstring path_;
    UniqueFile pipe_;
    UniqueHandle opened_;
    OVERLAPPED overlapped_{};
};

TEST_F(SplashLifetime, WithAnUnreadablePictureDoesNotDelayMain) {
    BlockedPicture picture;
    ShowPicture(picture.path());
    const auto process = Start();
    EXPECT_TRUE(MainRuns());
    EXPECT_TRUE(WaitUntil([&] { return picture.IsOpened(); }));
    picture.Close();
    EndSuccessfully(*process);
}

// The quit message arrives at any moment of the splash thread's start, also before the thread has a
// message queue.
TEST_F(SplashLifetime, EndsImmediatelyTwoHundredTimes) {
    ShowTestPicture(L"opaque.png");
    app.WriteScript("");
    app.WriteSettings(settings);
    for (int launch = 0; launch < 200 && !HasFailure(); ++launch)
        EXPECT_EQ(app.Launch()->ExitCode(), 0) << "launch " << launch;
}

}  // namespace
}  // namespace tarn::test
