#pragma once

#include <filesystem>
#include <vector>

#include "tools/common/console.h"
#include "tools/setup/msi_codes.h"
#include "tools/setup/package_manifests.h"
#include "tools/setup/product.h"
#include "tools/setup/setup_request.h"

namespace tarn::tools {

/// What package managers learn of a setup program that --url announces. `codes` are those of an
/// MSI. The hash is that of no file yet.
PublishedSetup PublicationOf(const SetupRequest& request, const Product& product,
                             const MsiCodes& codes);

/// Throws Failure when a manifest of winget cannot be written beside `result`: for values that its
/// schema does not accept, and for files that exist unless the request replaces them.
void CheckPublication(const SetupRequest& request, const PublishedSetup& setup,
                      const std::filesystem::path& result);

/// Writes the manifests beside the finished setup program. What scoop does not accept leaves its
/// manifest out, with a warning. Throws Failure.
void Publish(PublishedSetup setup, const std::filesystem::path& result, const Console& console);

}  // namespace tarn::tools
