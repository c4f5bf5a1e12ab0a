#include "tools/common/progress.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

constexpr std::uintmax_t kMebibyte = 1U << 20U;

class ProgressTest : public testing::Test {
  protected:
    ~ProgressTest() override { std::fclose(errors_); }

    std::string Shown() const {
        std::rewind(errors_);
        std::string text(1000, '\0');
        text.resize(std::fread(text.data(), 1, text.size(), errors_));
        return text;
    }

    // One report at each of these times in milliseconds after the beginning.
    std::string ShownFor(bool isTerminal, const std::vector<int>& times) {
        const Console console(stdout, errors_, false, isTerminal);
        Progress::Clock::time_point now{};
        Progress progress(console, "copying", 10 * kMebibyte, [&] { return now; });
        for (const int time : times) {
            now = Progress::Clock::time_point() + std::chrono::milliseconds(time);
            progress.Add(kMebibyte);
        }
        return Shown();
    }

    std::FILE* errors_ = std::tmpfile();
};

TEST_F(ProgressTest, IsNotShownWithinASecond) {
    EXPECT_EQ(ShownFor(true, {0, 500, 999}), "");
    EXPECT_EQ(Shown(), "") << "nothing to erase";
}

TEST_F(ProgressTest, IsShownFromThenOnAndErased) {
    EXPECT_EQ(ShownFor(true, {500, 1000, 1200}),
              "\r\x1b[Kcopying: 2 of 10 MiB\r\x1b[Kcopying: 3 of 10 MiB");
    EXPECT_TRUE(Shown().ends_with(" MiB\r\x1b[K"));
}

TEST_F(ProgressTest, IsUpdatedAtMostTenTimesASecond) {
    EXPECT_EQ(ShownFor(true, {1000, 1001, 1099}), "\r\x1b[Kcopying: 1 of 10 MiB");
}

TEST_F(ProgressTest, IsShownOnTerminalsOnly) {
    EXPECT_EQ(ShownFor(false, {1000, 2000}), "");
}

}  // namespace
}  // namespace tarn::tools
