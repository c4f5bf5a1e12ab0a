#include "tools/java/memory_stream.h"

#include <algorithm>
#include <cstring>

namespace tarn::tools {

zlib_filefunc64_def MemoryStream::Functions() {
    zlib_filefunc64_def functions = {};
    functions.zopen64_file = &Open;
    functions.zread_file = &Read;
    functions.ztell64_file = &Tell;
    functions.zseek64_file = &Seek;
    functions.zclose_file = &Close;
    functions.zerror_file = &Error;
    functions.opaque = this;
    return functions;
}

voidpf ZCALLBACK MemoryStream::Open(voidpf opaque, const void* /*name*/, int /*mode*/) noexcept {
    static_cast<MemoryStream*>(opaque)->position_ = 0;
    return opaque;
}

uLong ZCALLBACK MemoryStream::Read(voidpf opaque, voidpf /*stream*/, void* buffer,
                                   uLong size) noexcept {
    auto& self = *static_cast<MemoryStream*>(opaque);
    const std::uint64_t left = self.content_.size() - self.position_;
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(size, left));
    if (count == 0) return 0;
    std::memcpy(buffer, self.content_.data() + self.position_, count);
    self.position_ += count;
    return static_cast<uLong>(count);
}

ZPOS64_T ZCALLBACK MemoryStream::Tell(voidpf opaque, voidpf /*stream*/) noexcept {
    return static_cast<MemoryStream*>(opaque)->position_;
}

long ZCALLBACK MemoryStream::Seek(voidpf opaque, voidpf /*stream*/, ZPOS64_T offset,
                                  int origin) noexcept {
    auto& self = *static_cast<MemoryStream*>(opaque);
    const std::uint64_t base = origin == ZLIB_FILEFUNC_SEEK_CUR   ? self.position_
                               : origin == ZLIB_FILEFUNC_SEEK_END ? self.content_.size()
                                                                  : 0;
    // An offset of a broken file may lie anywhere.
    const std::uint64_t target = base + offset;
    if (target < base || target > self.content_.size()) return -1;
    self.position_ = target;
    return 0;
}

int ZCALLBACK MemoryStream::Close(voidpf /*opaque*/, voidpf /*stream*/) noexcept {
    return 0;
}

int ZCALLBACK MemoryStream::Error(voidpf /*opaque*/, voidpf /*stream*/) noexcept {
    return 0;
}

}  // namespace tarn::tools
