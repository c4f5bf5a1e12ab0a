#include "tests/support/jvm_files.h"

#include <gtest/gtest.h>

#include "base/handles.h"

namespace tarn::test {

std::string As32Bit(std::string bytes) {
    const auto* const header = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes.data());
    auto* const machine = reinterpret_cast<WORD*>(
        &bytes.at(static_cast<std::size_t>(header->e_lfanew) + sizeof(DWORD)));
    EXPECT_EQ(*machine, IMAGE_FILE_MACHINE_AMD64);
    *machine = IMAGE_FILE_MACHINE_I386;
    return bytes;
}

std::string HeadersOf32BitLibrary() {
    std::string bytes(256, '\0');
    bytes.replace(0, 2, "MZ");
    bytes[60] = 64;
    bytes.replace(64, 2, "PE");
    bytes.replace(68, 2, "\x4C\x01");
    return bytes;
}

std::wstring LoadFailure(const std::wstring& path) {
    const UniqueLibrary library(LoadLibraryW(path.c_str()));
    const DWORD error = GetLastError();
    EXPECT_FALSE(library);
    return L"Failed to load Java VM library: " + path + L" (errno = " + std::to_wstring(error) +
           L").\n";
}

}  // namespace tarn::test
