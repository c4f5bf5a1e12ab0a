#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "tools/common/whole_file.h"

namespace tarn::tools {

/// For tests: a folder for each test, removed afterwards.
class FolderTest : public testing::Test {
  protected:
    void SetUp() override {
        const auto& info = *testing::UnitTest::GetInstance()->current_test_info();
        folder_ = std::filesystem::path(testing::TempDir()) /
                  (std::string(info.test_suite_name()) + "." + info.name());
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path Put(const char* name, std::span<const std::byte> content) const {
        const std::filesystem::path file = folder_ / name;
        std::filesystem::create_directories(file.parent_path());
        WriteWholeFile(file, content);
        return file;
    }
    std::filesystem::path Put(const char* name, std::string_view content) const {
        return Put(name, std::as_bytes(std::span(content)));
    }

    static std::string TextOf(const std::filesystem::path& file) {
        const Bytes content = ReadWholeFile(file);
        return std::string(reinterpret_cast<const char*>(content.data()), content.size());
    }

    std::filesystem::path folder_;
};

}  // namespace tarn::tools
