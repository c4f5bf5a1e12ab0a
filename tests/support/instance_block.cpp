#include "tests/support/instance_block.h"

#include <cstring>

namespace tarn::test {

std::wstring InstanceNameOf(std::wstring_view executable) {
    std::wstring name(executable);
    for (wchar_t& unit : name) {
        if (unit == L'\\') unit = L'_';
    }
    return name;
}

InstanceBlock::InstanceBlock(HANDLE mapping) : mapping_(mapping) {
    if (mapping_) view_.reset(MapViewOfFile(mapping_.get(), FILE_MAP_WRITE, 0, 0, kSize));
}

InstanceBlock InstanceBlock::Open(std::wstring_view executable) {
    return InstanceBlock(
        OpenFileMappingW(FILE_MAP_WRITE, FALSE, InstanceNameOf(executable).c_str()));
}

InstanceBlock InstanceBlock::Create(std::wstring_view executable) {
    return InstanceBlock(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, kSize,
                                            InstanceNameOf(executable).c_str()));
}

std::uint32_t InstanceBlock::Number(std::size_t offset) const {
    std::uint32_t value = 0;
    std::memcpy(&value, static_cast<const char*>(view_.get()) + offset, sizeof value);
    return value;
}

void InstanceBlock::SetNumber(std::size_t offset, std::uint32_t value) {
    std::memcpy(static_cast<char*>(view_.get()) + offset, &value, sizeof value);
}

std::string InstanceBlock::Bytes(std::size_t offset, std::size_t size) const {
    return {static_cast<const char*>(view_.get()) + offset, size};
}

void InstanceBlock::SetBytes(std::size_t offset, std::string_view bytes) {
    std::memcpy(static_cast<char*>(view_.get()) + offset, bytes.data(), bytes.size());
}

std::u16string InstanceBlock::Arguments() const {
    std::u16string units(kArgumentBytes / sizeof(char16_t), u'\0');
    std::memcpy(units.data(), static_cast<const char*>(view_.get()) + kArguments, kArgumentBytes);
    const std::size_t last = units.find_last_not_of(u'\0');
    units.resize(last == std::u16string::npos ? 0 : last + 1);
    return units;
}

}  // namespace tarn::test
