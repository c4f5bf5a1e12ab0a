#include "tests/support/wait.h"

#include "base/windows.h"

namespace tarn::test {

void Pause() {
    Sleep(5);
}

}  // namespace tarn::test
