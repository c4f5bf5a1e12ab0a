#include "runtime/pe_header.h"

#include <gtest/gtest.h>

#include <random>

#include "base/paths.h"
#include "tests/unit_support/folder_fixture.h"

namespace tarn {
namespace {

/// A file with the headers of an image only.
std::string Headers(std::uint16_t machine, std::size_t place = 64) {
    std::string bytes(place + 24, '\0');
    bytes[0] = 'M';
    bytes[1] = 'Z';
    bytes[60] = static_cast<char>(place & 0xFF);
    bytes[61] = static_cast<char>(place >> 8);
    bytes[place] = 'P';
    bytes[place + 1] = 'E';
    bytes[place + 4] = static_cast<char>(machine & 0xFF);
    bytes[place + 5] = static_cast<char>(machine >> 8);
    return bytes;
}

class PairedMachineTest : public testing::Test {
  protected:
    bool Paired(std::string_view bytes, const std::wstring& pairProduct = L"pair.exe") {
        return NeedsPairedLauncher(folder_.Write(L"jvm.dll", bytes), pairProduct);
    }

    FolderFixture folder_;
};

TEST_F(PairedMachineTest, A32BitLibraryNeedsThePairedLauncher) {
    EXPECT_TRUE(Paired(Headers(0x14C)));
    EXPECT_TRUE(Paired(Headers(0x14C, 4000)));
}

TEST_F(PairedMachineTest, OtherMachinesDoNotNeedIt) {
    constexpr std::uint16_t kOthers[] = {0x8664, 0xAA64, 0x1C0, 0x4C01, 0, 0x14D};
    for (const std::uint16_t machine : kOthers) {
        EXPECT_FALSE(Paired(Headers(machine))) << machine;
    }
    EXPECT_FALSE(NeedsPairedLauncher(*ModulePath(), L"pair.exe"));
}

TEST_F(PairedMachineTest, WithoutAPairedLauncherNoLibraryNeedsIt) {
    EXPECT_FALSE(Paired(Headers(0x14C), L""));
}

TEST_F(PairedMachineTest, UnreadableFilesDoNotNeedIt) {
    EXPECT_FALSE(NeedsPairedLauncher(folder_.path() + L"none.dll", L"pair.exe"));
    EXPECT_FALSE(NeedsPairedLauncher(folder_.path(), L"pair.exe"));
    EXPECT_FALSE(NeedsPairedLauncher(L"", L"pair.exe"));
    // Open for writing, so it cannot be shared for reading.
    const std::wstring path = folder_.Write(L"jvm.dll", Headers(0x14C));
    std::ofstream writer(std::filesystem::path(path), std::ios::binary | std::ios::app);
    ASSERT_TRUE(writer.is_open());
    EXPECT_FALSE(NeedsPairedLauncher(path, L"pair.exe"));
    writer.close();
    EXPECT_TRUE(NeedsPairedLauncher(path, L"pair.exe"));
}

TEST_F(PairedMachineTest, TruncatedFilesDoNotNeedIt) {
    const std::string whole = Headers(0x14C);
    for (std::size_t size = 0; size < 70; ++size) {
        EXPECT_FALSE(Paired(whole.substr(0, size))) << size;
    }
    EXPECT_TRUE(Paired(whole.substr(0, 70)));
}

TEST_F(PairedMachineTest, FilesWithHeadersOutsideDoNotNeedIt) {
    for (const char high : {'\x00', '\x01', '\x7F', '\x80', '\xFF'}) {
        std::string bytes = Headers(0x14C);
        bytes[61] = '\x7F';
        bytes[63] = high;
        EXPECT_FALSE(Paired(bytes));
        bytes.resize(4096);
        EXPECT_FALSE(Paired(bytes));
    }
}

TEST_F(PairedMachineTest, RandomFilesDoNotNeedIt) {
    std::mt19937 random(4096);
    for (int round = 0; round < 200; ++round) {
        std::string bytes(random() % 300, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        if (bytes.size() > 64 && round % 2 == 0) {
            bytes[0] = 'M';
            bytes[1] = 'Z';
        }
        EXPECT_FALSE(Paired(bytes));
    }
}

}  // namespace
}  // namespace tarn
