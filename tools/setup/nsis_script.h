#pragma once

#include <string>
#include <vector>

#include "tools/setup/package_content.h"
#include "tools/setup/product.h"
#include "tools/setup/setup_request.h"

namespace tarn::tools {

/// The most bytes that a setup program made by NSIS can contain.
inline constexpr std::uint64_t kLargestNsisContent = 2'000'000'000;

/// The most bytes that are compressed as one stream by LZMA, at about 2 MB per second. More is
/// compressed file by file by Deflate, which is ten times as fast.
inline constexpr std::uint64_t kLargestSolidContent = std::uint64_t{200} << 20;

/// The inputs of the script in its folder.
inline constexpr char kNsisResult[] = "installer.exe";
inline constexpr char kNsisIcon[] = "setup.ico";
inline constexpr char kNsisList[] = "installed.txt";

struct NsisInput {
    const SetupRequest& request;
    const Product& product;
    const PackageContent& content;
    std::vector<RegistryValue> values;

    std::string signedExecutable;  // in the script's folder; empty when there is no --sign
    std::string licenseFile;       // in the script's folder; empty without --license

    /// The command of the system's shell that signs the uninstaller, with "%1" for its path; empty
    /// when there is no --sign.
    std::string signUninstaller;
};

/// The script that makensis compiles: the same text for the same input. UTF-8.
std::string NsisScript(const NsisInput& input);

}  // namespace tarn::tools
