// The companion program changes executables, which can be any files.

#include <algorithm>
#include <cstring>
#include <optional>

#include "fuzz/fuzz_input.h"
#include "tools/common/failure.h"
#include "tools/image/executable.h"
#include "tools/image/small_executable.h"

namespace {

using tarn::fuzz::FuzzInput;
using tarn::fuzz::Require;
using namespace tarn::tools;

// As the PE format defines the checksum: the sum of 16-bit words with their carry, plus the size.
std::uint32_t NaiveChecksum(const Bytes& content, std::size_t field) {
    std::uint32_t sum = 0;
    for (std::size_t at = 0; at < content.size(); ++at) {
        if (at >= field && at < field + 4) continue;
        sum += static_cast<std::uint32_t>(content[at]) << (at % 2 * 8);
        sum = (sum & 0xFFFF) + (sum >> 16);
    }
    return sum + static_cast<std::uint32_t>(content.size());
}

bool IsSame(const ResourceTree& a, const ResourceTree& b) {
    const auto sameName = [](const ResourceName& x, const ResourceName& y) {
        return x.id == y.id && x.name == y.name;
    };
    const auto sameLanguages = [](const ResourceLanguages& x, const ResourceLanguages& y) {
        return std::equal(x.begin(), x.end(), y.begin(), y.end(), [](const auto& l, const auto& r) {
            return l.first == r.first && l.second.content == r.second.content &&
                   l.second.codePage == r.second.codePage;
        });
    };
    const auto sameNames = [&](const ResourceNames& x, const ResourceNames& y) {
        return std::equal(
            x.begin(), x.end(), y.begin(), y.end(), [&](const auto& l, const auto& r) {
                return sameName(l.first, r.first) && sameLanguages(l.second, r.second);
            });
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](const auto& l, const auto& r) {
        return sameName(l.first, r.first) && sameNames(l.second, r.second);
    });
}

// An accepted executable is still one after its resources are replaced.
void CheckExchange(const Bytes& content, const ResourceTree& tree) {
    std::optional<Executable> executable;
    Bytes changed;
    try {
        executable.emplace(content);
        if (executable->IsSigned()) executable->DropSignature();
        executable->SetResources(tree);
        changed = executable->Content();
    } catch (const Failure&) {
        return;
    }
    Executable again(changed);
    Require(IsSame(again.Resources(), tree));
    Require(again.Machine() == executable->Machine());
    Require(again.Overlay() == executable->Overlay());
    Require(again.OverlayOffset() + again.Overlay().size() == changed.size());
    Require(std::equal(again.Overlay().rbegin(), again.Overlay().rend(), changed.rbegin()));
    std::uint32_t header = 0;
    std::memcpy(&header, &changed[60], sizeof header);
    std::uint32_t checksum = 0;
    std::memcpy(&checksum, &changed[header + 24 + 64], sizeof checksum);
    Require(checksum == NaiveChecksum(changed, header + 24 + 64));
    // Doing so again changes nothing.
    again.SetResources(tree);
    Require(again.Content() == changed);
}

void CheckAnyBytes(const Bytes& content) {
    ResourceTree tree;
    try {
        tree = Executable(content).Resources();
    } catch (const Failure&) {
        return;
    }
    CheckExchange(content, tree);
}

ResourceName TakeName(FuzzInput& input) {
    const auto number = input.TakeNumber<std::uint8_t>();
    if (number < 128) return ResourceName(number);
    return ResourceName(std::u16string(number % 3 + 1u, static_cast<char16_t>(u'A' + number % 8)));
}

ResourceTree TakeTree(FuzzInput& input) {
    ResourceTree tree;
    for (int count = input.TakeNumber<std::uint8_t>() % 4; count > 0; --count) {
        const ResourceName type = TakeName(input);
        const ResourceName name = TakeName(input);
        Resource resource;
        resource.content.resize(input.TakeNumber<std::uint16_t>() % 3000);
        for (std::byte& byte : resource.content) byte = std::byte(count);
        resource.codePage = input.TakeNumber<std::uint16_t>();
        tree[type][name][input.TakeNumber<std::uint8_t>()] = resource;
    }
    return tree;
}

}  // namespace

// Resources to add, then changes of a valid executable: offsets and 16-bit numbers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const ResourceTree tree = TakeTree(input);
    static const Bytes good = [] {
        Executable made(SmallExecutable({".text", ".rsrc", ".reloc"}).Append("overlay").Content());
        ResourceTree some;
        some[kResourceData][std::u16string(u"SETTINGS")][kEnglishUnitedStates] = {
            Bytes(40, std::byte{1}), 1252};
        some[kResourceIcon][1][7] = {Bytes(5, std::byte{2}), 0};
        made.SetResources(some);
        return made.Content();
    }();
    Bytes content = good;
    const std::size_t changes = input.TakeNumber<std::uint8_t>() % 8;
    for (std::size_t i = 0; i < changes; ++i) {
        const std::size_t at = input.TakeNumber<std::uint16_t>() % (content.size() - 1);
        const auto value = input.TakeNumber<std::uint16_t>();
        std::memcpy(&content[at], &value, sizeof value);
    }
    // Truncated as well.
    content.resize(content.size() -
                   std::min<std::size_t>(input.TakeNumber<std::uint16_t>(), content.size()) *
                       (changes % 2));
    content.shrink_to_fit();
    CheckExchange(content, tree);
    CheckAnyBytes(content);

    Bytes plain(size);
    if (size != 0) std::memcpy(plain.data(), data, size);
    CheckAnyBytes(plain);
    return 0;
}
