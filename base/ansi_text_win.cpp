#include "base/ansi_text.h"

#include "base/windows.h"

namespace tarn {

// Both Windows functions take explicit lengths, so the views need not be terminated.

std::string ToThreadAnsi(std::wstring_view text) {
    std::string result;
    const int length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    if (size <= 0) return result;
    result.resize(static_cast<std::size_t>(size));
    WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(), length, result.data(), size, nullptr,
                        nullptr);
    return result;
}

std::wstring FromThreadAnsi(std::string_view ansiText) {
    std::wstring result;
    const int length = static_cast<int>(ansiText.size());
    const int size = MultiByteToWideChar(CP_THREAD_ACP, 0, ansiText.data(), length, nullptr, 0);
    if (size <= 0) return result;
    result.resize(static_cast<std::size_t>(size));
    MultiByteToWideChar(CP_THREAD_ACP, 0, ansiText.data(), length, result.data(), size);
    return result;
}

}  // namespace tarn
