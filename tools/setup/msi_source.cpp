#include "tools/setup/msi_source.h"

#include <initializer_list>
#include <map>
#include <pugixml/pugixml.hpp>
#include <set>
#include <sstream>

#include "tools/setup/msi_defaults.h"
#include "tools/setup/msi_text.h"

namespace tarn::tools {
namespace {

using pugi::xml_node;

// Windows publishes the components of a feature in one registry value of 64 KiB.
constexpr std::size_t kComponentsInFeature = 800;

using Attributes = std::initializer_list<std::pair<const char*, std::string>>;

xml_node Add(xml_node parent, const char* name, Attributes attributes) {
    xml_node node = parent.append_child(name);
    for (const auto& [key, value] : attributes) {
        node.append_attribute(key).set_value(WixText(value).c_str());
    }
    return node;
}

/// Collects the components while the tree of directories is built.
class SourceWriter {
  public:
    explicit SourceWriter(const MsiPlan& plan) : plan_(plan) {}

    std::string Text() {
        xml_node declaration = document_.append_child(pugi::node_declaration);
        declaration.append_attribute("version") = "1.0";
        declaration.append_attribute("encoding") = "UTF-8";
        xml_node root = Add(document_, "Wix", {{"xmlns", kNamespace}});
        product_ = Add(root, "Product",
                       {{"Id", plan_.codes.product},
                        {"UpgradeCode", plan_.codes.upgrade},
                        {"Name", plan_.product.name},
                        {"Version", MsiVersionOf(plan_.product.number)},
                        {"Manufacturer", Vendor()},
                        {"Language", kLanguage}});
        AddHead();
        AddDirectories();
        AddFeatures();
        std::ostringstream text;
        document_.save(text, "  ");
        return text.str();
    }

  private:
    static constexpr char kNamespace[] = "http://schemas.microsoft.com/wix/2006/wi";
    static constexpr char kLanguage[] = "1033";  // English (United States)

    const std::string& Vendor() const {
        return plan_.product.vendor.empty() ? plan_.product.name : plan_.product.vendor;
    }
    std::string Root() const { return plan_.perMachine ? "HKLM" : "HKCU"; }

    void AddHead() {
        Add(product_, "Package",
            {{"InstallerVersion", "500"},
             {"Compressed", "yes"},
             {"InstallScope", plan_.perMachine ? "perMachine" : "perUser"},
             {"Description", plan_.product.name},
             {"Manufacturer", Vendor()}});
        Add(product_, "Media", {{"Id", "1"}, {"Cabinet", "files.cab"}, {"EmbedCab", "yes"}});
        AddUpgrade();
        if (!plan_.product.icon.empty()) {
            Add(product_, "Icon", {{"Id", kMsiIcon}, {"SourceFile", kMsiIcon}});
            AddProperty("ARPPRODUCTICON", kMsiIcon);
        }
        AddProperty("ARPNOMODIFY", "1");
        // Files are replaced whatever their version resources say: a runtime may go back to an
        // older one, and wixl does not enter versions into the table of files.
        AddProperty("REINSTALLMODE", "amus");
        for (const MsiDefault& found : MsiDefaultsOf(plan_.product, plan_.values)) {
            xml_node property = AddProperty(found.property.c_str(), {});
            Add(property, "RegistrySearch",
                {{"Id", "search" + found.property},
                 {"Root", "HKCR"},
                 {"Key", FormattedText(found.classesKey)},
                 {"Name", ""},
                 {"Type", "raw"}});
            AddProperty(found.ownProperty.c_str(), found.own);
        }
    }

    xml_node AddProperty(const char* name, const std::string& value) {
        return value.empty() ? Add(product_, "Property", {{"Id", name}})
                             : Add(product_, "Property", {{"Id", name}, {"Value", value}});
    }

    void AddUpgrade() {
        const std::string version = MsiVersionOf(plan_.product.number);
        const std::string after = MsiVersionAfter(plan_.product.number);
        xml_node upgrade = Add(product_, "Upgrade", {{"Id", plan_.codes.upgrade}});
        // Another build of the same version is replaced, too.
        Add(upgrade, "UpgradeVersion",
            {{"Property", "OLDERVERSION"},
             {"Minimum", "0.0.0"},
             {"IncludeMinimum", "yes"},
             {"Maximum", after.empty() ? version : after}});
        Add(upgrade, "UpgradeVersion",
            {{"Property", "NEWERVERSION"},
             {"Minimum", version},
             {"IncludeMinimum", "no"},
             {"OnlyDetect", "yes"}});
        Add(product_, "Condition",
            {{"Message", "A newer version of [ProductName] is installed already."}})
            .text()
            .set("NOT NEWERVERSION");
        Add(product_, "CustomAction",
            {{"Id", "SetLocation"}, {"Property", "ARPINSTALLLOCATION"}, {"Value", "[INSTALLDIR]"}});
        xml_node sequence = Add(product_, "InstallExecuteSequence", {});
        // After InstallInitialize, so that a failure brings the old version back.
        Add(sequence, "RemoveExistingProducts", {{"After", "InstallInitialize"}});
        Add(sequence, "Custom", {{"Action", "SetLocation"}, {"After", "CostFinalize"}});
    }

    void AddDirectories() {
        xml_node target = Add(product_, "Directory", {{"Id", "TARGETDIR"}, {"Name", "SourceDir"}});
        xml_node parent = plan_.perMachine
                              ? Add(target, "Directory", {{"Id", "ProgramFiles64Folder"}})
                              : Add(Add(target, "Directory", {{"Id", "LocalAppDataFolder"}}),
                                    "Directory", {{"Id", "ProgramsFolder"}, {"Name", "Programs"}});
        xml_node install =
            Add(parent, "Directory", {{"Id", "INSTALLDIR"}, {"Name", plan_.product.fileName}});
        Add(target, "Directory", {{"Id", "ProgramMenuFolder"}});
        if (plan_.desktopShortcut) Add(target, "Directory", {{"Id", "DesktopFolder"}});
        AddFiles(install);
        AddValues(install);
    }

    void AddFiles(xml_node install) {
        std::map<std::string, xml_node> folders = {{"", install}};
        std::set<std::string> filled;
        std::vector<std::pair<std::string, xml_node>> empty;
        for (const PackageFile& file : plan_.content.files) filled.insert(FolderOf(file.path));
        for (const std::string& path : plan_.content.folders) filled.insert(FolderOf(path));
        for (const std::string& path : plan_.content.folders) {
            xml_node folder = Add(folders.at(FolderOf(path)), "Directory",
                                  {{"Id", "folder" + std::to_string(folders.size())},
                                   {"Name", path.substr(path.rfind('/') + 1)}});
            folders.emplace(path, folder);
            if (filled.count(path) == 0) empty.push_back({path, folder});
        }
        // Empty folders are removed in this order, after the files: the installation folder last.
        if (!empty.empty()) empty.push_back({"", install});
        for (auto& [path, folder] : empty) {
            Add(AddComponent(folder, "folder " + path), "CreateFolder", {});
        }
        std::size_t number = 0;
        for (const PackageFile& file : plan_.content.files) {
            xml_node component = AddComponent(folders.at(FolderOf(file.path)), "file " + file.path);
            Add(component, "File",
                {{"Id", "file" + std::to_string(++number)},
                 {"Name", file.path.substr(file.path.rfind('/') + 1)},
                 {"Source", MsiSourceName(number)},
                 {"KeyPath", "yes"}});
            if (file.path == plan_.product.executable) {
                AddShortcuts(component, "[#file" + std::to_string(number) + ']');
            }
        }
    }

    static std::string FolderOf(const std::string& path) {
        const std::size_t slash = path.rfind('/');
        return slash == std::string::npos ? std::string() : path.substr(0, slash);
    }

    void AddShortcuts(xml_node component, const std::string& target) {
        const auto add = [&](const char* id, const char* folder) {
            Add(component, "Shortcut",
                {{"Id", id},
                 {"Directory", folder},
                 {"Name", plan_.product.fileName},
                 {"Target", target},
                 {"WorkingDirectory", "INSTALLDIR"}});
        };
        add("menu", "ProgramMenuFolder");
        if (plan_.desktopShortcut) add("desktop", "DesktopFolder");
    }

    void AddValues(xml_node install) {
        xml_node component;
        for (const RegistryValue& value : plan_.values) {
            if (value.onlyIfFree) continue;
            const bool isFirst = !component;
            if (isFirst) component = AddComponent(install, "values");
            AddValue(component, value, isFirst);
        }
        for (const MsiDefault& found : MsiDefaultsOf(plan_.product, plan_.values)) {
            component = AddComponent(install, "default " + found.classesKey, found.component);
            bool isFirst = true;
            for (const RegistryValue& value : found.values) {
                AddValue(component, value, isFirst);
                isFirst = false;
            }
        }
    }

    void AddValue(xml_node component, const RegistryValue& value, bool isKeyPath) {
        xml_node node = Add(component, "RegistryValue",
                            {{"Root", Root()},
                             {"Key", FormattedText(value.key)},
                             {"Type", "string"},
                             {"Value", FormattedData(value)}});
        if (!value.name.empty()) {
            node.append_attribute("Name").set_value(WixText(FormattedText(value.name)).c_str());
        }
        if (isKeyPath) node.append_attribute("KeyPath") = "yes";
    }

    // The GUID of a component stays the same in all versions of a product.
    xml_node AddComponent(xml_node parent, const std::string& what, std::string id = {}) {
        if (id.empty()) id = "component" + std::to_string(components_.size() + 1);
        components_.push_back(id);
        const std::string scope = plan_.perMachine ? "machine" : "user";
        return Add(parent, "Component",
                   {{"Id", id},
                    {"Guid", GuidOf("component", plan_.product.id + '\n' + scope + '\n' + what)},
                    {"Win64", "yes"}});
    }

    void AddFeatures() {
        xml_node feature;
        for (std::size_t at = 0; at < components_.size(); ++at) {
            if (at % kComponentsInFeature == 0) {
                feature = Add(product_, "Feature",
                              {{"Id", "Part" + std::to_string(at / kComponentsInFeature + 1)},
                               {"Title", "Application"},
                               {"Level", "1"}});
            }
            Add(feature, "ComponentRef", {{"Id", components_[at]}});
        }
    }

    const MsiPlan& plan_;
    pugi::xml_document document_;
    xml_node product_;
    std::vector<std::string> components_;
};

}  // namespace

std::string MsiSourceName(std::size_t number) {
    return "files/" + std::to_string(number);
}

std::string WixSource(const MsiPlan& plan) {
    return SourceWriter(plan).Text();
}

}  // namespace tarn::tools
