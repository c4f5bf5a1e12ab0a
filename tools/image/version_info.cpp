#include "tools/image/version_info.h"

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::uint32_t kFixedMark = 0xFEEF04BD;
constexpr std::uint32_t kFixedSize = 52;
constexpr std::uint32_t kStructureVersion = 0x00010000;
constexpr std::uint32_t kFlagsMask = 0x3F;
constexpr std::uint32_t kForWindows = 4;
constexpr std::uint32_t kApplication = 1;
constexpr char16_t kTable[] = u"040904b0";  // English (United States), UTF-16
constexpr std::uint32_t kTranslation = 0x04B00409;
constexpr std::size_t kHeadSize = 6;
constexpr std::size_t kLargestNode = 0xFFFF;

// A node consists of its size, its value's size and kind, its name, its value and its children,
// each aligned to 4 bytes.
struct Node {
    ByteSpan whole;
    std::u16string name;
    bool isText = false;
    std::size_t value = 0;  // offset in `whole`
    std::size_t valueUnits = 0;
    std::size_t children = 0;

    static Node At(ByteSpan parent, std::size_t at) {
        const ByteReader reader(parent);
        Node node;
        node.whole = reader.Part(at, reader.U16(at));
        const ByteReader inside(node.whole);
        node.valueUnits = inside.U16(2);
        node.isText = inside.U16(4) == 1;
        std::size_t end = kHeadSize;
        for (; inside.U16(end) != 0; end += 2) node.name += static_cast<char16_t>(inside.U16(end));
        node.value = AlignedUp(end + 2, 4);
        node.children = AlignedUp(node.value + node.valueUnits * (node.isText ? 2 : 1), 4);
        return node;
    }

    std::vector<Node> Children() const {
        std::vector<Node> nodes;
        for (std::size_t at = children; at + kHeadSize < whole.size();) {
            nodes.push_back(At(whole, at));
            at = AlignedUp(at + nodes.back().whole.size(), 4);
        }
        return nodes;
    }

    std::string Text() const {
        // Some compilers store the value's size in bytes, so the text is read up to its terminating
        // zero.
        const ByteReader reader(whole);
        std::u16string text;
        for (std::size_t at = value; at + 2 <= whole.size() && reader.U16(at) != 0; at += 2) {
            text += static_cast<char16_t>(reader.U16(at));
        }
        return Utf8Of(std::u16string_view(text));
    }
};

VersionInfo::Number NumberAt(const ByteReader& reader, std::size_t at) {
    return {reader.U16(at + 2), reader.U16(at), reader.U16(at + 6), reader.U16(at + 4)};
}

class NodeWriter {
  public:
    std::size_t Begin(std::u16string_view name, bool isText) {
        writer_.Align(4);
        const std::size_t begin = writer_.Size();
        writer_.U16(0);
        writer_.U16(0);
        writer_.U16(isText ? 1 : 0);
        writer_.Text(name);
        writer_.U16(0);
        writer_.Align(4);
        return begin;
    }

    void SetValueSize(std::size_t begin, std::size_t size) {
        writer_.SetU16(begin + 2, static_cast<std::uint32_t>(size));
    }

    void End(std::size_t begin) {
        const std::size_t size = writer_.Size() - begin;
        if (size > kLargestNode)
            throw Failure(
                "the texts of the version information are too long; shorten the longest one, such "
                "as the title or the version");
        writer_.SetU16(begin, static_cast<std::uint32_t>(size));
    }

    void PutNumber(const VersionInfo::Number& number) {
        writer_.U16(number[1]);
        writer_.U16(number[0]);
        writer_.U16(number[3]);
        writer_.U16(number[2]);
    }

    void PutText(std::string_view name, std::string_view text) {
        const std::u16string units = Utf16Of(text);
        const std::size_t node = Begin(Utf16Of(name), true);
        writer_.Text(units);
        writer_.U16(0);
        SetValueSize(node, units.size() + 1);
        End(node);
    }

    ByteWriter& Raw() { return writer_; }

  private:
    ByteWriter writer_;
};

}  // namespace

std::string VersionInfo::Text(std::string_view name) const {
    for (const auto& [key, text] : texts) {
        if (key == name) return text;
    }
    return {};
}

void VersionInfo::SetText(std::string_view name, std::string_view text) {
    const auto found = std::find_if(texts.begin(), texts.end(),
                                    [&](const auto& entry) { return entry.first == name; });
    if (text.empty()) {
        if (found != texts.end()) texts.erase(found);
    } else if (found != texts.end()) {
        found->second = text;
    } else {
        texts.emplace_back(name, text);
    }
}

VersionInfo::Number VersionNumberOf(std::string_view text) {
    VersionInfo::Number number = {};
    std::size_t part = 0;
    bool isInside = false;
    for (const char letter : text) {
        const bool isDigit = letter >= '0' && letter <= '9';
        if (!isDigit && isInside) ++part;
        if (part == number.size()) break;
        isInside = isDigit;
        if (!isDigit) continue;
        const unsigned value = number[part] * 10U + static_cast<unsigned>(letter - '0');
        number[part] = static_cast<std::uint16_t>(std::min(value, 0xFFFFU));
    }
    return number;
}

VersionInfo ReadVersionInfo(ByteSpan resource) {
    const Node root = Node::At(resource, 0);
    VersionInfo info;
    const ByteReader reader(root.whole);
    if (root.valueUnits >= kFixedSize && reader.U32(root.value) == kFixedMark) {
        info.fileVersion = NumberAt(reader, root.value + 8);
        info.productVersion = NumberAt(reader, root.value + 16);
    }
    for (const Node& child : root.Children()) {
        if (child.name != u"StringFileInfo") continue;
        for (const Node& table : child.Children()) {
            for (const Node& text : table.Children()) {
                info.SetText(Utf8Of(std::u16string_view(text.name)), text.Text());
            }
            return info;
        }
    }
    return info;
}

Bytes WriteVersionInfo(const VersionInfo& info) {
    NodeWriter nodes;
    ByteWriter& raw = nodes.Raw();
    const std::size_t root = nodes.Begin(u"VS_VERSION_INFO", false);
    raw.U32(kFixedMark);
    raw.U32(kStructureVersion);
    nodes.PutNumber(info.fileVersion);
    nodes.PutNumber(info.productVersion);
    for (const std::uint32_t value : {kFlagsMask, 0U, kForWindows, kApplication, 0U, 0U, 0U}) {
        raw.U32(value);
    }
    nodes.SetValueSize(root, kFixedSize);

    const std::size_t texts = nodes.Begin(u"StringFileInfo", true);
    const std::size_t table = nodes.Begin(kTable, true);
    for (const auto& [name, text] : info.texts) nodes.PutText(name, text);
    nodes.End(table);
    nodes.End(texts);

    const std::size_t variables = nodes.Begin(u"VarFileInfo", true);
    const std::size_t translation = nodes.Begin(u"Translation", false);
    raw.U32(kTranslation);
    nodes.SetValueSize(translation, 4);
    nodes.End(translation);
    nodes.End(variables);
    nodes.End(root);
    return raw.Take();
}

}  // namespace tarn::tools
