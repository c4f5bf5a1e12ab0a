// Launches on another desktop or window station than the user's, as those of scheduled tasks, of
// programs that guard the screen and of remote control are.

#include <thread>

#include "tests/support/paths.h"
#include "tests/support/single_instance_fixture.h"
#include "tests/support/splash_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;

/// The name of a window station or desktop.
std::wstring NameOf(HANDLE object) {
    wchar_t name[256] = L"";
    EXPECT_TRUE(GetUserObjectInformationW(object, UOI_NAME, name, sizeof name, nullptr));
    return name;
}

/// A window station of its own, and the desktop in it, or a desktop in the test's window station.
class OtherDesktop {
  public:
    explicit OtherDesktop(bool hasOwnStation) {
        HWINSTA const usual = GetProcessWindowStation();
        const std::wstring suffix = std::to_wstring(GetCurrentProcessId());
        if (hasOwnStation) {
            station_ = CreateWindowStationW((L"TarnStation" + suffix).c_str(), 0, WINSTA_ALL_ACCESS,
                                            nullptr);
            EXPECT_NE(station_, nullptr) << GetLastError();
            SetProcessWindowStation(station_);
        }
        // In the process's window station.
        desktop_ = CreateDesktopW((L"TarnDesktop" + suffix).c_str(), nullptr, nullptr, 0,
                                  GENERIC_ALL, nullptr);
        EXPECT_NE(desktop_, nullptr) << GetLastError();
        SetProcessWindowStation(usual);
        path_ = NameOf(hasOwnStation ? station_ : usual) + L'\\';
    }
    ~OtherDesktop() {
        CloseDesktop(desktop_);
        if (station_ != nullptr) CloseWindowStation(station_);
    }
    OtherDesktop(const OtherDesktop&) = delete;
    OtherDesktop& operator=(const OtherDesktop&) = delete;

    /// For STARTUPINFO.
    std::wstring Path() const { return path_ + NameOf(desktop_); }
    std::wstring PathOfMissingDesktop() const { return path_ + L"TarnNoDesktop"; }

    /// Runs the function in a thread of the desktop, which sees the windows there.
    template <typename Function>
    void Run(Function function) const {
        // A handle for this thread alone: Wine closes it when the thread ends.
        HDESK const desktop = OpenDesktopW(NameOf(desktop_).c_str(), 0, FALSE, GENERIC_ALL);
        std::thread([&] {
            EXPECT_TRUE(SetThreadDesktop(desktop)) << GetLastError();
            function();
        }).join();
        if (!IsWine()) CloseDesktop(desktop);
    }

  private:
    HWINSTA station_ = nullptr;
    HDESK desktop_ = nullptr;
    std::wstring path_;
};

using LaunchOnAnotherDesktop = SplashFixture;

TEST_F(LaunchOnAnotherDesktop, ShowsItsSplashThere) {
    const OtherDesktop other(false);
    app.desktop = other.Path();
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const auto splashesThere = [&] {
        std::size_t splashes = 0;
        other.Run([&] { splashes = SplashesOf(*process); });
        return splashes;
    };
    // The splash has a thread of its own, which Wine 8 leaves on the parent's desktop.
    EXPECT_TRUE(
        WaitUntil([&] { return splashesThere() == 1 || (IsWine() && SplashesOf(*process) == 1); }));
    EXPECT_TRUE(IsWine() || SplashesOf(*process) == 0);
    EXPECT_TRUE(MainRuns());
    EndSuccessfully(*process);
}

TEST_F(LaunchOnAnotherDesktop, ShowsItsErrorBoxThere) {
    const OtherDesktop other(false);
    app.desktop = other.Path();
    settings.Runtime(L"Main Class", L"");
    const auto process = Start();
    other.Run([&] {
        EXPECT_EQ(ToUtf8(CloseErrorBox(*process)), "Main class was not specified in INI file.");
    });
    EXPECT_EQ(process->ExitCode(), -1);
}

class LaunchInAnotherStation : public SplashFixture {};

TEST_F(LaunchInAnotherStation, RunsMain) {
    const OtherDesktop other(true);
    app.desktop = other.Path();
    ShowTestPicture(L"opaque.png");
    const auto process = Start(L"a \"b c\"");
    EXPECT_TRUE(MainRuns());
    EXPECT_EQ(MainArguments(), R"(["a", "b c"])");
    EndSuccessfully(*process);
}

// Windows starts no program that uses windows there; Wine does, without a desktop.
TEST_F(LaunchInAnotherStation, WithoutADesktopEnds) {
    constexpr auto kInitializationFailed = static_cast<std::int32_t>(0xC0000142);
    const OtherDesktop other(true);
    app.desktop = other.PathOfMissingDesktop();
    ShowTestPicture(L"opaque.png");
    LetMainEnd();
    EXPECT_EQ(Run(), IsWine() ? 0 : kInitializationFailed);
}

class InstanceOnAnotherDesktop : public SingleInstanceFixture {
  protected:
    static bool ExistsInEverySession(const std::wstring& name) {
        return static_cast<bool>(
            UniqueHandle(OpenFileMappingW(FILE_MAP_READ, FALSE, (L"Global\\" + name).c_str())));
    }
};

TEST_F(InstanceOnAnotherDesktop, IsServedByTheFirst) {
    const OtherDesktop other(false);
    const auto first = StartFirst();
    app.desktop = other.Path();
    EXPECT_EQ(Second(L"from there"), 0);
    EXPECT_THAT(SecondaryCalls(), ElementsAre(R"(["from", "there"])"));
    EndFirst(*first);
}

// Each session of a user has a first instance of its own. In session 0, that of services, the names
// of the session are those of all sessions.
TEST_F(InstanceOnAnotherDesktop, OfAnotherSessionIsNotSeen) {
    const auto first = StartFirst();
    DWORD session = 0;
    EXPECT_TRUE(ProcessIdToSessionId(first->id(), &session));
    EXPECT_TRUE(InstanceBlock::Open(app.Executable()));
    EXPECT_EQ(ExistsInEverySession(InstanceNameOf(app.Executable())), session == 0);
    EndFirst(*first);
}

}  // namespace
}  // namespace tarn::test
