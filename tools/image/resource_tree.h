#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "tools/common/whole_file.h"

namespace tarn::tools {

inline constexpr std::uint16_t kResourceIcon = 3;
inline constexpr std::uint16_t kResourceString = 6;
inline constexpr std::uint16_t kResourceData = 10;
inline constexpr std::uint16_t kResourceIconGroup = 14;
inline constexpr std::uint16_t kResourceVersion = 16;
inline constexpr std::uint16_t kResourceManifest = 24;

/// What the launcher's own resources are written in.
inline constexpr std::uint16_t kEnglishUnitedStates = 0x409;

/// A type or name of resources: a number, or a text.
struct ResourceName {
    ResourceName(std::uint16_t number) : id(number) {}            // NOLINT: a name is a number
    ResourceName(std::u16string text) : name(std::move(text)) {}  // NOLINT: or a text

    std::u16string name;  // empty for a number
    std::uint16_t id = 0;
};

/// In the order in which the loader searches: texts first, letter case aside, then numbers.
bool operator<(const ResourceName& left, const ResourceName& right);

struct Resource {
    Bytes content;
    std::uint32_t codePage = 0;
};

using ResourceLanguages = std::map<std::uint16_t, Resource>;
using ResourceNames = std::map<ResourceName, ResourceLanguages>;

/// The resources of an executable by type, name and language.
using ResourceTree = std::map<ResourceName, ResourceNames>;

/// Makes this the only resource of its type and name, in the language of the launcher's own.
void ReplaceResource(ResourceTree& tree, const ResourceName& type, const ResourceName& name,
                     Bytes content);

/// Removes all languages of a resource, if it is there.
void RemoveResource(ResourceTree& tree, const ResourceName& type, const ResourceName& name);

/// A resource's content in its first language, or nothing.
const Bytes* FindResource(const ResourceTree& tree, const ResourceName& type,
                          const ResourceName& name);

}  // namespace tarn::tools
