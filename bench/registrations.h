#pragma once

#include <filesystem>
#include <string>

namespace tarn::bench {

struct Workspace;

/// How an installer registers runtimes in HKEY_LOCAL_MACHINE: each in the key `root`, a backslash,
/// `version` with a number appended, and `below`. The value `homeValue` contains its home.
struct RegistrationLayout {
    std::wstring root;
    std::wstring version;
    std::wstring below;
    std::wstring homeValue;
};

/// Newer than whatever the machine has installed; the settings of a case accept nothing older.
inline constexpr wchar_t kNewestVersion[] = L"60000.";

/// The development kits of JavaSoft in that version.
RegistrationLayout JavaSoftKits();

/// Any number of registered runtimes, in folders "1", "2" and so on below `homes`. Each has the
/// jvm.dll that only records the time. The destructor removes the keys; keys created above them are
/// volatile.
class Registrations {
  public:
    Registrations(const Workspace& workspace, RegistrationLayout layout,
                  std::filesystem::path homes);
    Registrations(const Registrations&) = delete;
    Registrations& operator=(const Registrations&) = delete;
    ~Registrations();

    /// Registers or removes runtimes until there are `count`. Throws std::runtime_error on failure.
    void Want(int count);

    /// The home of a runtime that is or was registered.
    std::filesystem::path HomeOf(int number) const;

  private:
    std::wstring KeyOf(int number) const;
    void Shrink(int count);
    void Register(int number);

    RegistrationLayout layout_;
    std::filesystem::path homes_;
    std::filesystem::path jvm_;
    int count_ = 0;
};

}  // namespace tarn::bench
