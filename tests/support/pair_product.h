#pragma once

#include <string>

#include "tests/support/installed_application.h"

namespace tarn::test {

/// A paired launcher: a small program that records how it was started. The constructor names it in
/// the settings and passes it the report's path in the environment.
class PairProduct {
  public:
    PairProduct(InstalledApplication& app, SettingsText& settings);

    /// Its exit code.
    void EndWith(int code) const;

    bool WasStarted() const;
    bool WaitUntilStarted() const;

    /// The report, one line for each fact; waits until it exists.
    std::wstring CommandLine() const { return ReportLine(0); }
    std::wstring Directory() const { return ReportLine(1); }
    std::wstring Probe() const { return ReportLine(2); }

    /// The error mode of its process (`GetErrorMode`), in decimal.
    std::wstring ErrorMode() const { return ReportLine(4); }

    static constexpr wchar_t kProbeVariable[] = L"PAIR_PROBE";

  private:
    std::wstring ReportLine(std::size_t line) const;

    InstalledApplication& app_;
    std::wstring log_;
};

}  // namespace tarn::test
