#pragma once

#include <string>

#include "base/handles.h"
#include "tests/support/wait.h"

namespace tarn::test {

/// A manual-reset event with a unique name, for `wait_event` and `set_event` of a script.
class NamedEvent {
  public:
    NamedEvent();
    /// An event of exactly this name.
    explicit NamedEvent(std::wstring name);

    const std::wstring& name() const { return name_; }
    std::string utf8Name() const;
    void Set();
    bool IsSet() const;
    bool Wait(std::chrono::milliseconds timeLimit = kTimeLimit) const;

  private:
    std::wstring name_;
    UniqueHandle event_;
};

/// A lock for tests that change what all processes of a user share, such as the registry keys of
/// the runtimes, so that two parallel runs do not disturb each other.
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
