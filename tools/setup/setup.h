#pragma once

#include <filesystem>

#include "tools/common/console.h"
#include "tools/setup/setup_request.h"

namespace tarn::tools {

/// Creates the setup program of a wrapped folder and returns its path. The same request and the
/// same files with the same times give the same bytes, but for signatures. Throws Failure and then
/// leaves nothing behind.
std::filesystem::path MakeSetup(const SetupRequest& request, const Console& console);

}  // namespace tarn::tools
