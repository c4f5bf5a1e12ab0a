#pragma once

#include <string>

namespace tarn::test {

/// The bytes of a 64-bit library with the machine type of a 32-bit one.
std::string As32Bit(std::string bytes);

/// The headers of a 32-bit library and nothing else.
std::string HeadersOf32BitLibrary();

/// The text of the launcher's box for a library that cannot be loaded, with the error of loading it
/// in this process.
std::wstring LoadFailure(const std::wstring& path);

}  // namespace tarn::test
