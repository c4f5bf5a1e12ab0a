#include "tools/stamp/application_manifest.h"

#include <algorithm>
#include <pugixml/pugixml.hpp>
#include <string_view>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

constexpr std::size_t kLargestManifest = 1U << 20U;
constexpr char kRootNamespace[] = "urn:schemas-microsoft-com:asm.v1";
constexpr char kNamespace[] = "urn:schemas-microsoft-com:asm.v3";
constexpr char kCodePageNamespace[] = "http://schemas.microsoft.com/SMI/2019/WindowsSettings";

class BytesWriter : public pugi::xml_writer {
  public:
    void write(const void* data, std::size_t size) override {
        const auto* const bytes = static_cast<const std::byte*>(data);
        content.insert(content.end(), bytes, bytes + size);
    }

    Bytes content;
};

// The name without its namespace prefix, which every manifest chooses itself.
std::string_view LocalName(std::string_view name) {
    return name.substr(name.find(':') + 1);
}

std::string_view PrefixOf(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
}

// The first element with that name at any depth.
pugi::xml_node FindElement(const pugi::xml_node& root, std::string_view name) {
    return root.find_node(
        [&](const pugi::xml_node& node) { return LocalName(node.name()) == name; });
}

// The namespace that the element's own attributes declare for its prefix.
std::string_view NamespaceOf(const pugi::xml_node& node) {
    const std::string_view prefix = PrefixOf(node.name());
    const std::string name = prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
    return node.attribute(name.c_str()).value();
}

void Parse(ByteSpan content, pugi::xml_document& document) {
    if (content.size() > kLargestManifest) throw Failure("is too large for a manifest");
    const pugi::xml_parse_result result =
        document.load_buffer(content.data(), content.size(),
                             pugi::parse_default | pugi::parse_declaration | pugi::parse_comments);
    if (!result) {
        throw Failure("is not XML: " + std::string(result.description()) + " at byte " +
                      std::to_string(result.offset));
    }
    const pugi::xml_node root = document.document_element();
    if (LocalName(root.name()) != "assembly" || NamespaceOf(root) != kRootNamespace) {
        throw Failure("is not an application manifest, whose root is <assembly xmlns=\"" +
                      std::string(kRootNamespace) + "\" manifestVersion=\"1.0\">");
    }
    const auto isElement = [](const pugi::xml_node& node) {
        return node.type() == pugi::node_element;
    };
    if (std::count_if(document.begin(), document.end(), isElement) != 1) {
        throw Failure("is not XML: it has more than one root");
    }
}

// Adds an element that declares its namespace.
pugi::xml_node AppendElement(pugi::xml_node parent, const char* name, const char* itsNamespace) {
    pugi::xml_node element = parent.append_child(name);
    element.append_attribute("xmlns") = itsNamespace;
    return element;
}

void SetAttribute(pugi::xml_node node, const char* name, const char* value) {
    pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) attribute = node.append_attribute(name);
    attribute = value;
}

void RequireAdministrator(pugi::xml_node root) {
    pugi::xml_node level = FindElement(root, "requestedExecutionLevel");
    if (!level) {
        level = AppendElement(root, "trustInfo", kNamespace)
                    .append_child("security")
                    .append_child("requestedPrivileges")
                    .append_child("requestedExecutionLevel");
        SetAttribute(level, "uiAccess", "false");
    }
    SetAttribute(level, "level", "requireAdministrator");
}

void UseUtf8(pugi::xml_node root) {
    pugi::xml_node codePage = FindElement(root, "activeCodePage");
    if (!codePage) {
        pugi::xml_node settings = FindElement(root, "windowsSettings");
        if (!settings) {
            settings =
                AppendElement(root, "application", kNamespace).append_child("windowsSettings");
        }
        codePage = AppendElement(settings, "activeCodePage", kCodePageNamespace);
    }
    codePage.text() = "UTF-8";
}

// The order of these attributes is part of XML's syntax.
void ReplaceDeclaration(pugi::xml_document& document) {
    if (document.first_child().type() == pugi::node_declaration) {
        document.remove_child(document.first_child());
    }
    pugi::xml_node declaration = document.prepend_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    declaration.append_attribute("standalone") = "yes";
}

}  // namespace

Bytes ReadApplicationManifest(const std::filesystem::path& file) {
    Bytes content = ReadWholeFile(file);
    return WithFileName(file, [&] {
        pugi::xml_document document;
        Parse(content, document);
        return std::move(content);
    });
}

Bytes ChangedManifest(ByteSpan content, const ManifestChanges& changes) {
    pugi::xml_document document;
    Parse(content, document);
    if (!changes.requiresAdministrator && !changes.usesUtf8) {
        return Bytes(content.begin(), content.end());
    }
    const pugi::xml_node root = document.document_element();
    if (changes.requiresAdministrator) RequireAdministrator(root);
    if (changes.usesUtf8) UseUtf8(root);
    ReplaceDeclaration(document);
    BytesWriter writer;
    document.save(writer, "  ", pugi::format_default, pugi::encoding_utf8);
    return std::move(writer.content);
}

}  // namespace tarn::tools
