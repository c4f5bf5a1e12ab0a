#pragma once

#include <string>

#include "base/handles.h"

namespace tarn::test {

enum class RegistryView { k64Bit, k32Bit };

/// A registry key that a test creates; the destructor removes it with its subkeys. A key that
/// existed before stays, with its values.
class TemporaryKey {
  public:
    TemporaryKey(HKEY root, std::wstring path, RegistryView view = RegistryView::k64Bit);
    ~TemporaryKey();
    TemporaryKey(const TemporaryKey&) = delete;
    TemporaryKey& operator=(const TemporaryKey&) = delete;

    /// Removes all access rights to the key until the object is destroyed. Keys below it must be
    /// objects that were created later, because this one's destructor removes them.
    void Lock();

    /// Sets a text value of the key.
    void Set(const std::wstring& name, const std::wstring& value) const;
    /// Sets a value of any type.
    void Set(const std::wstring& name, DWORD type, const void* data, std::size_t size) const;

  private:
    HKEY root_;
    std::wstring path_;
    REGSAM view_;
    UniqueRegistryKey locked_;
    std::wstring topmostMade_;  // the topmost key of the path that did not exist before
};

}  // namespace tarn::test
