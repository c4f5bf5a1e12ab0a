#include <algorithm>

#include "settings/keys.h"
#include "tools/check/rules.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr auto npos = std::wstring_view::npos;

// The word from `at` to the next space outside quotes, as a command prompt splits it.
std::wstring_view WordAt(std::wstring_view text, std::size_t at) {
    bool isQuoted = false;
    std::size_t end = at;
    for (; end < text.size() && (isQuoted || text[end] != L' '); ++end) {
        if (text[end] == L'"') isQuoted = !isQuoted;
    }
    return text.substr(at, end - at);
}

bool IsClosed(std::wstring_view word) {
    return std::count(word.begin(), word.end(), L'"') % 2 == 0;
}

// Whether the launcher, too, reads the word as one argument, and no quote remains in it.
bool IsOneArgument(std::wstring_view word) {
    const std::size_t first = word.find(L'"');
    return first == npos || (first == 0 && word.find(L'"', 1) == word.size() - 1);
}

void ReportInnerQuotes(std::wstring_view word, std::size_t line, Findings& findings) {
    std::wstring plain(word);
    std::erase(plain, L'"');
    const std::string quote = plain.find(L' ') == npos ? "" : "\"";
    findings.Warning("argument-quotes", line,
                     "in \"Cmd\" quotes group only a whole argument: those inside " + Quoted(word) +
                         " become part of it, and a space between them ends it",
                     "write " + quote + Utf8Of(plain) + quote);
}

void CheckArguments(const Setting& cmd, Findings& findings) {
    const std::wstring_view text = cmd.text;
    for (std::size_t at = 0; (at = text.find_first_not_of(L' ', at)) != npos;) {
        std::wstring_view word = WordAt(text, at);
        const std::wstring_view start = word.substr(0, word.find(L' '));
        // A lone quote, or one at the end as in 5" (inches), is an ordinary character.
        const bool isOrdinary =
            !start.starts_with(L'"') && (start.find(L'"') == start.size() - 1 || !IsClosed(word));
        if (isOrdinary) {
            word = start;
        } else if (!IsClosed(word)) {
            findings.Warning(
                "argument-quotes", cmd.line,
                "a quote in \"Cmd\" is not closed: everything after it is one argument",
                "close it");
        } else if (!IsOneArgument(word)) {
            ReportInnerQuotes(word, cmd.line, findings);
        }
        at += word.size();
    }
}

void CheckService(const CheckedSettings& settings, Findings& findings) {
    const Setting type = settings.Get(keys::kApplication, keys::kApplicationType);
    if (type.text != L"service" || !settings.IsOn(keys::kApplication, keys::kSingleInstance)) {
        return;
    }
    findings.Warning(
        "service-instance", settings.Get(keys::kApplication, keys::kSingleInstance).line,
        "\"Single Instance\" has no effect with Application Type=service", "remove one of the two");
}

}  // namespace

void CheckApplication(const CheckedSettings& settings, Findings& findings) {
    CheckArguments(settings.Get(keys::kApplication, keys::kCmd), findings);
    CheckService(settings, findings);
}

}  // namespace tarn::tools
