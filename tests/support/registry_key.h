#pragma once

#include <string>

#include "base/windows.h"

namespace tarn::test {

enum class RegistryView { k64Bit, k32Bit };

/// A registry key that a test makes, and that goes with it together with all that is below it. A
/// key that was there before stays, with its values; only what was made is removed.
class TemporaryKey {
  public:
    TemporaryKey(HKEY root, std::wstring path, RegistryView view = RegistryView::k64Bit);
    ~TemporaryKey();
    TemporaryKey(const TemporaryKey&) = delete;
    TemporaryKey& operator=(const TemporaryKey&) = delete;

    /// Sets a text value of the key.
    void Set(const std::wstring& name, const std::wstring& value) const;
    /// Sets a value of any type.
    void Set(const std::wstring& name, DWORD type, const void* data, std::size_t size) const;

  private:
    HKEY root_;
    std::wstring path_;
    REGSAM view_;
    std::wstring topmostMade_;  // the uppermost key of the path that was not there before
};

}  // namespace tarn::test
