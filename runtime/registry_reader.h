#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/handles.h"
#include "runtime/registry_search.h"

namespace tarn {

/// The machine's registry as the search looks at it. Every key is opened with `access`, which also
/// says whose view of the registry it is (`KEY_WOW64_32KEY`).
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
