#pragma once

#include "tools/common/byte_io.h"

namespace tarn::tools {

/// Throws Failure, without the file's name, unless the executable is a Tarn launcher, which its
/// messages identify: they remain when it is stamped.
void CheckIsLauncher(ByteSpan executable);

/// The same as an answer; false for what is not an executable, too.
bool IsLauncher(ByteSpan executable);

}  // namespace tarn::tools
