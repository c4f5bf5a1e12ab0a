// Heap and stack sizes as percentages, for any amount of memory.

#include <algorithm>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "jvm/vm_parameters.h"

namespace {

using tarn::fuzz::Require;

bool NaiveHasForm(const std::wstring& option) {
    if (option.size() < 4) return false;
    for (const wchar_t* prefix : {L"-Xms", L"-Xmx", L"-Xss"}) {
        for (const wchar_t letter : {L'P', L'p', L'T', L't'})
            if (option.compare(0, 4, prefix) == 0 && option.back() == letter) return true;
    }
    return false;
}

// The option's text before its numbers, then percent, minimum and maximum, 0 for a missing one.
std::vector<std::uint64_t> NaiveNumbers(const std::wstring& option, std::wstring& prefix) {
    const std::size_t begin = std::min(option.find_first_of(L"0123456789:"), option.size());
    prefix = option.substr(0, begin);
    std::vector<std::uint64_t> numbers(1);
    for (std::size_t i = begin; i + 1 < option.size(); ++i) {
        if (option[i] == L':') numbers.push_back(0);
        if (option[i] >= L'0' && option[i] <= L'9')
            numbers.back() = numbers.back() * 10 + static_cast<std::uint64_t>(option[i] - L'0');
    }
    numbers.resize(3);
    return numbers;
}

void CheckResolve(const std::wstring& option, const tarn::MemorySizes& memory) {
    const std::wstring resolved = tarn::ResolvePercentage(option, memory);
    std::wstring prefix;
    const std::vector<std::uint64_t> numbers = NaiveNumbers(option, prefix);
    Require(resolved.starts_with(prefix) && resolved.back() == L'K');

    const std::uint64_t base = option.back() == L'P' || option.back() == L'p'
                                   ? memory.totalPhysical
                                   : memory.availableVirtual;
    const double share =
        static_cast<double>(base >> 10) * (static_cast<double>(numbers[0]) / 100.0);
    // Memory sizes have at most 64 bits, so larger results are not checked.
    if (share >= 18446744073709551616.0) return;
    auto size = static_cast<std::uint64_t>(share);
    if (numbers[2] != 0) size = std::min(size, numbers[2] * 1024);
    size = std::max(size, numbers[1] * 1024);
    std::int64_t printed = static_cast<std::int64_t>(size & 0xFFFFFFFFu);
    if (printed > 0x7FFFFFFF) printed -= 0x100000000;
    Require(resolved == prefix + std::to_wstring(printed) + L'K');
}

// A percentage up to 100 gives that part of the memory, except for rounding.
void CheckShare(std::uint8_t number, std::uint32_t mebibytes) {
    const unsigned percent = number % 101u;
    const std::uint64_t bytes = std::uint64_t{mebibytes % (1u << 20)} << 20;
    const std::wstring resolved =
        tarn::ResolvePercentage(L"-Xmx" + std::to_wstring(percent) + L"p", {bytes, 0});
    const std::int64_t size = std::stoll(resolved.substr(4));
    const auto exact = static_cast<std::int64_t>((bytes >> 10) * percent / 100);
    Require(size == exact || size == exact - 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarn::fuzz::FuzzInput input(data, size);
    tarn::MemorySizes memory;
    memory.totalPhysical = input.TakeNumber<std::uint64_t>();
    memory.availableVirtual = input.TakeNumber<std::uint64_t>();
    const std::wstring text = input.TakeText();
    CheckShare(static_cast<std::uint8_t>(memory.availableVirtual),
               static_cast<std::uint32_t>(memory.totalPhysical));

    Require(tarn::HasPercentageForm(text) == NaiveHasForm(text));
    if (NaiveHasForm(text)) CheckResolve(text, memory);
    // Few inputs have the form of a percentage, so each is given one as well.
    CheckResolve(L"-Xmx" + text + L'p', memory);
    CheckResolve(L"-Xss" + text + L'T', memory);
    return 0;
}
