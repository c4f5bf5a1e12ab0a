#include "jvm/exit_hooks.h"

namespace tarn {

ExitHooks* ExitHooks::instance_ = nullptr;

ExitHooks::ExitHooks() {
    instance_ = this;
}

ExitHooks::~ExitHooks() {
    instance_ = nullptr;
}

void ExitHooks::OnExit(jint code) noexcept {
    if (instance_ != nullptr && instance_->listener != nullptr) instance_->listener->Exit(code);
}

void ExitHooks::OnAbort() noexcept {
    if (instance_ != nullptr && instance_->listener != nullptr) instance_->listener->Abort();
}

}  // namespace tarn
