// For unit tests only: the state of a first instance in which Java has not started.
#pragma once

#include "base/handles.h"
#include "instance/hand_off.h"

namespace tarn {

/// The registered message that the requests of these tests carry.
inline constexpr UINT kRequestMessage = WM_APP + 7;

/// Allocated with `new` and never freed, because worker threads may outlive the test.
struct FirstInstanceFixture {
    Settings settings;
    JavaVM* javaVm = nullptr;
    SharedBlock block{};
    UniqueHandle readyEvent{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    HandOffServer server{{settings, javaVm}, block, readyEvent.get(), kRequestMessage};
};

}  // namespace tarn
