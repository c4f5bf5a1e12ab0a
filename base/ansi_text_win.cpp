#include "base/ansi_text.h"

#include "base/windows.h"

namespace tarn {

// Both Windows functions take explicit lengths, so the views need not be terminated.

std::string ToThreadAnsi(std::wstring_view text, BestFit bestFit) {
    std::string result;
    const int length = static_cast<int>(text.size());
    const DWORD flags = bestFit == BestFit::No ? WC_NO_BEST_FIT_CHARS : 0;
    const auto convert = [&](char* buffer, int size) {
        return WideCharToMultiByte(CP_THREAD_ACP, flags, text.data(), length, buffer, size, nullptr,
                                   nullptr);
    };
    const int size = convert(nullptr, 0);
    if (size <= 0) {
        // UTF-8 and a few other code pages accept no flags; they have no best fit either.
        return flags != 0 ? ToThreadAnsi(text) : result;
    }
    result.resize(static_cast<std::size_t>(size));
    convert(result.data(), size);
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
