#pragma once

#include <minizip/ioapi.h>

#include <cstddef>
#include <cstdint>
#include <span>

namespace tarn::tools {

/// Bytes in memory as the file that minizip reads. Lives as long as what was opened with it.
class MemoryStream {
  public:
    explicit MemoryStream(std::span<const std::byte> content) : content_(content) {}

    /// The functions for unzOpen2_64, which find this object by their opaque pointer.
    zlib_filefunc64_def Functions();

  private:
    static voidpf ZCALLBACK Open(voidpf opaque, const void* name, int mode) noexcept;
    static uLong ZCALLBACK Read(voidpf opaque, voidpf stream, void* buffer, uLong size) noexcept;
    static ZPOS64_T ZCALLBACK Tell(voidpf opaque, voidpf stream) noexcept;
    static long ZCALLBACK Seek(voidpf opaque, voidpf stream, ZPOS64_T offset, int origin) noexcept;
    static int ZCALLBACK Close(voidpf opaque, voidpf stream) noexcept;
    static int ZCALLBACK Error(voidpf opaque, voidpf stream) noexcept;

    std::span<const std::byte> content_;
    std::uint64_t position_ = 0;
};

}  // namespace tarn::tools
