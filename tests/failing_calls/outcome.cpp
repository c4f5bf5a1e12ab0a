#include "tests/failing_calls/outcome.h"

namespace tarn::test {

namespace {

constexpr std::size_t kShort = 160;

std::string ValueOf(const Facts& facts, const std::string& name) {
    for (const auto& [each, value] : facts) {
        if (each == name) return value;
    }
    return {};
}

}  // namespace

std::string OutcomeOf(const Facts& facts, const Facts& undisturbed) {
    std::string outcome;
    // Without `main`, the facts about its surroundings say nothing.
    const bool runs = ValueOf(facts, "main") != "does not run";
    for (const auto& [name, value] : facts) {
        const std::string usual = ValueOf(undisturbed, name);
        if (value == usual) continue;
        const bool isOfJvm = name == "JVM options" || name == "Path" || name.starts_with("TARN_") ||
                             name == "working directory";
        if (isOfJvm && !runs) continue;
        if (!outcome.empty()) outcome += "; ";
        const bool isTold = !isOfJvm && value.size() <= kShort;
        outcome += isTold ? name + ' ' + value : (value.empty() ? "no " : "other ") + name;
    }
    return outcome.empty() ? kGoesOn : outcome;
}

bool IsAcceptable(const Facts& facts, const Facts& undisturbed,
                  const std::string& applicationCode) {
    const std::string code = ValueOf(facts, "exit code");
    return ValueOf(facts, "JNI").empty() &&
           (code == "0" || code == "-1" || code == applicationCode ||
            code.starts_with("0x80004005") || code == ValueOf(undisturbed, "exit code"));
}

}  // namespace tarn::test
