#include "tools/setup/setup.h"

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/setup/class_archives.h"
#include "tools/setup/make_msi.h"
#include "tools/setup/msi_limits.h"
#include "tools/setup/nsis_setup.h"
#include "tools/setup/package_content.h"
#include "tools/setup/packaging_tool.h"
#include "tools/setup/product.h"
#include "tools/setup/publish.h"
#include "tools/setup/work_folder.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

// Bytes that are announced even where standard error is not a terminal.
constexpr std::uint64_t kSlowContent = std::uint64_t{50} << 20U;

void CheckIcons(const SetupRequest& request, const PackageContent& content) {
    for (const Association& association : request.associations) {
        if (association.icon.empty() || content.Find(association.icon) != nullptr) continue;
        throw Failure("--associate " + association.extension + ": the icon " + association.icon +
                      " is not in the folder " + Utf8OfPath(request.folder) +
                      "; add it with tarn wrap --add");
    }
}

void CheckTwice(const SetupRequest& request) {
    const auto fail = [](const std::string& name) { throw Failure(name + " is specified twice"); };
    for (std::size_t at = 0; at < request.associations.size(); ++at) {
        for (std::size_t other = 0; other < at; ++other) {
            if (request.associations[at].extension == request.associations[other].extension) {
                fail("--associate " + request.associations[at].extension);
            }
        }
    }
    for (std::size_t at = 0; at < request.protocols.size(); ++at) {
        for (std::size_t other = 0; other < at; ++other) {
            if (request.protocols[at].scheme == request.protocols[other].scheme) {
                fail("--protocol " + request.protocols[at].scheme);
            }
        }
    }
}

fs::path ResultPath(const SetupRequest& request, const Product& product) {
    if (!request.out.empty()) return request.out;
    const char* const ending = request.kind == SetupKind::Msi ? ".msi" : "-setup.exe";
    return PathOf(FileNameOf(product.name + "-" + product.version) + ending);
}

// A signed copy of the executable, with the time of the original.
void SignExecutable(const SetupRequest& request, const Product& product,
                    const PackageContent& content, const fs::path& work) {
    const PackageFile* const executable = content.Find(product.executable);
    const fs::path copy = work / PathOf(product.executable);
    CopyToNewFile(executable->source, copy, [](std::uintmax_t) {});
    SignFile(request.signCommand, copy);
    std::error_code error;
    fs::last_write_time(copy, executable->time, error);
    if (error) throw Failure(copy, "the time cannot be set (" + error.message() + ")");
}

// The tools say nothing while they compress.
void ReportStart(const SetupRequest& request, const PackageContent& content,
                 const Console& console) {
    const PackagingTool tool = request.kind == SetupKind::Msi ? WixlTool() : MakensisTool();
    const std::string text = tool.name + " compresses " + std::to_string(content.size >> 20U) +
                             " MiB in " + std::to_string(content.files.size()) + " files";
    if (content.size >= kSlowContent) {
        console.PrintNote(text + ", which can take some minutes");
    } else {
        console.ShowProgress(text);
    }
}

}  // namespace

fs::path MakeSetup(const SetupRequest& request, const Console& console) {
    CheckTwice(request);
    Product product = ReadProduct(request);
    const PackageContent content = ListPackage(request.folder, product.fileName);
    product.archivePrefix = ArchivePrefixOf(product, content);
    CheckIcons(request, content);
    fs::path result = ResultPath(request, product);
    CheckResultPath(result, request.replaces);

    MsiCodes codes;
    if (request.kind == SetupKind::Msi) {
        CheckMsi(product, content,
                 AssociationValues(product, request.associations, request.protocols));
        codes = MsiCodesOf(request, product, content);
    }
    PublishedSetup publication;
    if (!request.url.empty()) {
        publication = PublicationOf(request, product, codes);
        CheckPublication(request, publication, result);
    }

    ReportStart(request, content, console);
    WorkFolder work(request.script);
    if (!request.signCommand.empty()) SignExecutable(request, product, content, work.Path());
    const fs::path made = request.kind == SetupKind::Msi
                              ? MakeMsi(request, product, content, codes, work.Path())
                              : MakeNsisSetup(request, product, content, work.Path());
    if (!request.signCommand.empty()) SignFile(request.signCommand, made);
    PlaceResult(made, result, request.replaces);
    std::error_code ignored;
    fs::remove(made, ignored);
    work.Keep();
    console.ShowProgress("");
    if (!request.url.empty()) Publish(publication, result, console);
    return result;
}

}  // namespace tarn::tools
