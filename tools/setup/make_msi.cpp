#include "tools/setup/make_msi.h"

#include <chrono>
#include <string>
#include <vector>

#include "tools/common/failure.h"
#include "tools/common/sha256.h"
#include "tools/common/system.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/setup/association.h"
#include "tools/setup/msi_source.h"
#include "tools/setup/msi_tables.h"
#include "tools/setup/msi_text.h"
#include "tools/setup/packaging_tool.h"

namespace tarn::tools {
namespace fs = std::filesystem;

namespace {

constexpr char kResult[] = "package.msi";
constexpr char kSource[] = "package.wxs";
constexpr char kCodePageTable[] = "_ForceCodepage.idt";
constexpr char kSummaryTable[] = "_SummaryInformation.idt";
constexpr char kCommands[] = "commands.txt";

// wixl finds sources only below the folder in which it runs, and none with certain characters in
// their names.
void LinkFiles(const PackageContent& content, const fs::path& work) {
    fs::create_directory(work / fs::path(MsiSourceName(1)).parent_path());
    std::size_t number = 0;
    for (const PackageFile& file : content.files) {
        const fs::path link = work / MsiSourceName(++number);
        std::error_code error;
        fs::create_symlink(file.source, link, error);
        if (!error) continue;
        // Windows allows links to developers and administrators only.
        CopyToNewFile(file.source, link, [](std::uintmax_t) {});
        fs::last_write_time(link, file.time);
    }
}

// For --script: how the files in the folder become an MSI.
std::string CommandsText(const std::vector<std::string>& wixl,
                         const std::vector<std::string>& msibuild) {
    std::string text = "# In this folder, with TZ=UTC in the environment:\nwixl";
    const auto add = [&](const std::vector<std::string>& arguments) {
        for (const std::string& argument : arguments) {
            const bool isQuoted = argument.find_first_of(" $;`'") != std::string::npos;
            std::string shown;
            for (const char character : argument) {
                if (character == '\'') {
                    shown += "'\\''";
                } else {
                    shown += character;
                }
            }
            text += isQuoted ? " '" + shown + "'" : ' ' + shown;
        }
        text += '\n';
    };
    add(wixl);
    text += "msibuild";
    add(msibuild);
    return text;
}

}  // namespace

MsiCodes MsiCodesOf(const SetupRequest& request, const Product& product,
                    const PackageContent& content) {
    Sha256 sha256;
    for (const PackageFile& file : content.files) {
        // The clock of files counts from another day in each standard library.
        const auto time =
            std::chrono::floor<std::chrono::seconds>(std::chrono::file_clock::to_sys(file.time));
        sha256.Add(file.path + '\n' + std::to_string(time.time_since_epoch().count()) + '\n');
        sha256.Add(Sha256OfFile(file.source));
    }
    for (const std::string& folder : content.folders) sha256.Add(folder + '\n');
    for (const RegistryValue& value :
         AssociationValues(product, request.associations, request.protocols)) {
        sha256.Add(value.key + '\n' + value.name + '\n' + value.data + '\n');
    }
    sha256.Add(product.name + '\n' + product.vendor + '\n' + product.fileName + '\n');
    sha256.Add(request.desktopShortcut ? "desktop" : "");
    const std::string scope = request.perMachine ? "\nmachine\n" : "\nuser\n";
    const std::string version = product.version + scope + HexOf(sha256.Finish());
    return {GuidOf("upgrade", product.id), GuidOf("product", product.id + '\n' + version),
            GuidOf("package", product.id + '\n' + version)};
}

fs::path MakeMsi(const SetupRequest& request, const Product& product, const PackageContent& content,
                 const MsiCodes& codes, const fs::path& work) {
    MsiPlan plan;
    plan.product = product;
    plan.content = content;
    plan.values = AssociationValues(product, request.associations, request.protocols);
    plan.codes = codes;
    plan.perMachine = request.perMachine;
    plan.desktopShortcut = request.desktopShortcut;
    for (PackageFile& file : plan.content.files) {
        const bool isSigned = !request.signCommand.empty() && file.path == product.executable;
        if (isSigned) file.source = work / PathOf(product.executable);
    }

    LinkFiles(plan.content, work);
    if (!product.icon.empty()) WriteNewFile(work / kMsiIcon, product.icon);
    WriteNewFile(work / kSource, AsBytes(WixSource(plan)));
    WriteNewFile(work / kCodePageTable, AsBytes(CodePageTable()));
    WriteNewFile(work / kSummaryTable, AsBytes(SummaryTable(plan)));

    const std::vector<std::string> wixl = {
        "-a", "x64", "-D", std::string(kDollarVariable) + "=$", "-o", kResult, kSource};
    std::vector<std::string> msibuild = {kResult, "-i", kCodePageTable, "-i", kSummaryTable};
    for (const std::string& change : TableChanges(plan)) {
        msibuild.insert(msibuild.end(), {"-q", change});
    }
    WriteNewFile(work / kCommands, AsBytes(CommandsText(wixl, msibuild)));

    // Both tools write local times.
    UseUtc();
    const std::string output = RunTool(WixlTool(), wixl, work, "the MSI");
    // It drops what it does not understand, and succeeds.
    if (output.find("CRITICAL") != std::string::npos) {
        throw Failure("wixl could not make the MSI:" + LastLines(output));
    }
    RunTool(MsibuildTool(), msibuild, work, "the MSI");
    return work / kResult;
}

}  // namespace tarn::tools
