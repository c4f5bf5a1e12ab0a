#include "ui/splash.h"

namespace tarn {

// The picture comes with the splash window.
bool Splash::Show(const std::wstring&, OneShotAction&) {
    return true;
}

void Splash::Close() {}

}  // namespace tarn
