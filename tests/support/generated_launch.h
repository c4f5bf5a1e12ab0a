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

/// An application with random settings in all layers, random runtimes and a random environment;
/// equal seeds give equal applications. Most launches start, and every kind of failure occurs.
class GeneratedLaunch {
  public:
    explicit GeneratedLaunch(std::uint32_t seed);

    InstalledApplication app;
    std::wstring argumentText;
    /// Set by `main`, which then waits for the other event and ends the process with `kMainCode`.
    NamedEvent mainRuns;
    NamedEvent mainMayEnd;
    static constexpr std::int32_t kMainCode = 7;

    /// The exit code of the paired program.
    static constexpr std::int32_t kPairCode = 5;
    bool PairedProgramWasStarted() const;

    /// The answer of this process, which plays the first instance, to a second one.
    static constexpr UINT kHandOff = WM_APP + 0x123;
    static constexpr std::int32_t kAnswer = 4242;

    /// The layer of each setting, by section and key.
    std::map<std::pair<std::wstring, std::wstring>, std::string> layers;

    /// A description of everything generated, for the message of a failure.
    std::string Description() const;

  private:
    unsigned RandomBelow(unsigned limit);
    bool Chance(unsigned percent) { return RandomBelow(100) < percent; }
    template <std::size_t size>
    std::wstring OneOf(const wchar_t* const (&texts)[size]) {
        return texts[RandomBelow(size)];
    }

    void Set(std::wstring_view section, std::wstring_view key, const std::wstring& value);
    void SetInFile(std::wstring_view section, std::wstring_view key, const std::wstring& value);
    void SetRuntimeKey(std::wstring_view key, const std::wstring& value);
    void SetApplicationKey(std::wstring_view key, const std::wstring& value);
    std::wstring AddHome(const std::wstring& home);

    void GenerateProgram();
    void GenerateConfiguredRuntime();
    void GenerateOtherRuntimes();
    void GenerateRegistry();
    void GeneratePolicy();
    void GeneratePairedProgram();
    void GenerateClassPath();
    void GenerateParameters();
    void GenerateOutputs();
    void GenerateSplash();
    void GenerateInstance();
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
