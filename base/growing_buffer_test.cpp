#include "base/growing_buffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tarn {
namespace {

// Reads as the profile functions do: cuts the text so that `spare` characters stay free.
struct CuttingReader {
    std::wstring text;
    std::size_t spare;
    std::vector<std::size_t>& sizes;

    std::size_t operator()(wchar_t* buffer, std::size_t size) const {
        sizes.push_back(size);
        const std::size_t length = std::min(text.size(), size - spare);
        std::copy_n(text.begin(), length, buffer);
        return length;
    }
};

std::vector<std::size_t> SizesTried(std::size_t length, std::size_t spare) {
    std::vector<std::size_t> sizes;
    const std::wstring text(length, L'x');
    EXPECT_EQ(ReadGrowing(spare, CuttingReader{text, spare, sizes}), text);
    return sizes;
}

using Sizes = std::vector<std::size_t>;

TEST(GrowingBufferTest, AShortTextTakesOneRead) {
    EXPECT_EQ(SizesTried(254, 1), Sizes({256}));
}

TEST(GrowingBufferTest, ATextThatJustFitsMayHaveBeenCutAndIsReadAgain) {
    EXPECT_EQ(SizesTried(255, 1), Sizes({256, 512}));
    EXPECT_EQ(SizesTried(254, 2), Sizes({256, 512}));
}

TEST(GrowingBufferTest, LongTextsAreReadWhole) {
    EXPECT_EQ(SizesTried(300, 1), Sizes({256, 512}));
    EXPECT_EQ(SizesTried(511, 1), Sizes({256, 512, 1024}));
    EXPECT_EQ(SizesTried(30000, 1).back(), 32768u);
}

TEST(GrowingBufferTest, AnEmptyTextIsEmpty) {
    EXPECT_EQ(SizesTried(0, 1), Sizes({256}));
}

}  // namespace
}  // namespace tarn
