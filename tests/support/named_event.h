#pragma once

#include <string>

#include "base/handles.h"
#include "tests/support/wait.h"

namespace tarn::test {

/// A manual-reset event with a name that no other test has; for the script's `wait_event` and
/// `set_event`.
class NamedEvent {
  public:
    NamedEvent();
    /// An event of that very name.
    explicit NamedEvent(std::wstring name);

    const std::wstring& name() const { return name_; }
    std::string utf8Name() const;
    void Set();
    bool IsSet() const;
    bool Wait(std::chrono::milliseconds patience = kPatience) const;

  private:
    std::wstring name_;
    UniqueHandle event_;
};

/// Held by the tests that change what all processes of a user share (the registry's runtime keys,
/// say), so that two runs side by side do not disturb each other.
class SharedStateLock {
  public:
    SharedStateLock();
    ~SharedStateLock();
    SharedStateLock(const SharedStateLock&) = delete;
    SharedStateLock& operator=(const SharedStateLock&) = delete;

  private:
    UniqueHandle mutex_;
};

}  // namespace tarn::test
