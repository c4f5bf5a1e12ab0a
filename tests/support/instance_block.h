#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/handles.h"

namespace tarn::test {

/// The name that the launches of one executable share.
std::wstring InstanceNameOf(std::wstring_view executable);

/// The shared memory of an executable's launches. The offsets are written down here again, so that
/// a change of the launcher's layout fails the tests.
class InstanceBlock {
  public:
    static constexpr std::size_t kSize = 2092;
    static constexpr std::size_t kListenerThread = 0;
    static constexpr std::size_t kProcess = 4;
    static constexpr std::size_t kMessage = 8;
    static constexpr std::size_t kArguments = 12;
    static constexpr std::size_t kArgumentBytes = 1040;
    static constexpr std::size_t kUnused = 1052;

    /// Opens an existing block; the object is empty if there is none.
    static InstanceBlock Open(std::wstring_view executable);
    /// Creates the block, or opens an existing one.
    static InstanceBlock Create(std::wstring_view executable);

    explicit operator bool() const { return static_cast<bool>(view_); }

    std::uint32_t Number(std::size_t offset) const;
    void SetNumber(std::size_t offset, std::uint32_t value);
    std::string Bytes(std::size_t offset, std::size_t size) const;
    void SetBytes(std::size_t offset, std::string_view bytes);

    /// The argument area in UTF-16 units, without the trailing zeros.
    std::u16string Arguments() const;

  private:
    explicit InstanceBlock(HANDLE mapping);

    UniqueHandle mapping_;
    UniqueFileView view_;
};

}  // namespace tarn::test
