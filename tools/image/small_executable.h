#pragma once

#include <string_view>
#include <vector>

#include "tools/common/byte_io.h"

namespace tarn::tools {

/// For tests: builds an executable with the given sections, each with 512 bytes in the file and one
/// page in memory.
class SmallExecutable {
  public:
    static constexpr std::size_t kUnit = 0x200;
    static constexpr std::size_t kPage = 0x1000;
    static constexpr std::size_t kPeHeader = 0x80;
    static constexpr std::size_t kSectionTable = kPeHeader + 24 + 240;

    explicit SmallExecutable(std::vector<std::string_view> sections)
        : sections_(std::move(sections)), content_(kUnit * (1 + sections_.size())) {
        Set16(0, 0x5A4D);
        Set32(0x3C, kPeHeader);
        Set32(kPeHeader, 0x4550);
        Set16(kPeHeader + 4, 0x8664);
        Set16(kPeHeader + 6, sections_.size());
        Set16(kPeHeader + 20, 240);
        Set16(Optional(0), 0x20B);
        Set32(Optional(32), kPage);
        Set32(Optional(36), kUnit);
        Set32(Optional(56), kPage * (1 + sections_.size()));
        Set32(Optional(60), kUnit);
        Set32(Optional(108), 16);
        for (std::size_t number = 0; number < sections_.size(); ++number) AddSection(number);
    }

    SmallExecutable& Set16(std::size_t at, std::size_t value) {
        StoreU16(content_, at, static_cast<std::uint32_t>(value));
        return *this;
    }
    SmallExecutable& Set32(std::size_t at, std::size_t value) {
        StoreU32(content_, at, static_cast<std::uint32_t>(value));
        return *this;
    }
    SmallExecutable& Append(std::string_view bytes) {
        const auto* const first = reinterpret_cast<const std::byte*>(bytes.data());
        content_.insert(content_.end(), first, first + bytes.size());
        return *this;
    }

    static std::size_t Optional(std::size_t offset) { return kPeHeader + 24 + offset; }
    static std::size_t Directory(std::size_t number) { return Optional(112 + number * 8); }
    static std::size_t Header(std::size_t section) { return kSectionTable + section * 40; }

    const Bytes& Content() const { return content_; }

  private:
    void AddSection(std::size_t number) {
        const std::string_view name = sections_[number];
        const std::size_t header = Header(number);
        for (std::size_t at = 0; at < name.size(); ++at) {
            content_[header + at] = static_cast<std::byte>(name[at]);
        }
        const std::size_t address = kPage * (1 + number);
        const std::size_t offset = kUnit * (1 + number);
        Set32(header + 8, kUnit);
        Set32(header + 12, address);
        Set32(header + 16, kUnit);
        Set32(header + 20, offset);
        Set32(header + 36, 0x40000040);
        // Each section is filled with its number, except an initially empty resource section.
        const bool isResources = name == ".rsrc";
        for (std::size_t at = offset; at < offset + kUnit; ++at) {
            content_[at] = isResources ? std::byte{0} : static_cast<std::byte>(number + 1);
        }
        const std::size_t directory = isResources ? 2 : name == ".reloc" ? 5 : 0;
        if (directory != 0) {
            Set32(Directory(directory), address);
            Set32(Directory(directory) + 4, kUnit);
        }
    }

    std::vector<std::string_view> sections_;
    Bytes content_;
};

}  // namespace tarn::tools
