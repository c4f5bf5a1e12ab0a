#pragma once

#include <string>

#include "tests/support/installed_application.h"

namespace tarn::test {

/// A paired launcher: the small program that notes how it was started. Names it in the settings
/// and tells it through the environment where to write.
class PairProduct {
  public:
    PairProduct(InstalledApplication& app, SettingsText& settings);

    /// The exit code that it ends with.
    void EndWith(int code) const;

    bool WasStarted() const;
    bool WaitUntilStarted() const;

    /// What it noted, once it was started: one line for each fact.
    std::wstring CommandLine() const { return Note(0); }
    std::wstring Directory() const { return Note(1); }
    std::wstring Probe() const { return Note(2); }

    /// Its process's error mode (`GetErrorMode`), in decimal.
    std::wstring ErrorMode() const { return Note(4); }

    static constexpr wchar_t kProbeVariable[] = L"PAIR_PROBE";

  private:
    std::wstring Note(std::size_t line) const;

    InstalledApplication& app_;
    std::wstring log_;
};

/// The headers of a 32-bit library and nothing else: stands for a 32-bit `jvm.dll`.
std::string NarrowLibrary();

}  // namespace tarn::test
