#include "ui/splash/splash_image.h"

#include <gtest/gtest.h>

#include "tests/unit_support/picture_fixture.h"

namespace tarn {
namespace {

COLORREF PixelOf(const UniqueBitmap& bitmap, int x, int y) {
    const UniqueMemoryDc context(CreateCompatibleDC(nullptr));
    const GdiSelection selection(context.get(), bitmap.get());
    return GetPixel(context.get(), x, y);
}

PixelSize SizeOf(const UniqueBitmap& bitmap) {
    BITMAP size{};
    GetObjectW(bitmap.get(), sizeof(size), &size);
    return {size.bmWidth, size.bmHeight};
}

class PictureTest : public testing::Test {
  protected:
    PictureFixture picture_;
    UniqueGpImage image_ = DecodeImage(picture_.path());
};

TEST_F(PictureTest, IsRenderedPixelByPixel) {
    const UniqueBitmap bitmap = RenderForScreen({.image = image_.get()});
    EXPECT_EQ(SizeOf(bitmap).width, PictureFixture::kWidth);
    EXPECT_EQ(SizeOf(bitmap).height, PictureFixture::kHeight);
    for (int y = 0; y < PictureFixture::kHeight; ++y)
        for (int x = 0; x < PictureFixture::kWidth; ++x)
            EXPECT_EQ(PixelOf(bitmap, x, y), PictureFixture::PixelAt(x, y)) << x << "," << y;
}

TEST_F(PictureTest, CanBeDrawnInPart) {
    const UniqueBitmap bitmap = RenderForScreen({.image = image_.get(), .source = {1, 1, 4, 3}});
    EXPECT_EQ(SizeOf(bitmap).width, 3);
    EXPECT_EQ(SizeOf(bitmap).height, 2);
    EXPECT_EQ(PixelOf(bitmap, 0, 0), PictureFixture::PixelAt(1, 1));
    EXPECT_EQ(PixelOf(bitmap, 2, 1), PictureFixture::PixelAt(3, 2));
}

TEST_F(PictureTest, OmitsTheKeyColorOnly) {
    const COLORREF key = PictureFixture::PixelAt(2, 1);
    const UniqueBitmap bitmap = RenderForScreen({.image = image_.get(), .colorKey = &key});
    EXPECT_EQ(PixelOf(bitmap, 2, 1), RGB(0, 0, 0));
    EXPECT_EQ(PixelOf(bitmap, 1, 1), PictureFixture::PixelAt(1, 1));
}

TEST(DecodeImageTest, ReturnsNullForAnInvalidPicture) {
    for (const wchar_t* path : {L"", L"Z:\\no\\such\\picture.png", L"C:\\windows", L"NUL",
                                L"C:\\windows\\system32\\gdiplus.dll"}) {
        const UniqueGpImage image = DecodeImage(path);
        EXPECT_FALSE(image) << path;
        const PixelSize size = ImageSize(image.get());
        EXPECT_EQ(size.width, 0) << path;
        EXPECT_EQ(size.height, 0) << path;
    }
}

TEST(GdiPlusTest, ComesFromTheSystemFolderAndOnlyOnce) {
    const GdiPlus* const gdiPlus = GetGdiPlus();
    ASSERT_NE(gdiPlus, nullptr);
    EXPECT_EQ(GetGdiPlus(), gdiPlus);
    wchar_t systemFolder[MAX_PATH];
    const UINT length = GetSystemDirectoryW(systemFolder, MAX_PATH);
    wchar_t library[MAX_PATH];
    GetModuleFileNameW(GetModuleHandleW(L"gdiplus.dll"), library, MAX_PATH);
    EXPECT_EQ(_wcsnicmp(library, systemFolder, length), 0);
}

}  // namespace
}  // namespace tarn
