#include "tools/stamp/icon_file.h"

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

// A drawing may begin with an XML declaration and comments.
constexpr std::size_t kStart = 4096;

bool IsDrawing(const Bytes& content) {
    const std::string_view start = AsText(content).substr(0, kStart);
    const std::size_t first = start.find_first_of('<');
    return first != std::string_view::npos && start.find("<svg", first) != std::string_view::npos;
}

}  // namespace

std::vector<IconPicture> ReadIconFile(const std::filesystem::path& file) {
    const Bytes content = ReadWholeFile(file, kLargestIconFile);
    if (IsDrawing(content)) {
        // Drawing libraries compute with floating-point functions whose results differ between
        // systems, so the same drawing would not give the same bytes everywhere.
        const std::string name = Utf8OfPath(file);
        const std::string picture =
            Utf8OfPath(std::filesystem::path(file).replace_extension(".png"));
        throw Failure(file,
                      "is an SVG drawing; convert it to a PNG picture, for example with "
                      "rsvg-convert --width 256 --height 256 --output \"" +
                          picture + "\" \"" + name + "\"");
    }
    return WithFileName(file, [&] { return ReadIcon(content); });
}

}  // namespace tarn::tools
