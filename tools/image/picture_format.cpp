#include "tools/image/picture_format.h"

#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view bytes;
    std::string_view format;
};

constexpr Signature kSignatures[] = {
    {"\x89PNG\r\n\x1A\n"sv, "PNG"},
    {"GIF87a"sv, "GIF"},
    {"GIF89a"sv, "GIF"},
    {"\xFF\xD8\xFF"sv, "JPEG"},
    {"BM"sv, "BMP"},
    {"II*\0"sv, "TIFF"},
    {"MM\0*"sv, "TIFF"},
    {"\0\0\1\0"sv, "icon"},
    {"\xD7\xCD\xC6\x9A"sv, "metafile"},
    {"\1\0\0\0"sv, "metafile"},
};

}  // namespace

std::string_view PictureFormat(std::span<const std::byte> content) {
    for (const Signature& signature : kSignatures) {
        if (AsText(content).starts_with(signature.bytes)) return signature.format;
    }
    return {};
}

bool IsForNativeSplash(std::string_view format) {
    return !ExtensionOf(format).empty();
}

std::string_view ExtensionOf(std::string_view format) {
    return format == "PNG" ? ".png" : format == "GIF" ? ".gif" : format == "JPEG" ? ".jpg" : "";
}

}  // namespace tarn::tools
