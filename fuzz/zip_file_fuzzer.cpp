// A jar, which the companion program reads, can be any file.

#include <algorithm>
#include <cstring>
#include <map>
#include <string_view>

#include "fuzz/fuzz_input.h"
#include "tools/common/failure.h"
#include "tools/java/jar_file.h"
#include "tools/java/zip_end.h"
#include "tools/java/zip_of.h"

namespace {

using tarn::fuzz::FuzzInput;
using tarn::fuzz::Require;
using tarn::tools::Bytes;

constexpr std::size_t kEnough = 1U << 16;

std::string TakeString(FuzzInput& input, std::size_t longest) {
    std::string text(input.TakeNumber<std::uint8_t>() % (longest + 1), '\0');
    for (char& c : text) c = static_cast<char>(input.TakeNumber<std::uint8_t>());
    return text;
}

// Any bytes are either read or rejected.
void CheckAnyBytes(const Bytes& content) {
    const auto place = tarn::tools::FindZip(content);
    if (place) Require(place->begin < place->end && place->end <= content.size());
    try {
        const tarn::tools::JarFile jar(content, "any.jar");
        Require(place.has_value());
        for (const std::string& name : jar.Names()) {
            Require(jar.Has(name));
            try {
                const auto entry = jar.Read(name, kEnough);
                Require(entry && entry->size() <= kEnough);
            } catch (const tarn::tools::Failure&) {
                continue;
            }
        }
        Require(!jar.Read("no/such/entry"));
    } catch (const tarn::tools::Failure&) {
        return;
    }
}

// A packed file is found again, with other data before and after it.
void CheckRoundTrip(FuzzInput input) {
    std::string front = TakeString(input, 20);
    std::string behind = TakeString(input, 20);
    // The data must not look like the end of another zip file.
    std::replace(front.begin(), front.end(), 'P', 'p');
    std::replace(behind.begin(), behind.end(), 'P', 'p');
    tarn::tools::ZipOf zip;
    std::map<std::string, std::string> entries;
    std::vector<std::string> names;
    for (int count = input.TakeNumber<std::uint8_t>() % 4 + 1; count > 0; --count) {
        names.push_back(TakeString(input, 6));
        const std::string entry = TakeString(input, 30);
        zip.Add(names.back(), entry);
        entries[names.back()] = entry;
    }
    const Bytes packed = zip.Content();
    Bytes content;
    const auto add = [&content](const void* data, std::size_t size) {
        const auto* const first = static_cast<const std::byte*>(data);
        content.insert(content.end(), first, first + size);
    };
    add(front.data(), front.size());
    add(packed.data(), packed.size());
    add(behind.data(), behind.size());

    const auto place = tarn::tools::FindZip(content);
    Require(place && place->begin == front.size() && place->entries == names.size());
    Require(place->end == front.size() + packed.size());
    const tarn::tools::JarFile jar(content, "made.jar");
    Require(jar.Names() == names);
    for (const auto& [name, expected] : entries) {
        const auto entry = jar.Read(name);
        Require(entry && entry->size() == expected.size());
        Require(std::memcmp(entry->data(), expected.data(), expected.size()) == 0);
        if (!expected.empty()) {
            bool refused = false;
            try {
                static_cast<void>(jar.Read(name, expected.size() - 1));
            } catch (const tarn::tools::Failure&) {
                refused = true;
            }
            Require(refused);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A heap block of its own, so that a read beyond it is detected.
    Bytes content(size);
    if (size != 0) std::memcpy(content.data(), data, size);
    CheckAnyBytes(content);
    CheckRoundTrip(FuzzInput(data, size));
    return 0;
}
