#include "tests/support/named_event.h"

#include "tests/support/text.h"

namespace tarn::test {

namespace {

std::wstring FreshName() {
    static int count = 0;
    return L"tarn_test_" + std::to_wstring(GetCurrentProcessId()) + L'_' + std::to_wstring(++count);
}

}  // namespace

NamedEvent::NamedEvent() : NamedEvent(FreshName()) {}

NamedEvent::NamedEvent(std::wstring name)
    : name_(std::move(name)), event_(CreateEventW(nullptr, TRUE, FALSE, name_.c_str())) {}

std::string NamedEvent::utf8Name() const {
    return ToUtf8(name_);
}

void NamedEvent::Set() {
    SetEvent(event_.get());
}

bool NamedEvent::IsSet() const {
    return WaitForSingleObject(event_.get(), 0) == WAIT_OBJECT_0;
}

bool NamedEvent::Wait(std::chrono::milliseconds timeLimit) const {
    return WaitForSingleObject(event_.get(), static_cast<DWORD>(timeLimit.count())) ==
           WAIT_OBJECT_0;
}

SharedStateLock::SharedStateLock()
    : mutex_(CreateMutexW(nullptr, FALSE, L"tarn_test_shared_state")) {
    // An owner that crashed has abandoned the lock.
    WaitForSingleObject(mutex_.get(), INFINITE);
}

SharedStateLock::~SharedStateLock() {
    ReleaseMutex(mutex_.get());
}

}  // namespace tarn::test
