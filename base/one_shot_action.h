#pragma once

#include <utility>

namespace tarn {

/// Contains a function that is called at most once: by `Invoke`, otherwise by the destructor.
class OneShotAction {
  public:
    using Function = void (*)();

    OneShotAction() = default;
    OneShotAction(const OneShotAction&) = delete;
    OneShotAction& operator=(const OneShotAction&) = delete;
    ~OneShotAction() { Invoke(); }

    /// Stores `function`. A different function stored before is called first.
    void Set(Function function) {
        if (function == function_) return;
        Invoke();
        function_ = function;
    }

    /// Calls the stored function, if any, and clears it.
    void Invoke() {
        const Function function = std::exchange(function_, nullptr);
        if (function != nullptr) function();
    }

    /// Returns the stored function, or null.
    Function held() const { return function_; }

  private:
    Function function_ = nullptr;
};

}  // namespace tarn
