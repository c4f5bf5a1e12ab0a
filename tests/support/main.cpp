// The entry point of the end-to-end tests.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "base/windows.h"
#include "tests/support/paths.h"
#include "tests/support/text.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const std::wstring& launcher = tarn::test::GetPaths().launcher;
    if (GetFileAttributesW(launcher.c_str()) == INVALID_FILE_ATTRIBUTES) {
        std::fprintf(stderr, "There is no launcher to test: %s (set TARN_LAUNCHER)\n",
                     tarn::test::ToUtf8(launcher).c_str());
        return 2;
    }
    // A test that reads the exit code of a crashed launcher must not wait for an error box.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    return RUN_ALL_TESTS();
}
