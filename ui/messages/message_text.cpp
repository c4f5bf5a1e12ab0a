#include "ui/messages/message_text.h"

#include "base/growing_buffer.h"
#include "base/program.h"
#include "base/windows.h"

namespace tarn {

std::wstring LoadMessageText(unsigned id) {
    const HINSTANCE module = ProgramModule();
    return ReadGrowing(1, [&](wchar_t* buffer, std::size_t size) {
        const int length = LoadStringW(module, id, buffer, static_cast<int>(size));
        return static_cast<std::size_t>(length);
    });
}

}  // namespace tarn
