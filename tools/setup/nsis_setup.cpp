#include "tools/setup/nsis_setup.h"

#include "tools/common/byte_io.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/setup/installed_list.h"
#include "tools/setup/nsis_script.h"
#include "tools/setup/packaging_tool.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

constexpr char kScript[] = "setup.nsi";
constexpr std::uintmax_t kLargestLicense = 4U << 20U;
constexpr char16_t kByteOrderMark = 0xFEFF;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

Bytes Utf16File(std::string_view text) {
    ByteWriter writer;
    writer.U16(kByteOrderMark);
    writer.Text(Utf16Of(text));
    return writer.Take();
}

void CheckForNsis(const SetupRequest& request, const PackageContent& content) {
    CheckReservedNames(content);
    if (content.size > kLargestNsisContent) {
        throw Failure(request.folder, "has " + std::to_string(content.size >> 20U) +
                                          " MiB; a setup program made by makensis can contain "
                                          "2 GB at most");
    }
    const std::string path = Utf8OfPath(fs::absolute(request.folder));
    const char* const special = "*?\"\n\r";
    if (path.find_first_of(special) != std::string::npos) {
        throw Failure(request.folder, "makensis does not accept the characters * ? \" in a path");
    }
#ifndef _WIN32
    if (path.find('\\') != std::string::npos) {
        throw Failure(request.folder, "makensis does not accept a backslash in a name");
    }
#endif
}

// The script that signs the uninstaller while makensis runs; returns the command for makensis.
// Written to a file, because a command has another quoting in a script of NSIS. makensis changes
// the current directory, to which paths in the command are relative.
std::string WriteSigningScript(const std::string& command, const fs::path& work) {
    const std::string current = Utf8OfPath(fs::current_path());
#ifdef _WIN32
    WriteNewFile(work / "sign_uninstaller.cmd", AsBytes("@chcp 65001 >nul\r\n@cd /d \"" + current +
                                                        "\"\r\n@" + command + " %1\r\n"));
    return "sign_uninstaller.cmd \"%1\"";
#else
    std::string quoted;
    for (const char character : current) {
        if (character == '\'') {
            quoted += "'\\''";
        } else {
            quoted += character;
        }
    }
    std::string script = "cd '";
    script += quoted;
    script += "' || exit\n";
    script += command;
    script += " \"$1\"\n";
    WriteNewFile(work / "sign_uninstaller.sh", AsBytes(script));
    return "sh ./sign_uninstaller.sh \"%1\"";
#endif
}

}  // namespace

Bytes NsisLicense(const Bytes& file) {
    std::string_view text = AsText(file);
    if (text.starts_with("{\\rtf")) return file;
    if (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
    if (text.find('\0') != std::string_view::npos || Utf8Of(Utf16Of(text)) != text) {
        throw Failure("is not UTF-8 text; convert it");
    }
    std::string lines;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n' && (at == 0 || text[at - 1] != '\r')) lines += '\r';
        lines += text[at];
    }
    return Utf16File(lines);
}

fs::path MakeNsisSetup(const SetupRequest& request, const Product& product,
                       const PackageContent& content, const fs::path& work) {
    CheckForNsis(request, content);
    NsisInput input = {request, product, content, {}, {}, {}, {}};
    input.values = AssociationValues(product, request.associations, request.protocols);
    if (!request.signCommand.empty()) {
        input.signedExecutable = product.executable;
        input.signUninstaller = WriteSigningScript(request.signCommand, work);
    }
    if (!request.license.empty()) {
        const Bytes text = ReadWholeFile(request.license, kLargestLicense);
        const Bytes license = WithFileName(request.license, [&] { return NsisLicense(text); });
        input.licenseFile = AsText(license).starts_with("{\\rtf") ? "license.rtf" : "license.txt";
        WriteNewFile(work / input.licenseFile, license);
    }
    if (!product.icon.empty()) WriteNewFile(work / kNsisIcon, product.icon);
    WriteNewFile(work / kNsisList,
                 Utf16File(InstalledList(request, product, content, input.values)));
    WriteNewFile(work / kScript, AsBytes(NsisScript(input)));
    RunTool(MakensisTool(), {"-V2", "-INPUTCHARSET", "UTF8", kScript}, work, "the setup program");
    return work / kNsisResult;
}

}  // namespace tarn::tools
