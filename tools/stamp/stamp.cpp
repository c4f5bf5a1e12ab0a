#include "tools/stamp/stamp.h"

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/image/executable.h"
#include "tools/image/string_table.h"
#include "tools/image/version_info.h"
#include "tools/java/zip_end.h"

namespace tarn::tools {
namespace {

constexpr std::uint16_t kVersionNumber = 1;
constexpr std::uint16_t kManifestNumber = 1;  // the id that the loader uses for a process
constexpr std::size_t kSignatureAlignment = 8;

const ResourceName kSettingsName(std::u16string(u"SETTINGS"));

void SetVersion(ResourceTree& tree, const StampChanges& changes) {
    if (changes.version.empty() && changes.versionTexts.empty()) return;
    const Bytes* const present = FindResource(tree, kResourceVersion, kVersionNumber);
    VersionInfo info = present != nullptr ? ReadVersionInfo(*present) : VersionInfo();
    if (!changes.version.empty()) {
        info.fileVersion = info.productVersion = VersionNumberOf(changes.version);
        info.SetText("FileVersion", changes.version);
        info.SetText("ProductVersion", changes.version);
    }
    for (const auto& [name, text] : changes.versionTexts) info.SetText(name, text);
    ReplaceResource(tree, kResourceVersion, kVersionNumber, WriteVersionInfo(info));
}

// The placeholders "%s" and "%d" in order, which the launcher replaces.
std::string PlaceholdersOf(std::string_view text) {
    std::string found;
    for (std::size_t at = text.find('%'); at != std::string_view::npos;
         at = text.find('%', at + 1)) {
        const std::string_view word = text.substr(at, 2);
        if (word == "%s" || word == "%d") found += word;
    }
    return found;
}

void SetStrings(ResourceTree& tree, const StampChanges& changes,
                std::vector<std::string>& warnings) {
    for (const auto& [id, text] : changes.strings) {
        const std::string present = PlaceholdersOf(StringOf(tree, id));
        if (PlaceholdersOf(text) != present) {
            warnings.push_back("text " + std::to_string(id) + " had " +
                               (present.empty() ? "no placeholders" : present) +
                               ", the new one differs: details will be missing or misplaced");
        }
        SetString(tree, id, text);
    }
}

void SetManifest(ResourceTree& tree, const StampChanges& changes) {
    const ManifestChanges& edits = changes.manifestChanges;
    if (!changes.manifest && !edits.requiresAdministrator && !edits.usesUtf8) return;
    const Bytes* const present = changes.manifest
                                     ? &*changes.manifest
                                     : FindResource(tree, kResourceManifest, kManifestNumber);
    if (present == nullptr) throw Failure("has no manifest that could be changed; specify one");
    ReplaceResource(tree, kResourceManifest, kManifestNumber, ChangedManifest(*present, edits));
}

// Padding before a jar, so that the file ends where a signature can follow.
std::size_t PaddingFor(std::size_t offset, std::size_t size) {
    return AlignedUp(offset + size, kSignatureAlignment) - offset - size;
}

bool IsOnlyPadding(const Bytes& overlay) {
    return overlay.size() < kSignatureAlignment &&
           std::all_of(overlay.begin(), overlay.end(),
                       [](std::byte value) { return value == std::byte{0}; });
}

void SetJar(Executable& executable, const std::optional<Bytes>& jar) {
    Bytes overlay = executable.Overlay();
    // A removed signature and an appended jar leave up to seven zeros of padding.
    const std::optional<ZipPlace> place = FindZip(overlay);
    Bytes present;
    if (place) {
        present.assign(overlay.begin() + static_cast<std::ptrdiff_t>(place->begin),
                       overlay.begin() + static_cast<std::ptrdiff_t>(place->end));
        overlay.resize(place->begin);
    }
    if (IsOnlyPadding(overlay)) overlay.clear();
    const Bytes wanted = jar ? WithoutZip64Records(*jar) : present;
    if (!wanted.empty()) {
        const std::size_t used = executable.OverlayOffset() + overlay.size();
        overlay.resize(overlay.size() + PaddingFor(used, wanted.size()));
        overlay.insert(overlay.end(), wanted.begin(), wanted.end());
    }
    executable.SetOverlay(std::move(overlay));
}

}  // namespace

Bytes Stamp(ByteSpan content, const StampChanges& changes, std::vector<std::string>& warnings) {
    Executable executable(content);
    if (executable.IsSigned()) {
        if (!changes.dropsSignature) {
            throw Failure(
                "is signed, and a change invalidates the signature; sign after stamping, or use "
                "--drop-signature");
        }
        executable.DropSignature();
    }
    ResourceTree tree = executable.Resources();
    if (!changes.icon.empty()) SetIcon(tree, changes.icon);
    SetVersion(tree, changes);
    SetStrings(tree, changes, warnings);
    if (changes.settings && changes.settings->empty()) {
        RemoveResource(tree, kResourceData, kSettingsName);
    } else if (changes.settings) {
        const auto settings = AsBytes(*changes.settings);
        ReplaceResource(tree, kResourceData, kSettingsName,
                        Bytes(settings.begin(), settings.end()));
    }
    SetManifest(tree, changes);
    executable.SetResources(tree);
    SetJar(executable, changes.jar);
    return executable.Content();
}

}  // namespace tarn::tools
