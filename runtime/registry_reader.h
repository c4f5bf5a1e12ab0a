#pragma once

#include <string>

#include "base/handles.h"
#include "runtime/registry_search.h"

namespace tarn {

/// The registry reader of `SearchRegistry` for `HKEY_LOCAL_MACHINE`. Opens every key with `access`,
/// which also selects the registry view (`KEY_WOW64_32KEY`).
class RegistryReader {
  public:
    explicit RegistryReader(REGSAM access) : access_(access) {}

    bool OpenRoot(const wchar_t* key);
    bool NextSubkey(std::wstring& name);
    HomeValue ReadHome(const std::wstring& name);
    bool FindJvm(const std::wstring& home, JvmType type, bool& server);

  private:
    REGSAM access_;
    UniqueRegistryKey root_;
    DWORD next_ = 0;
};

}  // namespace tarn
