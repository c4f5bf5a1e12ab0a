#include "tools/common/byte_io.h"

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

void Store(Bytes& content, std::size_t at, std::uint32_t value, std::size_t bytes) {
    for (std::size_t byte = 0; byte < bytes; ++byte, value >>= 8) {
        content.at(at + byte) = static_cast<std::byte>(value & 0xFF);
    }
}

}  // namespace

ByteSpan ByteReader::Part(std::size_t at, std::size_t size) const {
    if (at > content_.size() || content_.size() - at < size) {
        throw Failure("is truncated or corrupt");
    }
    return content_.subspan(at, size);
}

std::uint32_t ByteReader::Number(std::size_t at, std::size_t bytes) const {
    const ByteSpan part = Part(at, bytes);
    std::uint32_t value = 0;
    for (std::size_t byte = bytes; byte-- > 0;) {
        value = value << 8 | static_cast<std::uint32_t>(part[byte]);
    }
    return value;
}

std::u16string ByteReader::Text(std::size_t at, std::size_t length) const {
    const ByteReader part(Part(at, length * 2));
    std::u16string text(length, u'\0');
    for (std::size_t unit = 0; unit < length; ++unit) text[unit] = part.U16(unit * 2);
    return text;
}

void ByteWriter::Number(std::uint32_t value, std::size_t bytes) {
    content_.resize(content_.size() + bytes);
    Store(content_, content_.size() - bytes, value, bytes);
}

void ByteWriter::Text(std::u16string_view text) {
    for (const char16_t unit : text) U16(unit);
}

void ByteWriter::Align(std::size_t step) {
    content_.resize(AlignedUp(content_.size(), step));
}

void ByteWriter::SetU16(std::size_t at, std::uint32_t value) {
    Store(content_, at, value, 2);
}

void ByteWriter::SetU32(std::size_t at, std::uint32_t value) {
    Store(content_, at, value, 4);
}

void StoreU16(Bytes& content, std::size_t at, std::uint32_t value) {
    Store(content, at, value, 2);
}

void StoreU32(Bytes& content, std::size_t at, std::uint32_t value) {
    Store(content, at, value, 4);
}

}  // namespace tarn::tools
