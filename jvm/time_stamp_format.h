#pragma once

#include <string>

#include "base/windows.h"

namespace tarn {

/// The name with its time-stamp picture, if it has one, replaced by that instant: milliseconds
/// first, then the pictures of `GetTimeFormatW`, then those of `GetDateFormatW`, in the user's
/// locale. A picture that either refuses, or that comes to 260 characters or more, leaves nothing.
std::wstring ExpandTimeStamp(const std::wstring& name, const SYSTEMTIME& time);

}  // namespace tarn
