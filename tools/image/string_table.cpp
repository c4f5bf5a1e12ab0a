#include "tools/image/string_table.h"

#include <array>

#include "tools/common/byte_io.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

// Strings are stored in blocks of sixteen, each preceded by its length; block 1 holds the ids from
// 0.
constexpr std::size_t kBlockTexts = 16;
using Block = std::array<std::u16string, kBlockTexts>;

std::uint16_t BlockOf(std::uint16_t id) {
    return static_cast<std::uint16_t>(id / kBlockTexts + 1);
}

Block ReadBlock(const Bytes& content) {
    const ByteReader reader(content);
    Block block;
    std::size_t at = 0;
    for (std::u16string& text : block) {
        const std::size_t length = reader.U16(at);
        text = reader.Text(at + 2, length);
        at += 2 + length * 2;
    }
    return block;
}

Bytes WriteBlock(const Block& block) {
    ByteWriter writer;
    for (const std::u16string& text : block) {
        writer.U16(static_cast<std::uint32_t>(text.size()));
        writer.Text(text);
    }
    return writer.Take();
}

}  // namespace

std::string StringOf(const ResourceTree& tree, std::uint16_t id) {
    const Bytes* const content = FindResource(tree, kResourceString, BlockOf(id));
    if (content == nullptr) return {};
    return Utf8Of(std::u16string_view(ReadBlock(*content)[id % kBlockTexts]));
}

void SetString(ResourceTree& tree, std::uint16_t id, std::string_view text) {
    const std::u16string units = Utf16Of(text);
    if (units.size() > UINT16_MAX) throw Failure("text " + std::to_string(id) + " is too long");
    ResourceLanguages& languages = tree[kResourceString][BlockOf(id)];
    if (languages.empty()) languages[kEnglishUnitedStates].content = WriteBlock({});
    for (auto& [language, resource] : languages) {
        Block block = ReadBlock(resource.content);
        block[id % kBlockTexts] = units;
        resource.content = WriteBlock(block);
    }
}

}  // namespace tarn::tools
