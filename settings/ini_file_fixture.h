#pragma once

#include <gtest/gtest.h>

#include <string>

#include "base/handles.h"

namespace tarn {

/// Gives each test an empty temporary file and deletes it afterwards.
class IniFileFixture : public testing::Test {
  protected:
    void SetUp() override {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        wchar_t name[MAX_PATH];
        ASSERT_NE(GetTempFileNameW(folder, L"ini", 0, name), 0u);
        path_ = name;
    }
    void TearDown() override { DeleteFileW(path_.c_str()); }

    /// Replaces the content of the file with these bytes.
    void Write(const std::string& bytes) const {
        const UniqueFile file(CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        ASSERT_TRUE(WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                              nullptr));
    }

    std::wstring path_;
};

}  // namespace tarn
