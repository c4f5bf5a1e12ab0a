#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/installed_application.h"
#include "tests/support/instance_block.h"
#include "tests/support/named_event.h"
#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {

/// An application whose settings, in all their layers, runtimes and surroundings are drawn at
/// random; the same seed draws the same ones. Most launches start, and every way to fail comes up.
class GeneratedLaunch {
  public:
    explicit GeneratedLaunch(std::uint32_t seed);

    InstalledApplication app;
    std::wstring argumentText;
    /// Set by `main`, which then waits for the other one and ends the process with `kMainCode`.
    NamedEvent mainRuns;
    NamedEvent mainMayEnd;
    static constexpr std::int32_t kMainCode = 7;

    /// What a paired program would end with.
    static constexpr std::int32_t kPairCode = 5;
    bool PairedProgramWasStarted() const;

    /// The answer that this process, playing the first instance, has for a second one.
    static constexpr UINT kHandOff = WM_APP + 0x123;
    static constexpr std::int32_t kAnswer = 4242;

    /// The layer that each setting was put into, by section and key.
    std::map<std::pair<std::wstring, std::wstring>, std::string> layers;

    /// All of it, for the report of a failure.
    std::string Description() const;

  private:
    unsigned Draw(unsigned limit);
    bool Chance(unsigned percent) { return Draw(100) < percent; }
    template <std::size_t size>
    std::wstring OneOf(const wchar_t* const (&texts)[size]) {
        return texts[Draw(size)];
    }

    void Put(std::wstring_view section, std::wstring_view key, const std::wstring& value);
    void PutInFile(std::wstring_view section, std::wstring_view key, const std::wstring& value);
    void PutJava(std::wstring_view key, const std::wstring& value);
    void PutApplication(std::wstring_view key, const std::wstring& value);
    std::wstring AddHome(const std::wstring& home);

    void DrawProgram();
    void DrawConfiguredRuntime();
    void DrawOtherRuntimes();
    void DrawRegistry();
    void DrawPolicy();
    void DrawPairedProgram();
    void DrawClassPath();
    void DrawParameters();
    void DrawOutputs();
    void DrawSplash();
    void DrawInstance();
    void WriteAll();

    std::mt19937 random_;
    SettingsText file_;
    SettingsText builtIn_;
    bool hasBuiltIn_ = false;
    std::string script_;
    std::string notes_;
    std::unique_ptr<RegisteredRuntimes> registered_;
    std::optional<InstanceBlock> block_;
};

}  // namespace tarn::test
