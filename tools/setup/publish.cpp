#include "tools/setup/publish.h"

#include "tools/common/failure.h"
#include "tools/common/sha256.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/setup/work_folder.h"

namespace tarn::tools {
namespace fs = std::filesystem;

PublishedSetup PublicationOf(const SetupRequest& request, const Product& product,
                             const MsiCodes& codes) {
    PublishedSetup setup;
    const std::string& vendor = product.vendor.empty() ? product.name : product.vendor;
    setup.packageId = PackageIdOf(vendor, product.name);
    setup.name = product.name;
    setup.version = product.version;
    setup.vendor = vendor;
    setup.description = product.description;
    setup.copyright = product.copyright;
    setup.license = request.licenseName;
    setup.homepage = request.homepage;
    setup.url = request.url;
    setup.sha256 = std::string(64, '0');
    setup.executable = product.executable;
    setup.folder = product.fileName;
    setup.perMachine = request.perMachine;
    setup.isMsi = request.kind == SetupKind::Msi;
    setup.displayVersion = setup.isMsi ? MsiVersionOf(product.number) : product.version;
    setup.productCode = setup.isMsi ? codes.product : product.id;
    setup.upgradeCode = setup.isMsi ? codes.upgrade : std::string();
    for (const Association& association : request.associations) {
        setup.fileExtensions.push_back(association.extension.substr(1));
    }
    for (const Protocol& protocol : request.protocols) setup.protocols.push_back(protocol.scheme);
    return setup;
}

void CheckPublication(const SetupRequest& request, const PublishedSetup& setup,
                      const fs::path& result) {
    for (const ManifestFile& file : WingetManifest(setup)) {
        CheckResultPath(fs::absolute(result).parent_path() / PathOf(file.name), request.replaces);
    }
}

void Publish(PublishedSetup setup, const fs::path& result, const Console& console) {
    setup.sha256 = HexOf(Sha256OfFile(result));
    std::vector<ManifestFile> files = WingetManifest(setup);
    try {
        files.push_back(ScoopManifest(setup));
    } catch (const Failure& failure) {
        console.PrintWarning(std::string("no manifest for scoop: ") + failure.what());
    }
    for (const ManifestFile& file : files) {
        const fs::path path = result.parent_path() / PathOf(file.name);
        WriteWholeFile(path, file.text);
        console.PrintLine(Utf8OfPath(path));
    }
}

}  // namespace tarn::tools
