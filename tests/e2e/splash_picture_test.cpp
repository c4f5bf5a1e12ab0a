// The contents of the splash: pixels on the screen, and files that are not pictures.

#include <ostream>

#include "tests/support/paths.h"
#include "tests/support/screen.h"
#include "tests/support/splash_fixture.h"
#include "tests/support/test_pictures.h"

namespace tarn::test {
namespace {

// A picture and the part of it that has to be on the screen.
struct Shown {
    const wchar_t* file;
    SIZE size;
    int tolerance;  // of a lossy format
};

// For the names of the tests.
void PrintTo(const Shown& shown, std::ostream* stream) {
    for (const wchar_t* at = shown.file; *at != L'\0'; ++at) *stream << static_cast<char>(*at);
}

COLORREF Expected(const Shown& shown, int x, int y) {
    const COLORREF color = PatternAt(x, y, shown.size);
    if (std::wstring_view(shown.file) != L"alpha.png") return color;
    const int alpha[] = {255, 128, 0};
    const int part = alpha[3 * x / shown.size.cx];
    return RGB(GetRValue(color) * part / 255, GetGValue(color) * part / 255,
               GetBValue(color) * part / 255);
}

// The number of pixels in the window that differ from the picture, where it is on the screen.
int WrongPixels(const RECT& place, const Shown& shown) {
    const RECT visible = OnScreen(place);
    const ScreenShot screen(visible);
    int wrong = 0;
    for (int y = visible.top; y < visible.bottom; ++y)
        for (int x = visible.left; x < visible.right; ++x)
            if (!AlmostEqual(screen.At(x, y), Expected(shown, x - place.left, y - place.top),
                             shown.tolerance))
                ++wrong;
    return wrong;
}

void ExpectOnScreen(HWND splash, const Shown& shown) {
    const RECT place = PlaceOf(splash);
    EXPECT_EQ(place.right - place.left, shown.size.cx);
    EXPECT_EQ(place.bottom - place.top, shown.size.cy);
    // Another program's window may cover it for a while.
    int wrong = 0;
    EXPECT_TRUE(WaitUntil([&] { return (wrong = WrongPixels(place, shown)) == 0; }))
        << wrong << " pixels differ";
}

class SplashPicture : public SplashFixture, public testing::WithParamInterface<Shown> {};
INSTANTIATE_TEST_SUITE_P(
    Format, SplashPicture,
    testing::Values(Shown{L"opaque.png", kPatternSize, 0}, Shown{L"alpha.png", kPatternSize, 2},
                    Shown{L"photo.jpg", kPatternSize, 6}, Shown{L"plain.gif", kPatternSize, 0},
                    Shown{L"plain.bmp", kPatternSize, 0}, Shown{L"plain.tif", kPatternSize, 0},
                    Shown{L"dot.png", {1, 1}, 0}, Shown{L"odd.png", {101, 77}, 0}));

TEST_P(SplashPicture, IsOnTheScreenPixelByPixel) {
    ShowTestPicture(GetParam().file);
    const auto process = Start();
    ExpectOnScreen(WaitForSplash(*process), GetParam());
    EndSuccessfully(*process);
}

using SplashPictures = SplashFixture;

TEST_F(SplashPictures, OverhangTheScreenWhenTheyAreWider) {
    const SIZE size{GetSystemMetrics(SM_CXSCREEN) + 121, 300};
    ShowPicture(app.AddFile(L"wide.bmp", PatternBitmap(size)));
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    EXPECT_EQ(PlaceOf(splash).left, -60);
    ExpectOnScreen(splash, {L"wide.bmp", size, 0});
    EndSuccessfully(*process);
}

TEST_F(SplashPictures, OverhangTheScreenWhenTheyAreHigher) {
    const SIZE size{300, GetSystemMetrics(SM_CYSCREEN) + 42};
    ShowPicture(app.AddFile(L"high.bmp", PatternBitmap(size)));
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    EXPECT_EQ(PlaceOf(splash).top, -21);
    ExpectOnScreen(splash, {L"high.bmp", size, 0});
    EndSuccessfully(*process);
}

TEST_F(SplashPictures, OverhangTheScreenOnAllSidesWhenTheyAreLarger) {
    const SIZE size{GetSystemMetrics(SM_CXSCREEN) + 121, GetSystemMetrics(SM_CYSCREEN) + 42};
    ShowPicture(app.AddFile(L"large.bmp", PatternBitmap(size)));
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    const RECT place = PlaceOf(splash);
    EXPECT_EQ(place.left, -60);
    EXPECT_EQ(place.top, -21);
    EXPECT_EQ(place.right - place.left, size.cx);
    EXPECT_EQ(place.bottom - place.top, size.cy);
    const Shown shown{L"large.bmp", size, 0};
    // Wine 10 treats a window that covers the whole screen as a full-screen one: it reports the
    // window where it was created, and draws it from the corner of the screen.
    const RECT onWine10{0, 0, size.cx, size.cy};
    EXPECT_TRUE(WaitUntil([&] {
        return WrongPixels(place, shown) == 0 || (IsWine() && WrongPixels(onWine10, shown) == 0);
    })) << WrongPixels(place, shown)
        << " pixels differ";
    EndSuccessfully(*process);
}

TEST_F(SplashPictures, AreRepaintedAfterBeingCovered) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    const HWND splash = WaitForSplash(*process);
    const Shown shown{L"opaque.png", kPatternSize, 0};
    ExpectOnScreen(splash, shown);
    const RECT place = PlaceOf(splash);
    {
        const CoveringWindow cover(place);
        EXPECT_TRUE(WaitUntil([&] {
            cover.PumpMessages();
            return ScreenShot(place).At(place.left + 5, place.top + 5) == CoveringWindow::kColor;
        }));
    }
    ExpectOnScreen(splash, shown);
    EndSuccessfully(*process);
}

TEST_F(SplashPictures, AreFoundRelativeToTheWorkingDirectory) {
    app.AddFile(L"art\\picture.bmp", PatternBitmap(kPatternSize));
    settings.Application(L"Override WorkingDir", L"Yes");
    ShowPicture(L"art\\picture.bmp");
    const auto process = Start();
    ExpectOnScreen(WaitForSplash(*process), {L"picture.bmp", kPatternSize, 0});
    EndSuccessfully(*process);
}

TEST_F(SplashPictures, HaveLiteralNames) {
    app.environment[L"TARN_ART"] = L"somewhere else";
    ShowPicture(app.AddFile(L"100%TARN_ART%.bmp", PatternBitmap(kPatternSize)));
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EndSuccessfully(*process);
}

// A setting that shows nothing; {} is replaced by the application's folder.
class NoPicture : public SplashFixture, public testing::WithParamInterface<const wchar_t*> {
  protected:
    NoPicture() {
        app.AddFile(L"empty.png");
        app.AddFile(L"corrupt.png", "\x89PNG\r\n\x1A\nthis is not the rest of a picture");
        app.AddFile(L"text.jpg", "no picture at all");
    }
};
INSTANTIATE_TEST_SUITE_P(Name, NoPicture,
                         testing::Values(L"{}missing.png", L"{}empty.png", L"{}corrupt.png",
                                         L"{}text.jpg", L"{}", L"NUL", L"CON",
                                         L"\\\\.\\PhysicalDrive77", L"?*<>|",
                                         L"\\\\192.0.2.1\\share\\picture.png",
                                         L"http://192.0.2.1/picture.png", L"{}sample.exe"));

TEST_P(NoPicture, ShowsNothingAndTheLaunchContinues) {
    std::wstring path = GetParam();
    if (path.starts_with(L"{}")) path.replace(0, 2, app.folder());
    ShowPicture(path);
    const auto process = Start();
    EXPECT_TRUE(MainRuns());
    // The window exists, with a size of 0 x 0.
    EXPECT_TRUE(WaitUntil([&] { return SplashesOf(*process) == 1; }));
    for (HWND splash : WindowsOf(process->id(), kSplashClass)) {
        const RECT place = PlaceOf(splash);
        EXPECT_EQ(place.left, GetSystemMetrics(SM_CXSCREEN) / 2);
        EXPECT_EQ(place.top, GetSystemMetrics(SM_CYSCREEN) / 2);
        EXPECT_EQ(place.right, place.left);
        EXPECT_EQ(place.bottom, place.top);
    }
    EXPECT_TRUE(WindowsOf(process->id(), L"#32770").empty()) << "a message";
    EndSuccessfully(*process);
}

TEST_F(SplashPictures, MayHavePathsOfAnyLength) {
    for (const std::size_t length : {std::size_t{254}, std::size_t{255}, std::size_t{256},
                                     std::size_t{300}, std::size_t{5'000}}) {
        ShowPicture(std::wstring(length - 4, L'p') + L".png");
        EXPECT_EQ((LetMainEnd(), Run()), 0) << length;
    }
}

TEST_F(SplashPictures, OfAHundredMegapixelsDoNotDelayTheLaunch) {
    const SIZE size{10'000, 10'000};
    std::string bytes = BlackBitmapHeader(size);
    bytes.append(static_cast<std::size_t>(PixelBytes(size)), '\0');
    ShowPicture(app.AddFile(L"hundred.bmp", bytes));
    const auto process = Start();
    EXPECT_TRUE(MainRuns());
    EndSuccessfully(*process);
}

TEST_F(SplashPictures, OfImpossibleSizeDoNotDelayTheLaunch) {
    ShowPicture(app.AddFile(L"impossible.bmp", BlackBitmapHeader({2'000'000'000, 2'000'000'000})));
    const auto process = Start();
    EXPECT_TRUE(MainRuns());
    EndSuccessfully(*process);
}

TEST_F(SplashPictures, InHugeFilesDoNotDelayTheLaunch) {
    const std::wstring path = app.AddFile(L"huge.png", "\x89PNG\r\n\x1A\n");
    {
        const UniqueFile file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        LARGE_INTEGER size;
        size.QuadPart = std::int64_t{6} << 30;
        ASSERT_TRUE(SetFilePointerEx(file.get(), size, nullptr, FILE_BEGIN));
        ASSERT_TRUE(SetEndOfFile(file.get()));
    }
    ShowPicture(path);
    const auto process = Start();
    EXPECT_TRUE(MainRuns());
    EndSuccessfully(*process);
}

}  // namespace
}  // namespace tarn::test
