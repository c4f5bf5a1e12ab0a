#include "tools/image/resource_section.h"

#include <utility>
#include <vector>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

constexpr std::uint32_t kHighBit = 0x80000000;  // marks a name, or a subdirectory
constexpr std::size_t kDirectorySize = 16;
constexpr std::size_t kEntrySize = 8;
constexpr std::size_t kDataAlignment = 8;
// Far more than any program has; bounds the time for corrupt files.
constexpr std::size_t kMostResources = 100000;

struct Entry {
    ResourceName name;
    std::uint32_t target;  // offset of its directory or data entry in the section
};

class SectionReader {
  public:
    SectionReader(ByteSpan section, std::uint32_t address) : reader_(section), address_(address) {}

    ResourceTree Read() {
        ResourceTree tree;
        for (const Entry& type : EntriesOf(0, true)) {
            for (const Entry& name : EntriesOf(type.target, true)) {
                for (const Entry& language : EntriesOf(name.target, false)) {
                    tree[type.name][name.name][language.name.id] = ReadData(language.target);
                }
            }
        }
        return tree;
    }

  private:
    std::vector<Entry> EntriesOf(std::uint32_t directory, bool hasDirectories) {
        const std::size_t count =
            std::size_t{reader_.U16(directory + 12)} + std::size_t{reader_.U16(directory + 14)};
        std::vector<Entry> entries;
        for (std::size_t number = 0; number < count; ++number) {
            if (++read_ > kMostResources) throw Failure("has corrupt resources");
            const std::size_t at = directory + kDirectorySize + number * kEntrySize;
            const std::uint32_t target = reader_.U32(at + 4);
            if (((target & kHighBit) != 0) != hasDirectories) {
                throw Failure("has resources that are not nested in three levels");
            }
            entries.push_back({NameOf(reader_.U32(at)), target & ~kHighBit});
        }
        return entries;
    }

    ResourceName NameOf(std::uint32_t word) const {
        if ((word & kHighBit) == 0) return {static_cast<std::uint16_t>(word)};
        const std::uint32_t at = word & ~kHighBit;
        const std::uint16_t length = reader_.U16(at);
        if (length == 0) throw Failure("has a resource without a name");
        return {reader_.Text(std::size_t{at} + 2, length)};
    }

    Resource ReadData(std::uint32_t entry) {
        const std::uint32_t data = reader_.U32(entry);
        const std::uint32_t size = reader_.U32(std::size_t{entry} + 4);
        if (data < address_) throw Failure("has a resource outside the resource section");
        // Entries that share their bytes could exhaust the memory.
        taken_ += size;
        if (taken_ / 4 > reader_.Size()) throw Failure("has corrupt resources");
        const ByteSpan content = reader_.Part(data - address_, size);
        return {Bytes(content.begin(), content.end()), reader_.U32(std::size_t{entry} + 8)};
    }

    ByteReader reader_;
    std::uint32_t address_;
    std::size_t read_ = 0;
    std::size_t taken_ = 0;
};

// Writes the directories level by level, then the data entries, the names and the data.
class SectionWriter {
  public:
    SectionWriter(const ResourceTree& tree, std::uint32_t address) : address_(address) {
        PutDirectories(tree);
        for (const auto& [place, resource] : leaves_) {
            writer_.SetU32(place, static_cast<std::uint32_t>(writer_.Size()));
            dataEntries_.push_back(writer_.Size());
            writer_.U32(0);
            writer_.U32(static_cast<std::uint32_t>(resource->content.size()));
            writer_.U32(resource->codePage);
            writer_.U32(0);
        }
        for (const auto& [place, name] : names_) {
            writer_.SetU32(place, static_cast<std::uint32_t>(writer_.Size()) | kHighBit);
            writer_.U16(static_cast<std::uint32_t>(name->size()));
            writer_.Text(*name);
        }
        for (std::size_t number = 0; number < leaves_.size(); ++number) {
            writer_.Align(kDataAlignment);
            writer_.SetU32(dataEntries_[number],
                           address_ + static_cast<std::uint32_t>(writer_.Size()));
            writer_.Put(leaves_[number].second->content);
        }
        writer_.Align(kDataAlignment);
    }

    Bytes Take() { return writer_.Take(); }

  private:
    void PutDirectories(const ResourceTree& tree) {
        std::vector<std::pair<std::size_t, const ResourceNames*>> types;
        PutHead(tree);
        for (const auto& [type, names] : tree) types.emplace_back(PutEntry(type), &names);
        std::vector<std::pair<std::size_t, const ResourceLanguages*>> resources;
        for (const auto& [place, names] : types) {
            writer_.SetU32(place, static_cast<std::uint32_t>(writer_.Size()) | kHighBit);
            PutHead(*names);
            for (const auto& [name, languages] : *names) {
                resources.emplace_back(PutEntry(name), &languages);
            }
        }
        for (const auto& [place, languages] : resources) {
            writer_.SetU32(place, static_cast<std::uint32_t>(writer_.Size()) | kHighBit);
            PutHead(*languages);
            for (const auto& [language, resource] : *languages) {
                leaves_.emplace_back(PutEntry({language}), &resource);
            }
        }
    }

    template <typename Children>
    void PutHead(const Children& children) {
        std::uint32_t named = 0;
        for (const auto& [name, ignored] : children) named += IsText(name) ? 1U : 0U;
        writer_.U32(0);
        writer_.U32(0);  // time stamp: 0 for reproducible files
        writer_.U32(0);
        writer_.U16(named);
        writer_.U16(static_cast<std::uint32_t>(children.size()) - named);
    }

    static bool IsText(const ResourceName& name) { return !name.name.empty(); }

    // Returns the offset of the field for the entry's target.
    std::size_t PutEntry(const ResourceName& name) {
        if (IsText(name)) names_.emplace_back(writer_.Size(), &name.name);
        writer_.U32(name.id);
        writer_.U32(0);
        return writer_.Size() - 4;
    }

    ByteWriter writer_;
    std::uint32_t address_;
    std::vector<std::pair<std::size_t, const Resource*>> leaves_;
    std::vector<std::size_t> dataEntries_;
    std::vector<std::pair<std::size_t, const std::u16string*>> names_;
};

}  // namespace

ResourceTree ReadResourceSection(ByteSpan section, std::uint32_t address) {
    return SectionReader(section, address).Read();
}

Bytes WriteResourceSection(const ResourceTree& tree, std::uint32_t address) {
    return SectionWriter(tree, address).Take();
}

}  // namespace tarn::tools
