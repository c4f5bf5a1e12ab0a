// For tests: the findings for a settings text without files.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools/check/rules.h"

namespace tarn::tools {

inline CheckedSettings SettingsOf(std::wstring text) {
    return CheckedSettings("sample.ini", {IniEncoding::Ascii, std::move(text), false}, false);
}

/// The findings of one rule, each as "LINE severity id".
using Rule = void (*)(const CheckedSettings&, Findings&);

inline std::vector<std::string> Check(Rule rule, std::wstring text) {
    Findings findings;
    rule(SettingsOf(std::move(text)), findings);
    std::vector<std::string> lines;
    for (const Finding& finding : findings.Sorted()) {
        lines.push_back(std::to_string(finding.line) + ' ' + std::string(NameOf(finding.severity)) +
                        ' ' + finding.id);
    }
    return lines;
}

/// The advice of the rule's findings, joined by " | ".
inline std::string AdviceOf(Rule rule, std::wstring text) {
    Findings findings;
    rule(SettingsOf(std::move(text)), findings);
    std::string advice;
    for (const Finding& finding : findings.Sorted()) {
        if (!advice.empty()) advice += " | ";
        advice += finding.advice;
    }
    return advice;
}

}  // namespace tarn::tools
