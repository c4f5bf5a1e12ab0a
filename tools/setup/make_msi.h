#pragma once

#include <filesystem>

#include "tools/setup/msi_codes.h"
#include "tools/setup/package_content.h"
#include "tools/setup/product.h"
#include "tools/setup/setup_request.h"

namespace tarn::tools {

/// The codes of the product in this version with this content, which does not contain signatures.
/// Reads all files. Throws Failure.
MsiCodes MsiCodesOf(const SetupRequest& request, const Product& product,
                    const PackageContent& content);

/// Writes the input of `wixl` and `msibuild` to the folder `work`, runs them there and returns the
/// MSI, still unsigned. With --sign, `work` contains the signed executable. `CheckMsi` has accepted
/// product and content. Throws Failure.
std::filesystem::path MakeMsi(const SetupRequest& request, const Product& product,
                              const PackageContent& content, const MsiCodes& codes,
                              const std::filesystem::path& work);

}  // namespace tarn::tools
