#pragma once

#include <string>

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {

inline bool PathExists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// A test with an application whose `main` prints a line to each of Java's standard streams.
class OutputFilesFixture : public FakeJvmFixture {
  protected:
    static constexpr char kPrints[] =
        "main = print to output\\r\\n\nmain = print_error to error\\r\\n\n";

    void SetUp() override { app.WriteScript(kPrints); }

    std::wstring OutputPath() const { return app.Path(L"out.txt"); }
    std::wstring ErrorPath() const { return app.Path(L"err.txt"); }
    void NameBoth() {
        settings.Application(L"Output File", OutputPath());
        settings.Application(L"Error File", ErrorPath());
    }
    /// Runs with an output file of that name, which cannot be opened, and a valid error file.
    void ExpectOnlyErrorsRedirected(const std::wstring& outputName) {
        settings.Application(L"Output File", outputName);
        settings.Application(L"Error File", ErrorPath());
        EXPECT_EQ(Run(), 0);
        EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
        EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 1U);
        EXPECT_EQ(app.Log().Count("CallStaticVoidMethod(java/lang/System.setOut"), 0U);
    }
};

}  // namespace tarn::test
