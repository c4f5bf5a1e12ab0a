#include "tools/image/picture_format.h"

#include <algorithm>

namespace tarn::tools {
namespace {

using namespace std::string_view_literals;

struct Beginning {
    std::string_view bytes;
    std::string_view format;
};

constexpr Beginning kBeginnings[] = {
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
    for (const Beginning& beginning : kBeginnings) {
        const bool isIt =
            content.size() >= beginning.bytes.size() &&
            std::equal(beginning.bytes.begin(), beginning.bytes.end(), content.begin(),
                       [](char a, std::byte b) { return static_cast<std::byte>(a) == b; });
        if (isIt) return beginning.format;
    }
    return {};
}

bool IsForNativeSplash(std::string_view format) {
    return format == "PNG" || format == "GIF" || format == "JPEG";
}

}  // namespace tarn::tools
