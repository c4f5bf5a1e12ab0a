// The manifest of a jar, which the companion program reads.

#include <algorithm>
#include <map>
#include <sstream>

#include "fuzz/fuzz_input.h"
#include "tools/java/manifest.h"

namespace {

using tarn::fuzz::Require;
using Attributes = std::map<std::string, std::string>;

std::string Lower(std::string text) {
    for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return text;
}

// A model: first unifies the line ends, then joins continued lines, then parses each line.
Attributes NaiveParse(std::string text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;) text.erase(at, 1);
    std::replace(text.begin(), text.end(), '\r', '\n');
    Attributes attributes;
    std::istringstream lines(text);
    std::string whole;
    const auto add = [&] {
        const std::size_t firstEnd = whole.find('\n');
        const std::size_t colon = whole.substr(0, firstEnd).find(": ");
        if (colon == std::string::npos) return;
        std::string value = whole.substr(colon + 2);
        std::erase(value, '\n');
        attributes[Lower(whole.substr(0, colon))] = value;
    };
    for (std::string line; std::getline(lines, line) && !line.empty();) {
        if (line[0] == ' ') {
            whole += '\n' + line.substr(1);
        } else {
            add();
            whole = line;
        }
    }
    add();
    return attributes;
}

std::string Trimmed(std::string value) {
    while (!value.empty() && value.front() == ' ') value.erase(0, 1);
    while (!value.empty() && value.back() == ' ') value.pop_back();
    return value;
}

void CheckAttributes(const tarn::tools::Manifest& manifest, const Attributes& attributes) {
    for (const auto& [name, value] : attributes) {
        const std::string expected = Trimmed(value);
        Require(manifest.Get(name) == expected);
        Require(manifest.GetFirst({"no: such", name}) == expected);
        std::string joined;
        for (const std::string& word : manifest.GetWords(name)) {
            Require(!word.empty() && word.find(' ') == std::string::npos);
            joined += word;
        }
        std::string letters = expected;
        std::erase(letters, ' ');
        Require(joined == letters);
        const std::string other = name + 'x';
        if (attributes.count(other) == 0) Require(manifest.Get(other).empty());
    }
}

// As Java's tools write it: no line is longer than 72 bytes, including its end.
std::string Write(const Attributes& attributes) {
    // The byte-order mark is skipped only once, and a name may begin with its bytes.
    std::string text = "\xEF\xBB\xBF";
    for (const auto& [name, value] : attributes) {
        std::string line = name + ": " + value;
        for (std::size_t at = 70 + name.size(); at < line.size(); at += 72)
            line.insert(at, "\r\n ");
        text += line + "\r\n";
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A heap block of its own, so that a read beyond it is detected.
    std::string text(data, data + size);
    text.shrink_to_fit();
    Attributes attributes = NaiveParse(text);
    CheckAttributes(tarn::tools::Manifest::Parse(text), attributes);
    // An empty name, or one that begins like a continued line, cannot be written.
    std::erase_if(attributes,
                  [](const auto& each) { return each.first.empty() || each.first[0] == ' '; });
    CheckAttributes(tarn::tools::Manifest::Parse(Write(attributes)), attributes);
    return 0;
}
