#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Returns the name that the launches of one executable share: the full path with every backslash
/// replaced by an underscore, because a backslash separates namespaces in names of kernel objects.
/// It names the shared block and the hand-off message. Case-sensitive, as object names are.
std::wstring InstanceName(std::wstring_view executablePath);

/// Returns the name of the event that is set just before the application's `main` is called.
std::wstring ReadyEventName(std::wstring_view instanceName);

/// Size of the argument area, in UTF-16 units.
inline constexpr std::size_t kArgumentUnits = 520;

/// The memory that the launches of one executable share. Every process of the user that knows the
/// name can write to it at any time, so no value in it is trusted.
struct SharedBlock {
    /// The first instance's listener thread. Written last of the first three fields.
    std::uint32_t listenerThreadId;
    /// The first instance.
    std::uint32_t processId;
    /// The registered message of a request and of its answer.
    std::uint32_t messageId;
    /// Written by a second instance: its arguments, each followed by a zero, the rest zero.
    std::array<char16_t, kArgumentUnits> arguments;
    /// See docs/developer/compatibility.md.
    std::array<std::byte, 1040> unused;
};

// The layout is a protocol between processes, which may run different versions of the launcher.
static_assert(offsetof(SharedBlock, listenerThreadId) == 0);
static_assert(offsetof(SharedBlock, processId) == 4);
static_assert(offsetof(SharedBlock, messageId) == 8);
static_assert(offsetof(SharedBlock, arguments) == 12);
static_assert(offsetof(SharedBlock, unused) == 1052);
static_assert(sizeof(SharedBlock) == 2092);

using ArgumentArea = std::span<char16_t, kArgumentUnits>;
using ConstArgumentArea = std::span<const char16_t, kArgumentUnits>;

/// Returns the UTF-16 units that the arguments take in the area, whether they fit or not.
std::size_t ArgumentUnits(const std::vector<std::wstring>& arguments);

/// Overwrites the whole area with the arguments. Returns false, without a change of the area, when
/// they do not fit: each needs a terminating zero, and the list another one. The size is fixed:
/// docs/developer/compatibility.md.
bool EncodeArguments(const std::vector<std::wstring>& arguments, ArgumentArea area);

/// Returns the arguments in an area of any content. A zero ends an argument, a second zero right
/// after it ends the list. So the list ends at an empty argument, unless that is the first one and
/// another argument follows; two zeros at the start are an empty list. An argument without a zero
/// ends with the area.
std::vector<std::wstring> DecodeArguments(ConstArgumentArea area);

}  // namespace tarn
