// The dialog "JRE Not Found": its contents and its end.

#include <algorithm>
#include <cstdlib>

#include "tests/support/jre_not_found_fixture.h"

namespace tarn::test {
namespace {

struct DialogUnits {
    int x, y, width, height;
};

struct ExpectedControl {
    int id;
    const wchar_t* windowClass;
    std::wstring text;
    DialogUnits place;
};

// A dialog unit is a fraction of the font's average size, which the client area reveals.
RECT ToPixels(HWND dialog, const DialogUnits& units) {
    RECT client{};
    GetClientRect(dialog, &client);
    const int baseX = MulDiv(client.right, 4, 219);
    const int baseY = MulDiv(client.bottom, 8, 145);
    return {MulDiv(units.x, baseX, 4), MulDiv(units.y, baseY, 8),
            MulDiv(units.x + units.width, baseX, 4), MulDiv(units.y + units.height, baseY, 8)};
}

RECT PlaceIn(HWND dialog, HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

bool AreClose(const RECT& a, const RECT& b) {
    // Rounding the size or the edge gives a difference of a pixel.
    return std::abs(a.left - b.left) <= 1 && std::abs(a.top - b.top) <= 1 &&
           std::abs(a.right - b.right) <= 1 && std::abs(a.bottom - b.bottom) <= 1;
}

const wchar_t kAnyVersionMessage[] =
    L"The Java Runtime Environment (JRE) was not found. Please  download and install a JRE "
    L"(latest version) from:";

class JreNotFoundDialog : public JreNotFoundFixture {
  protected:
    LONG_PTR StyleOf(int id) const { return GetWindowLongPtrW(Child(dialog, id), GWL_STYLE); }

    std::wstring MessageWith(const std::wstring& minimum, const std::wstring& maximum,
                             const std::wstring& type = {}) {
        settings.Runtime(L"Minimum Version", minimum).Runtime(L"Maximum Version", maximum);
        settings.Runtime(L"JVM Type", type);
        StartUntilDialog();
        const std::wstring text = WindowText(Child(dialog, kMessage));
        PressButton(dialog, kCancel);
        EXPECT_EQ(End(), -1);
        return text;
    }
};

TEST_F(JreNotFoundDialog, HasItsControlsInOrderWithTextsAndPlaces) {
    settings.Runtime(L"Minimum Version", L"any");
    StartUntilDialog();
    const std::wstring link = WindowText(Child(dialog, kLink));
    EXPECT_EQ(link.substr(0, 8), L"https://");
    const ExpectedControl expected[] = {
        {kOk, L"Button", L"OK", {107, 122, 50, 14}},
        {kCancel, L"Button", L"Cancel", {161, 122, 50, 14}},
        {kPathEdit, L"Edit", L"", {60, 89, 94, 14}},
        {-1, L"Static", L"JRE Path:", {12, 92, 45, 8}},
        {kBrowse, L"Button", L"Browse...", {157, 89, 50, 14}},
        {-1, L"Button", L"Missing JRE", {8, 11, 203, 103}},
        {kErrorIcon, L"Static", L"", {16, 24, 20, 20}},
        {kMessage, L"Static", kAnyVersionMessage, {42, 24, 149, 24}},
        {kLink, L"Static", link, {44, 55, 75, 8}},
        {kHint,
         L"Static",
         L"If you have a JRE installed you can browse for it below:",
         {12, 73, 195, 8}},
    };
    const std::vector<HWND> children = Children(dialog);
    ASSERT_EQ(children.size(), std::size(expected));
    for (std::size_t i = 0; i < children.size(); ++i) {
        SCOPED_TRACE(ToUtf8(expected[i].text) + " " + std::to_string(i));
        // A control without an id has -1, of which a window may keep 16 bits.
        EXPECT_EQ(static_cast<short>(GetDlgCtrlID(children[i])), expected[i].id);
        EXPECT_EQ(WindowClass(children[i]), expected[i].windowClass);
        EXPECT_EQ(WindowText(children[i]), expected[i].text);
        EXPECT_TRUE(IsWindowVisible(children[i]));
        EXPECT_EQ(IsWindowEnabled(children[i]) != FALSE, expected[i].id != kOk);
        EXPECT_TRUE(AreClose(PlaceIn(dialog, children[i]), ToPixels(dialog, expected[i].place)));
    }
}

TEST_F(JreNotFoundDialog, ItsControlsHaveTheirClassesAndStyles) {
    StartUntilDialog();
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_STYLE));
    const DWORD wanted = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    EXPECT_EQ(style & wanted, wanted);
    EXPECT_EQ(style & (WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX), 0u);
    EXPECT_EQ(LOWORD(SendMessageW(dialog, DM_GETDEFID, 0, 0)), kOk);
    EXPECT_EQ(StyleOf(kPathEdit) & (ES_READONLY | ES_AUTOHSCROLL | ES_MULTILINE),
              ES_READONLY | ES_AUTOHSCROLL);
    EXPECT_EQ(StyleOf(kErrorIcon) & SS_TYPEMASK, SS_ICON);
    EXPECT_NE(SendMessageW(Child(dialog, kErrorIcon), STM_GETICON, 0, 0), 0);
    EXPECT_EQ(StyleOf(kMessage) & SS_TYPEMASK, SS_LEFT);
    EXPECT_NE(StyleOf(kLink) & SS_NOTIFY, 0);
    EXPECT_EQ(SendMessageW(Child(dialog, kLink), WM_GETDLGCODE, 0, 0), DLGC_WANTCHARS);
}

TEST_F(JreNotFoundDialog, IsCenteredInTheWorkAreaAndHasNoOwner) {
    StartUntilDialog();
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), nullptr);
    RECT place{};
    GetWindowRect(dialog, &place);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ASSERT_TRUE(GetMonitorInfoW(MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor));
    EXPECT_NEAR(place.left - monitor.rcWork.left, monitor.rcWork.right - place.right, 1);
    EXPECT_NEAR(place.top - monitor.rcWork.top, monitor.rcWork.bottom - place.bottom, 1);
}

TEST_F(JreNotFoundDialog, ItsMessageNamesTheVersions) {
    const std::wstring start =
        L"The Java Runtime Environment (JRE) was not found. Please  download and install a JRE ";
    EXPECT_EQ(MessageWith(L"1.8", L"any"), start + L"(minimum version 1.8) from:");
    EXPECT_EQ(MessageWith(L"1.6", L"1.8"), start + L"(version between 1.6 and 1.8) from:");
    EXPECT_EQ(MessageWith(L"any", L"17", L"server"),
              start + L"with a server JVM (maximum version 17.65535) from:");
}

TEST_F(JreNotFoundDialog, OnlyAServerJvmThatIsRequiredIsMentioned) {
    EXPECT_EQ(MessageWith(L"any", L"any", L"favor_server"), kAnyVersionMessage);
    EXPECT_EQ(MessageWith(L"any", L"any", L"server"),
              L"The Java Runtime Environment (JRE) was not found. Please  download and install a "
              L"JRE with a server JVM (latest version) from:");
}

TEST_F(JreNotFoundDialog, AMessageOfFourLinesIsNotTruncated) {
    settings.Runtime(L"Minimum Version", L"1.6").Runtime(L"Maximum Version", L"1.8");
    settings.Runtime(L"JVM Type", L"server");
    StartUntilDialog();
    const RECT message = PlaceIn(dialog, Child(dialog, kMessage));
    const RECT line = PlaceIn(dialog, Child(dialog, kHint));  // as high as one line
    const RECT link = PlaceIn(dialog, Child(dialog, kLink));
    EXPECT_GE(message.bottom - message.top, 4 * (line.bottom - line.top));
    EXPECT_LE(message.bottom, link.top);
    EXPECT_GE(message.top, ToPixels(dialog, {0, 19, 0, 0}).top);
    PressButton(dialog, kCancel);
    EXPECT_EQ(End(), -1);
}

TEST_F(JreNotFoundDialog, CancelEndsTheLaunchAndWritesNothing) {
    StartUntilDialog();
    PressButton(dialog, kCancel);
    EXPECT_EQ(End(), -1);
    EXPECT_EQ(GetFileAttributesW(PerUserFile().c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_THAT(app.Log().Lines(), testing::IsEmpty());
}

TEST_F(JreNotFoundDialog, ItsCloseBoxEndsTheLaunch) {
    StartUntilDialog();
    PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(End(), -1);
}

TEST_F(JreNotFoundDialog, EscapeEndsTheLaunch) {
    StartUntilDialog();
    PostMessageW(Child(dialog, kCancel), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(End(), -1);
}

TEST_F(JreNotFoundDialog, EnterDoesNotConfirmWhileOkIsDisabled) {
    StartUntilDialog();
    // When no button has the focus, Enter presses the default button.
    PostMessageW(Child(dialog, kPathEdit), WM_KEYDOWN, VK_RETURN, 0);
    SendMessageW(dialog, WM_NULL, 0, 0);
    PressButton(dialog, kCancel);
    EXPECT_EQ(End(), -1);
    EXPECT_EQ(GetFileAttributesW(PerUserFile().c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(JreNotFoundDialog, ACancelledDialogOfAServiceDoesNotChangeItsSettings) {
    settings.Application(L"Application Type", L"service");
    StartUntilDialog();
    const std::string before = ReadFileBytes(app.SettingsFile());
    PressButton(dialog, kCancel);
    EXPECT_EQ(End(), -1);
    EXPECT_EQ(ReadFileBytes(app.SettingsFile()), before);
}

}  // namespace
}  // namespace tarn::test
