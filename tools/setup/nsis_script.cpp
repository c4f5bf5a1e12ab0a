#include "tools/setup/nsis_script.h"

#include <chrono>
#include <map>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/setup/class_archives.h"
#include "tools/setup/installed_list.h"
#include "tools/setup/nsis_body.h"
#include "tools/setup/nsis_text.h"

namespace tarn::tools {
namespace {

constexpr std::uint64_t kKib = 1024;

// In a window's text "&" marks the next letter.
std::string WithDoubledAmpersands(std::string_view text) {
    std::string doubled;
    for (const char character : text) doubled.append(character == '&' ? 2 : 1, character);
    return doubled;
}

void AddQuoted(std::string& script, const std::string& text) {
    script += " \"";
    script += text;
    script += '"';
}

// A time as a FILETIME: the number of 100-nanosecond steps since 1601.
std::int64_t FileTimeOf(std::filesystem::file_time_type time) {
    constexpr std::int64_t kUnixEpoch = 116'444'736'000'000'000;
    const auto since = std::chrono::file_clock::to_sys(time).time_since_epoch();
    return std::chrono::floor<std::chrono::nanoseconds>(since).count() / 100 + kUnixEpoch;
}

// The path of a file to pack. Not by a definition of NSIS, which would evaluate the text twice.
std::string SourceOf(const NsisInput& input, const std::string& path) {
    const std::string folder = Utf8OfPath(std::filesystem::absolute(input.request.folder));
    return NsisLiteral(folder + "/" + path);
}

// The files, each extracted to its place below the staging folder.
std::string FileStatements(const NsisInput& input) {
    std::string script;
    std::string current = "/";  // no folder has this name
    for (const PackageFile& file : input.content.files) {
        const std::size_t slash = file.path.rfind('/');
        const std::string folder = slash == std::string::npos ? "" : file.path.substr(0, slash);
        if (folder != current) {
            script += "  SetOutPath \"$Staging";
            if (!folder.empty()) script += '\\';
            script += NsisPath(folder);
            script += "\"\n";
            current = folder;
        }
        const bool isSigned =
            !input.signedExecutable.empty() && file.path == input.product.executable;
        script += "  File \"/oname=";
        script += NsisString(file.path.substr(slash + 1));
        script += "\" \"";
        script += isSigned ? NsisLiteral(input.signedExecutable) : SourceOf(input, file.path);
        script += "\"\n  StrCpy $0 \"$OUTDIR\\";
        script += NsisString(file.path.substr(slash + 1));
        script += "\"\n  StrCpy $1 " + std::to_string(FileTimeOf(file.time));
        script += "\n  Call SetTime\n";
    }
    return script;
}

// The installation folder itself is the first: makensis warns about a function without a call.
std::string FolderStatements(const PackageContent& content) {
    std::vector<std::string> folders = {"."};
    folders.insert(folders.end(), content.folders.begin(), content.folders.end());
    std::string script;
    for (const std::string& folder : folders) {
        script += "  StrCpy $Line \"" + NsisPath(folder) + "\"\n  Call MakeFolder\n";
    }
    return script;
}

// The data of a registry value: the mark becomes the installation folder.
std::string DataOf(const RegistryValue& value) {
    std::string text;
    std::size_t begin = 0;
    for (std::size_t at = value.data.find(kInstallFolderMark); at != std::string::npos;
         at = value.data.find(kInstallFolderMark, begin)) {
        text += NsisString(value.data.substr(begin, at - begin)) + "$INSTDIR";
        begin = at + 1;
    }
    return text + NsisString(value.data.substr(begin));
}

// No text is passed to a macro of NSIS, which would evaluate it twice.
std::string RegistryStatements(const std::vector<RegistryValue>& values, const std::string& root) {
    std::string script;
    for (const RegistryValue& value : values) {
        if (value.onlyIfFree) {
            script += "  ReadRegStr $0 HKCR";
            AddQuoted(script, NsisString(value.classesKey));
            script += " \"\"\n  ${If} $0 == \"\"\n  ";
        }
        script += "  WriteRegStr ";
        script += root;
        AddQuoted(script, NsisString(value.key));
        AddQuoted(script, NsisString(value.name));
        AddQuoted(script, DataOf(value));
        script += value.onlyIfFree ? "\n  ${EndIf}\n" : "\n";
    }
    return script;
}

std::string ShortcutStatements(const SetupRequest& request) {
    std::string script = "  !insertmacro MakeShortcut $SMPROGRAMS\n";
    if (request.desktopShortcut) script += "  !insertmacro MakeShortcut $DESKTOP\n";
    return script;
}

std::string VersionStatements(const Product& product) {
    const std::string number = VersionText(product.number);
    std::string script = "VIProductVersion \"" + number + "\"\nVIFileVersion \"" + number + "\"\n";
    const auto add = [&](const char* name, const std::string& text) {
        if (text.empty()) return;
        script += std::string("VIAddVersionKey /LANG=1033 \"") + name + "\" \"" + NsisString(text) +
                  "\"\n";
    };
    add("ProductName", product.name);
    add("FileDescription", product.name);
    add("FileVersion", product.version);
    add("ProductVersion", product.version);
    add("CompanyName", product.vendor);
    // A notice is required; the vendor's name replaces a missing one, as in the executable.
    const std::string& vendor = product.vendor.empty() ? product.name : product.vendor;
    add("LegalCopyright", product.copyright.empty() ? vendor : product.copyright);
    return script;
}

// Replaces the words in one pass, so that nothing in their texts is replaced.
std::string Filled(std::string_view body, const std::map<std::string_view, std::string>& words) {
    std::string text;
    for (;;) {
        const std::size_t begin = body.find('@');
        if (begin == std::string_view::npos) return text.append(body);
        const std::size_t end = body.find('@', begin + 1);
        text.append(body.substr(0, begin));
        text += words.at(body.substr(begin + 1, end - begin - 1));
        body.remove_prefix(end + 1);
    }
}

}  // namespace

std::string NsisScript(const NsisInput& input) {
    const Product& product = input.product;
    const SetupRequest& request = input.request;
    const std::string settings = SettingsFileOf(product, input.content);
    const std::map<std::string_view, std::string> words = {
        {"ARCHIVES", kArchivePattern},
        {"COMPRESSOR", input.content.size > kLargestSolidContent ? "zlib" : "/SOLID lzma"},
        {"OUTPUT", kNsisResult},
        {"ICON", product.icon.empty() ? std::string()
                                      : "!define MUI_ICON \"setup.ico\"\n"
                                        "!define MUI_UNICON \"setup.ico\""},
        {"NAME", NsisString(product.name)},
        {"DOUBLED_NAME", NsisString(WithDoubledAmpersands(product.name))},
        {"VERSION", NsisString(product.version)},
        {"NUMBER", VersionText(product.number)},
        {"VENDOR", NsisString(product.vendor)},
        {"DESCRIPTION", NsisString(product.description)},
        {"ID", product.id},
        {"FILE_NAME", NsisString(product.fileName)},
        {"EXECUTABLE", NsisString(product.executable)},
        {"SETTINGS", NsisString(settings)},
        {"SETTINGS_FILE",
         settings.empty() ? std::string()
                          : "File \"/oname=uninstall.ini\" \"" + SourceOf(input, settings) + "\""},
        {"LEVEL", request.perMachine ? "admin" : "user"},
        {"ROOT", request.perMachine ? "HKLM" : "HKCU"},
        {"CONTEXT", request.perMachine ? "all" : "current"},
        {"PROGRAMS", request.perMachine ? "$PROGRAMFILES64" : "$LOCALAPPDATA\\Programs"},
        // The shell starts it with the user's rights, not with setup's.
        {"START", request.perMachine ? "$\\\"$WINDIR\\explorer.exe$\\\" " : ""},
        {"LICENSE_PAGE", input.licenseFile.empty()
                             ? std::string()
                             : "!insertmacro MUI_PAGE_LICENSE \"" + input.licenseFile + "\""},
        {"SIGN", input.signUninstaller.empty()
                     ? std::string()
                     : "!uninstfinalize '" + input.signUninstaller + "' = 0"},
        {"LANGUAGES", NsisLanguages()},
        {"VERSION_INFORMATION", VersionStatements(product)},
        {"LONGEST_PATH", std::to_string(input.content.LongestPath())},
        {"SIZE", std::to_string((input.content.size + kKib - 1) / kKib)},
        {"FILES", FileStatements(input)},
        {"FOLDERS", FolderStatements(input.content)},
        {"SHORTCUTS", ShortcutStatements(request)},
        {"REGISTRY", RegistryStatements(input.values, request.perMachine ? "HKLM" : "HKCU")},
    };
    return Filled(NsisHead(), words) + Filled(NsisReplacement(), words) +
           Filled(NsisSections(), words);
}

}  // namespace tarn::tools
