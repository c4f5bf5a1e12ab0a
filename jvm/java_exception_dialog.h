#pragma once

#include <string>

namespace tarn {

/// The button that the user pressed.
enum class JavaExceptionAnswer { Ignore, Stop };

/// Shows the modal dialog "Java Exception" with a stack trace (`DialogBoxParamW`). The owner is the
/// active window of the calling thread, if it has one. A dialog that cannot be created counts as
/// Stop, with `ERROR_OUTOFMEMORY` as the last error.
JavaExceptionAnswer ShowJavaException(const std::wstring& trace);

}  // namespace tarn
