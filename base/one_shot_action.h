#pragma once

#include <utility>

namespace tarn {

/// A slot for one function that is called at most once: by `Invoke`, or at the latest when the
/// slot is destroyed.
class OneShotAction {
  public:
    using Function = void (*)();

    OneShotAction() = default;
    OneShotAction(const OneShotAction&) = delete;
    OneShotAction& operator=(const OneShotAction&) = delete;
    ~OneShotAction() { Invoke(); }

    /// Holds `function` from now on. A different function that is still held is called first;
    /// the same one is simply kept.
    void Set(Function function) {
        if (function == function_) return;
        Invoke();
        function_ = function;
    }

    /// Calls the function that is held, if any, and holds none from then on.
    void Invoke() {
        const Function function = std::exchange(function_, nullptr);
        if (function != nullptr) function();
    }

    Function held() const { return function_; }

  private:
    Function function_ = nullptr;
};

}  // namespace tarn
