#pragma once

#include <string>
#include <string_view>

namespace tarn {

/// Converts UTF-16 to the code page of the calling thread's locale (`CP_THREAD_ACP`), the encoding
/// of the JVM's options (`WideCharToMultiByte`). Characters missing from the code page become a
/// similar one or its default character. Returns an empty text on failure.
std::string ToThreadAnsi(std::wstring_view text);

/// Converts text in the code page of the calling thread's locale to UTF-16
/// (`MultiByteToWideChar`). Returns an empty text on failure.
std::wstring FromThreadAnsi(std::string_view ansiText);

}  // namespace tarn
