#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/common/whole_file.h"

namespace tarn::tools {

/// For tests: builds a zip file with stored entries.
class ZipOf {
  public:
    ZipOf& Add(std::string_view name, std::string_view content, unsigned flags = 0) {
        const unsigned sum = ChecksumOf(content);
        const std::size_t offset = local_.size();
        local_ += Number(0x04034b50, 4) + EntryHead(name, content, flags, sum) + std::string(name) +
                  std::string(content);
        central_ += Number(0x02014b50, 4) + Number(20, 2) + EntryHead(name, content, flags, sum) +
                    Number(0, 2 + 2 + 2 + 4) + Number(offset, 4) + std::string(name);
        ++count_;
        return *this;
    }

    Bytes Content() const {
        const std::string end = Number(0x06054b50, 4) + Number(0, 4) + Number(count_, 2) +
                                Number(count_, 2) + Number(central_.size(), 4) +
                                Number(local_.size(), 4) + Number(0, 2);
        const std::string all = local_ + central_ + end;
        const auto* first = reinterpret_cast<const std::byte*>(all.data());
        return Bytes(first, first + all.size());
    }

  private:
    static std::string Number(std::size_t value, int bytes) {
        std::string text;
        for (int at = 0; at < bytes; ++at, value >>= 8) text += static_cast<char>(value & 0xFF);
        return text;
    }

    // The fields that both headers share: from "version needed" to the length of the extra field.
    static std::string EntryHead(std::string_view name, std::string_view content, unsigned flags,
                                 unsigned sum) {
        return Number(20, 2) + Number(flags, 2) + Number(0, 2 + 4) + Number(sum, 4) +
               Number(content.size(), 4) + Number(content.size(), 4) + Number(name.size(), 2) +
               Number(0, 2);
    }

    static unsigned ChecksumOf(std::string_view content) {
        unsigned sum = ~0U;
        for (const char byte : content) {
            sum ^= static_cast<unsigned char>(byte);
            for (int bit = 0; bit < 8; ++bit)
                sum = (sum >> 1) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0);
        }
        return ~sum;
    }

    std::string local_;
    std::string central_;
    std::size_t count_ = 0;
};

}  // namespace tarn::tools
