#pragma once

#include <string>
#include <string_view>

namespace tarn {

/// Whether a character that the code page lacks may become one that resembles it, where the code
/// page names one. A file's name must not change like that: it could name another file.
enum class BestFit { Yes, No };

/// Converts UTF-16 to the code page of the calling thread's locale (`CP_THREAD_ACP`), the encoding
/// of the JVM's options (`WideCharToMultiByte`). Characters missing from the code page become a
/// similar one, unless `bestFit` forbids it, or its default character. Returns an empty text on
/// failure.
std::string ToThreadAnsi(std::wstring_view text, BestFit bestFit = BestFit::Yes);

/// Converts text in the code page of the calling thread's locale to UTF-16
/// (`MultiByteToWideChar`). Returns an empty text on failure.
std::wstring FromThreadAnsi(std::string_view ansiText);

}  // namespace tarn
