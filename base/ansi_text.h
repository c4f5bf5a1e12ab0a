#pragma once

#include <string>
#include <string_view>

namespace tarn {

/// UTF-16 to the code page of the calling thread's locale (`CP_THREAD_ACP`), which is what the JVM
/// takes its options in. Characters that the code page lacks become its default character.
/// Stands on `WideCharToMultiByte`; a failure gives an empty text.
std::string ToThreadAnsi(std::wstring_view text);

/// Text in the code page of the calling thread's locale to UTF-16 (`MultiByteToWideChar`); a
/// failure gives an empty text.
std::wstring FromThreadAnsi(std::string_view ansiText);

}  // namespace tarn
