#pragma once

#include <string>

namespace tarn {

/// What the user decided about an application whose `main` ended with an exception.
enum class JavaExceptionAnswer { Ignore, Stop };

/// Shows the dialog "Java Exception" with the stack trace and waits for the answer, on the calling
/// thread; its active window, if it has one, is the owner. A dialog that cannot be shown counts as
/// Stop, with `ERROR_OUTOFMEMORY` as the last error: an application that failed unseen should not
/// stay behind.
JavaExceptionAnswer ShowJavaException(const std::wstring& trace);

}  // namespace tarn
