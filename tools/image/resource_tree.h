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

/// The language of the launcher's own resources.
inline constexpr std::uint16_t kEnglishUnitedStates = 0x409;

/// The type or name of a resource: a number or a text.
struct ResourceName {
    ResourceName(std::uint16_t number) : id(number) {}            // NOLINT: a name is a number
    ResourceName(std::u16string text) : name(std::move(text)) {}  // NOLINT: or a text

    std::u16string name;  // empty for a number
    std::uint16_t id = 0;
};

/// The order that the loader's binary search requires: texts first, compared in upper case, then
/// numbers.
bool operator<(const ResourceName& left, const ResourceName& right);

struct Resource {
    Bytes content;
    std::uint32_t codePage = 0;
};

using ResourceLanguages = std::map<std::uint16_t, Resource>;
using ResourceNames = std::map<ResourceName, ResourceLanguages>;

/// The resources of an executable by type, name and language.
using ResourceTree = std::map<ResourceName, ResourceNames>;

/// Makes this the only resource with its type and name, in the language of the launcher's
/// resources.
void ReplaceResource(ResourceTree& tree, const ResourceName& type, const ResourceName& name,
                     Bytes content);

/// Removes a resource in all languages, if it exists.
void RemoveResource(ResourceTree& tree, const ResourceName& type, const ResourceName& name);

/// The content of a resource in its first language; null when there is none.
const Bytes* FindResource(const ResourceTree& tree, const ResourceName& type,
                          const ResourceName& name);

}  // namespace tarn::tools
