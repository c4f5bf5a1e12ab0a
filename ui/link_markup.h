#pragma once

#include <string_view>

namespace tarn {

/// The pieces of a link's label. They are views of the scanned text.
struct LinkLabel {
    std::wstring_view prefix;  ///< plain text before the link
    std::wstring_view link;    ///< what is underlined and reacts to the mouse
    std::wstring_view suffix;  ///< plain text behind the link
};

/// Finds the link between the first "<A>" and the next "</A>", in either letter case. Without the
/// closing mark the link runs to the end of the text; without the opening mark the whole text is
/// the link. What stands behind the closing mark is not scanned again.
LinkLabel ScanLinkMarkup(std::wstring_view text);

}  // namespace tarn
