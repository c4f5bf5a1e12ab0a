#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// What the launches of one executable know each other by: its full path with every backslash
/// replaced by an underscore, for the names of kernel objects hold none. Names the shared block
/// and the hand-off message. Letter case counts, as it does in object names.
std::wstring InstanceName(std::wstring_view executablePath);

/// The name of the event that is set when the application is about to run.
std::wstring ReadyEventName(std::wstring_view instanceName);

/// Room for the arguments of a second launch, in UTF-16 units.
inline constexpr std::size_t kArgumentUnits = 520;

/// The memory that the launches of one executable share. Every process that knows its name may
/// write into it at any time: what is read here is a claim, never a fact.
struct SharedBlock {
    /// Of the first instance, which writes these three.
    std::uint32_t listenerThreadId;
    std::uint32_t processId;
    std::uint32_t messageId;
    /// Written by a second instance: its arguments, each followed by a zero, the rest zero.
    std::array<char16_t, kArgumentUnits> arguments;
    std::array<std::byte, 1040> unused;
};

// The layout is a contract between processes, which need not be of the same build.
static_assert(offsetof(SharedBlock, listenerThreadId) == 0);
static_assert(offsetof(SharedBlock, processId) == 4);
static_assert(offsetof(SharedBlock, messageId) == 8);
static_assert(offsetof(SharedBlock, arguments) == 12);
static_assert(offsetof(SharedBlock, unused) == 1052);
static_assert(sizeof(SharedBlock) == 2092);

using ArgumentArea = std::span<char16_t, kArgumentUnits>;
using ConstArgumentArea = std::span<const char16_t, kArgumentUnits>;

/// Writes the arguments over the whole area. Returns false, and leaves the area alone, when they
/// need more room than there is: a zero for each of them and one at the end included.
bool EncodeArguments(const std::vector<std::wstring>& arguments, ArgumentArea area);

/// Reads the arguments in an area of any content. A zero ends an argument, and a second zero right
/// after it ends the list. The encoding therefore loses every argument from an empty one on, except
/// a single empty argument at the start; two zeros at the start are an empty list. An argument
/// without a zero ends with the area.
std::vector<std::wstring> DecodeArguments(ConstArgumentArea area);

}  // namespace tarn
