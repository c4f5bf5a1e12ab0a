#include "tools/image/resource_tree.h"

#include <utility>

namespace tarn::tools {
namespace {

std::u16string ToUpperAscii(std::u16string text) {
    for (char16_t& letter : text) {
        if (letter >= u'a' && letter <= u'z') letter = static_cast<char16_t>(letter - u'a' + u'A');
    }
    return text;
}

}  // namespace

bool operator<(const ResourceName& left, const ResourceName& right) {
    if (left.name.empty() != right.name.empty()) return right.name.empty();
    if (left.name.empty()) return left.id < right.id;
    const std::u16string leftUpper = ToUpperAscii(left.name);
    const std::u16string rightUpper = ToUpperAscii(right.name);
    if (leftUpper != rightUpper) return leftUpper < rightUpper;
    return left.name < right.name;
}

void ReplaceResource(ResourceTree& tree, const ResourceName& type, const ResourceName& name,
                     Bytes content) {
    ResourceLanguages& languages = tree[type][name];
    languages.clear();
    languages[kEnglishUnitedStates] = {std::move(content), 0};
}

void RemoveResource(ResourceTree& tree, const ResourceName& type, const ResourceName& name) {
    const auto found = tree.find(type);
    if (found == tree.end()) return;
    found->second.erase(name);
    if (found->second.empty()) tree.erase(found);
}

const Bytes* FindResource(const ResourceTree& tree, const ResourceName& type,
                          const ResourceName& name) {
    const auto names = tree.find(type);
    if (names == tree.end()) return nullptr;
    const auto languages = names->second.find(name);
    if (languages == names->second.end() || languages->second.empty()) return nullptr;
    return &languages->second.begin()->second.content;
}

}  // namespace tarn::tools
