#pragma once

#include <filesystem>

#include "tools/setup/package_content.h"
#include "tools/setup/product.h"
#include "tools/setup/setup_request.h"

namespace tarn::tools {

/// Writes the NSIS script and its inputs to the folder `work`, runs makensis there and returns the
/// setup program, still unsigned. With --sign, `work` contains the signed executable. Throws
/// Failure.
std::filesystem::path MakeNsisSetup(const SetupRequest& request, const Product& product,
                                    const PackageContent& content,
                                    const std::filesystem::path& work);

/// A license text as NSIS shows it: RTF unchanged, any other text as UTF-16 with a byte order mark
/// and CR LF. Throws Failure, without the file's name, for anything that is not UTF-8.
Bytes NsisLicense(const Bytes& file);

}  // namespace tarn::tools
