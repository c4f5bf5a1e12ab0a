#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tools/setup/association.h"

namespace tarn::tools {

/// The kind of setup program.
enum class SetupKind {
    Executable,  // by makensis
    Msi,         // by wixl
};

/// The options of `tarn setup`. Texts are UTF-8; empty ones default to what the executable's
/// version information contains.
struct SetupRequest {
    std::filesystem::path folder;  // created by `tarn wrap`
    std::filesystem::path out;     // default: NAME-VERSION-setup.exe in the current directory
    std::filesystem::path script;  // folder to create with the script; empty: a temporary one
    SetupKind kind = SetupKind::Executable;
    std::string executable;  // default: the only launcher in the folder
    std::string name;
    std::string version;
    std::string vendor;
    std::string description;
    std::string id;                 // default: derived from vendor and name
    std::filesystem::path license;  // text (UTF-8) or RTF
    std::vector<Association> associations;
    std::vector<Protocol> protocols;
    std::string signCommand;
    std::string url;          // where the result will be offered: makes the manifests
    std::string homepage;     // for the manifests; default: the site of `url`
    std::string licenseName;  // for the manifests; default: "Proprietary"
    bool perMachine = false;
    bool desktopShortcut = false;
    bool replaces = false;  // an existing result
};

}  // namespace tarn::tools
