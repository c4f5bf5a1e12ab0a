// A class file in a jar that is named to the companion program.

#include <algorithm>

#include "fuzz/fuzz_input.h"
#include "tools/common/whole_file.h"
#include "tools/java/class_file.h"
#include "tools/java/class_of.h"

namespace {

using tarn::fuzz::FuzzInput;
using tarn::fuzz::Require;

// A name without the characters that mean something in an array type.
std::string TakeName(FuzzInput& input) {
    std::string name = "n";
    for (int count = input.TakeNumber<std::uint8_t>() % 8; count > 0; --count) {
        name += static_cast<char>('a' + input.TakeNumber<std::uint8_t>() % 26);
    }
    return name;
}

// Whatever the bytes are, they are read or rejected.
void CheckAnyBytes(std::span<const std::byte> bytes) {
    const auto file = tarn::tools::ReadClassFile(bytes);
    if (!file) return;
    Require(!file->name.starts_with('[') ? file->references.count(file->name) == 1 : true);
}

// What was written is read.
void CheckRoundTrip(FuzzInput input) {
    const std::string name = TakeName(input);
    auto module = tarn::tools::ClassOf::Module(name);
    std::vector<std::pair<std::string, bool>> requirements;
    for (int count = input.TakeNumber<std::uint8_t>() % 4; count > 0; --count) {
        const bool isOptional = input.TakeNumber<std::uint8_t>() % 2 == 1;
        requirements.emplace_back(TakeName(input), isOptional);
        module.Requires(requirements.back().first, isOptional ? 0x40 : 0);
    }
    const std::string exported = TakeName(input);
    const std::string mainClass = TakeName(input);
    const std::string content = module.Exports(exported).Main(mainClass).Content();
    const auto file = tarn::tools::ReadClassFile(tarn::tools::AsBytes(content));
    Require(file && file->module);
    Require(file->module->name == name && file->module->mainClass == mainClass);
    Require(file->module->exports.count(exported) == 1);
    Require(file->module->requirements.size() == requirements.size());
    for (std::size_t at = 0; at < requirements.size(); ++at) {
        Require(file->module->requirements[at].module == requirements[at].first);
        Require(file->module->requirements[at].isOptional == requirements[at].second);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // On the heap and alone, so that a byte read beyond it is noticed.
    std::vector<std::byte> bytes(size);
    std::transform(data, data + size, bytes.begin(),
                   [](std::uint8_t each) { return std::byte{each}; });
    CheckAnyBytes(bytes);
    CheckRoundTrip(FuzzInput(data, size));
    return 0;
}
