#include "tests/import_hook/failure_plan.h"

#include <climits>
#include <cstdlib>

namespace import_hook {

namespace {

/// Removes the text before the mark, and the mark, and returns the text.
std::string TakeUpTo(std::string_view& text, char mark) {
    const std::size_t end = text.find(mark);
    const std::string taken(text.substr(0, end));
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    return taken;
}

std::uint64_t Number(const std::string& text) {
    return std::strtoull(text.c_str(), nullptr, 0);
}

}  // namespace

void FailurePlan::Read(std::string_view text) {
    std::optional<std::string> subject;
    if (const std::size_t tab = text.find('\t'); tab != std::string_view::npos) {
        subject = text.substr(tab + 1);
        text = text.substr(0, tab);
    }
    while (!text.empty()) {
        const std::string entry = TakeUpTo(text, ';');
        std::string_view rest = entry;
        Failure failure;
        const std::string name = TakeUpTo(rest, ':');
        std::string_view nameRest = name;
        failure.name = TakeUpTo(nameRest, '@');
        if (!nameRest.empty()) failure.role = static_cast<unsigned>(Number(std::string(nameRest)));
        const std::string which = TakeUpTo(rest, ':');
        failure.first = static_cast<unsigned>(Number(which));
        failure.last = which.ends_with('+') ? UINT_MAX : failure.first;
        if (which.ends_with('>')) failure.next = Next::OfTheFunction;
        if (which.ends_with(">*")) failure.next = Next::OfAnyFunction;
        const std::string error = TakeUpTo(rest, ':');
        if (!error.empty()) failure.error = static_cast<std::uint32_t>(Number(error));
        if (!rest.empty()) failure.result = Number(std::string(rest));
        failures_.push_back(failure);
    }
    if (subject && !failures_.empty()) failures_.back().subject = subject;
}

const FailurePlan::Failure* FailurePlan::Find(const Call& call) {
    for (Failure& each : failures_) {
        if (each.role != call.role) continue;
        const bool isOfFunction = each.name == call.name;
        if (each.isNext && (isOfFunction || (each.next == Next::OfAnyFunction && call.canFail))) {
            each.isNext = false;
            return &each;
        }
        if (!isOfFunction || (each.subject && *each.subject != call.subject)) continue;
        const unsigned counted = each.subject ? ++each.counted : call.number;
        if (counted < each.first || counted > each.last) continue;
        each.isNext = each.next != Next::None;
        return &each;
    }
    return nullptr;
}

}  // namespace import_hook
