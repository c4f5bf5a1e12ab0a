// Creates the file that its argument names. A console program would open a window, which takes the
// activation from the window under test.

#include "base/windows.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR path, int) {
    const HANDLE file = CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                    nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 1;
    CloseHandle(file);
    return 0;
}
