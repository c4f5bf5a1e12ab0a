#include "tools/java/manifest.h"

#include "tools/common/ascii.h"
#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

// Removes and returns the first line of `text`, without its line end.
std::string_view ConsumeLine(std::string_view& text) {
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = text.substr(0, end);
    if (end == std::string_view::npos) {
        text = {};
    } else {
        const bool isPair = text.substr(end, 2) == "\r\n";
        text.remove_prefix(end + (isPair ? 2 : 1));
    }
    return line;
}

}  // namespace

Manifest Manifest::Parse(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        text.remove_prefix(kByteOrderMark.size());
    }
    Manifest manifest;
    std::string* last = nullptr;
    while (!text.empty()) {
        const std::string_view line = ConsumeLine(text);
        if (line.empty()) break;
        if (line.front() == ' ') {
            if (last != nullptr) *last += line.substr(1);
            continue;
        }
        const std::size_t colon = line.find(": ");
        if (colon == std::string_view::npos) {
            last = nullptr;
            continue;
        }
        last = &manifest.attributes_[ToLowerAscii(line.substr(0, colon))];
        *last = line.substr(colon + 2);
    }
    return manifest;
}

Manifest Manifest::Of(const JarFile& jar) {
    std::string_view entry = kManifestEntry;
    if (!jar.Has(entry)) {
        for (const std::string& name : jar.Names()) {
            if (ToLowerAscii(name) == ToLowerAscii(kManifestEntry)) entry = name;
        }
    }
    const std::optional<Bytes> content = jar.Read(entry);
    if (!content) {
        throw Failure(jar.Path(), "has no manifest (" + std::string(kManifestEntry) + ")");
    }
    return Parse(AsText(*content));
}

std::string Manifest::Get(std::string_view name) const {
    const auto found = attributes_.find(ToLowerAscii(name));
    if (found == attributes_.end()) return {};
    std::string_view value = found->second;
    while (!value.empty() && value.front() == ' ') value.remove_prefix(1);
    while (!value.empty() && value.back() == ' ') value.remove_suffix(1);
    return std::string(value);
}

std::string Manifest::GetFirst(std::initializer_list<std::string_view> names) const {
    for (const std::string_view name : names) {
        std::string value = Get(name);
        if (!value.empty()) return value;
    }
    return {};
}

std::vector<std::string> Manifest::GetWords(std::string_view name) const {
    const std::string value = Get(name);
    std::vector<std::string> words;
    std::size_t at = 0;
    while ((at = value.find_first_not_of(' ', at)) != std::string::npos) {
        const std::size_t end = value.find(' ', at);
        words.push_back(value.substr(at, end - at));
        at = end;
    }
    return words;
}

}  // namespace tarn::tools
