// Resources of an executable, which the companion program reads.

#include <algorithm>
#include <cstring>
#include <string_view>

#include "fuzz/fuzz_input.h"
#include "tools/common/failure.h"
#include "tools/image/string_table.h"
#include "tools/image/version_info.h"

namespace {

using tarn::fuzz::FuzzInput;
using tarn::fuzz::Require;
using namespace tarn::tools;

bool IsSame(const VersionInfo& a, const VersionInfo& b) {
    return a.fileVersion == b.fileVersion && a.productVersion == b.productVersion &&
           a.texts == b.texts;
}

// Resources that can be read are the same after they are written and read again.
void CheckVersion(const Bytes& content) {
    VersionInfo info;
    Bytes written;
    try {
        info = ReadVersionInfo(content);
        written = WriteVersionInfo(info);
    } catch (const Failure&) {
        return;
    }
    Require(IsSame(ReadVersionInfo(written), info));
    Require(WriteVersionInfo(ReadVersionInfo(written)) == written);
}

VersionInfo::Number NaiveNumber(const std::string& text) {
    VersionInfo::Number number = {};
    std::size_t part = 0;
    for (std::size_t at = 0; at < text.size() && part < 4; ++part) {
        at = text.find_first_of("0123456789", at);
        if (at == std::string::npos) break;
        const std::size_t end = std::min(text.find_first_not_of("0123456789", at), text.size());
        std::string digits = text.substr(at, end - at);
        digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
        number[part] =
            digits.size() > 5
                ? std::uint16_t{0xFFFF}
                : static_cast<std::uint16_t>(std::min(std::atoi(digits.c_str()), 0xFFFF));
        at = end;
    }
    return number;
}

void CheckNumber(const Bytes& content) {
    const std::string text(reinterpret_cast<const char*>(content.data()), content.size());
    Require(VersionNumberOf(text) == NaiveNumber(text));
}

// A text that is set can be read, and the other texts are unchanged.
void CheckTexts(const Bytes& content, std::uint16_t id, std::string_view text) {
    ResourceTree tree;
    tree[kResourceString][ResourceName(static_cast<std::uint16_t>(id / 16 + 1))][7].content =
        content;
    const auto first = static_cast<std::uint16_t>(id / 16 * 16);
    std::vector<std::string> before;
    try {
        for (unsigned i = 0; i < 16; ++i)
            before.push_back(StringOf(tree, static_cast<std::uint16_t>(first + i)));
        SetString(tree, id, text);
    } catch (const Failure&) {
        return;
    }
    before[id % 16] = text;
    for (unsigned i = 0; i < 16; ++i)
        Require(StringOf(tree, static_cast<std::uint16_t>(first + i)) == before[i]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A heap block of its own, so that a read beyond it is detected.
    Bytes content(size);
    if (size != 0) std::memcpy(content.data(), data, size);
    CheckVersion(content);
    CheckNumber(content);
    FuzzInput input(data, size);
    const auto id = input.TakeNumber<std::uint16_t>();
    const std::size_t used = std::min<std::size_t>(size, sizeof id);
    const Bytes rest(content.begin() + static_cast<std::ptrdiff_t>(used), content.end());
    CheckTexts(rest, id, "text of the test");
    CheckTexts(rest, id, "");
    return 0;
}
