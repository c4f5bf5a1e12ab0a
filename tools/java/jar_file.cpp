#include "tools/java/jar_file.h"

#include <minizip/ioapi.h>
#include <minizip/unzip.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "tools/common/failure.h"
#include "tools/java/zip_end.h"

namespace tarn::tools {
namespace {

constexpr uLong kEncrypted = 1;              // bit of an entry's flags
constexpr std::size_t kLongestName = 65536;  // a name's length has 16 bits
constexpr std::size_t kMostEntries = 0xFFFF;
constexpr std::string_view kBrokenDirectory = "has a corrupt directory; build or download it again";

// Bytes in memory as minizip's input file. Outlives every unzFile opened with it.
class MemoryStream {
  public:
    explicit MemoryStream(std::span<const std::byte> content) : content_(content) {}

    // The callbacks for unzOpen2_64; their `opaque` pointer is this object.
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
    // The offset comes from the file and may be out of range.
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

}  // namespace

struct JarFile::Reader {
    explicit Reader(std::span<const std::byte> content) : stream(content) {
        zlib_filefunc64_def functions = stream.Functions();
        file = unzOpen2_64("", &functions);
    }
    ~Reader() {
        if (file != nullptr) unzClose(file);
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    MemoryStream stream;
    unzFile file = nullptr;
};

JarFile::JarFile(std::span<const std::byte> content, std::filesystem::path path)
    : path_(std::move(path)) {
    const std::optional<ZipPlace> place = FindZip(content);
    if (!place) Fail("is not a jar or zip file, or is truncated; build or download it again");
    // minizip rejects a file without entries.
    if (place->entries == 0) return;
    // minizip gets the zip file without other data, because its search for the end record is less
    // strict than Java's.
    content = content.first(place->end);
    if (!place->hasAbsoluteOffsets) content = content.subspan(place->begin);
    reader_ = std::make_unique<Reader>(content);
    if (reader_->file == nullptr) Fail(kBrokenDirectory);
    ReadDirectory();
}

JarFile::~JarFile() = default;

void JarFile::Fail(std::string_view problem) const {
    throw Failure(path_, problem);
}

void JarFile::ReadDirectory() {
    unz_global_info64 global = {};
    if (unzGetGlobalInfo64(reader_->file, &global) != UNZ_OK) Fail(kBrokenDirectory);
    std::vector<char> name(kLongestName);
    int outcome = unzGoToFirstFile(reader_->file);
    for (; outcome == UNZ_OK; outcome = unzGoToNextFile(reader_->file)) {
        unz_file_info64 info = {};
        unz64_file_pos position = {};
        if (unzGetCurrentFileInfo64(reader_->file, &info, name.data(), kLongestName, nullptr, 0,
                                    nullptr, 0) != UNZ_OK ||
            unzGetFilePos64(reader_->file, &position) != UNZ_OK) {
            break;
        }
        std::string text(name.data(), std::min<std::size_t>(info.size_filename, kLongestName));
        if ((info.flag & kEncrypted) != 0) {
            Fail("is encrypted (" + text +
                 "), which Java cannot read; create it without a password");
        }
        // Java uses the last of several entries with the same name.
        positions_[text] = {position.pos_in_zip_directory, position.num_of_file};
        names_.push_back(std::move(text));
    }
    // 0xFFFF also stands for a larger number, which minizip finds by reading to the end.
    const bool isMany = global.number_entry == kMostEntries && names_.size() >= kMostEntries;
    if (!isMany && (outcome != UNZ_END_OF_LIST_OF_FILE || names_.size() != global.number_entry)) {
        Fail(kBrokenDirectory);
    }
}

void JarFile::FailEntry(std::string_view name) const {
    Fail("its entry " + std::string(name) + " is corrupt or cannot be decompressed");
}

void JarFile::Open(const Position& position, std::string_view name, std::uint64_t limit) const {
    unz64_file_pos place = {position.inDirectory, position.number};
    unz_file_info64 info = {};
    if (unzGoToFilePos64(reader_->file, &place) != UNZ_OK ||
        unzGetCurrentFileInfo64(reader_->file, &info, nullptr, 0, nullptr, 0, nullptr, 0) !=
            UNZ_OK ||
        unzOpenCurrentFile(reader_->file) != UNZ_OK) {
        FailEntry(name);
    }
    if (info.uncompressed_size > limit) {
        unzCloseCurrentFile(reader_->file);
        Fail("its entry " + std::string(name) + " is too large");
    }
}

std::optional<Bytes> JarFile::Read(std::string_view name, std::size_t limit) const {
    const auto found = positions_.find(name);
    if (found == positions_.end()) return std::nullopt;
    Open(found->second, name, limit);
    unz_file_info64 info = {};
    unzGetCurrentFileInfo64(reader_->file, &info, nullptr, 0, nullptr, 0, nullptr, 0);
    // Read in steps: the size in the directory is not trusted.
    constexpr unsigned kStep = 1U << 16;
    Bytes content;
    int count = 0;
    do {
        const std::size_t used = content.size();
        content.resize(used + kStep);
        count = unzReadCurrentFile(reader_->file, content.data() + used, kStep);
        content.resize(used + static_cast<std::size_t>(std::max(count, 0)));
    } while (count > 0 && content.size() <= limit);
    const int closed = unzCloseCurrentFile(reader_->file);
    if (count != 0 || closed != UNZ_OK || content.size() != info.uncompressed_size) {
        FailEntry(name);
    }
    return content;
}

std::optional<Bytes> JarFile::ReadStart(std::string_view name, std::size_t size) const {
    const auto found = positions_.find(name);
    if (found == positions_.end()) return std::nullopt;
    Open(found->second, name, UINT64_MAX);
    Bytes content(size);
    const int count =
        unzReadCurrentFile(reader_->file, content.data(), static_cast<unsigned>(size));
    unzCloseCurrentFile(reader_->file);
    if (count < 0) FailEntry(name);
    content.resize(static_cast<std::size_t>(count));
    return content;
}

std::string EntryOfClass(std::string_view className) {
    std::string entry(className);
    std::replace(entry.begin(), entry.end(), '.', '/');
    return entry + ".class";
}

}  // namespace tarn::tools
