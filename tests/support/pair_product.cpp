#include "tests/support/pair_product.h"

#include "base/windows.h"
#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

PairProduct::PairProduct(InstalledApplication& app, SettingsText& settings)
    : app_(app), log_(app.Path(L"pair.log")) {
    settings.Application(L"Pair Product", GetPaths().programs + L"\\pair_product.exe");
    app_.environment[L"PAIR_LOG"] = log_;
}

void PairProduct::EndWith(int code) const {
    app_.environment[L"PAIR_EXIT"] = std::to_wstring(code);
}

bool PairProduct::WasStarted() const {
    return GetFileAttributesW(log_.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool PairProduct::WaitUntilStarted() const {
    // The program writes its report in one piece, so a report is never partial.
    return WaitUntil([this] { return !ReadFileBytes(log_).empty(); });
}

std::wstring PairProduct::ReportLine(std::size_t line) const {
    const std::string bytes = ReadFileBytes(log_);
    std::wstring text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const unsigned unit = static_cast<unsigned char>(bytes[at]) |
                              static_cast<unsigned>(static_cast<unsigned char>(bytes[at + 1])) << 8;
        if (unit == L'\n') {
            if (line-- == 0) return text;
            text.clear();
        } else {
            text += static_cast<wchar_t>(unit);
        }
    }
    return {};
}

}  // namespace tarn::test
