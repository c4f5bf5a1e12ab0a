#pragma once

#include <string>
#include <string_view>

namespace tarn::tools {

/// A text for a double-quoted string of a NSIS script that is evaluated when setup runs. The text
/// has no meaning for NSIS afterwards: no variable, no constant, no escape.
std::string NsisString(std::string_view text);

/// A text for a double-quoted string that makensis itself uses, such as the path of a source file.
std::string NsisLiteral(std::string_view text);

/// A path with "/" as a string with backslashes, evaluated when setup runs.
std::string NsisPath(std::string_view path);

/// The statements that select the languages of the wizard and define the texts which NSIS lacks, in
/// each of them. The first is used for users with a language that is not among them.
std::string NsisLanguages();

}  // namespace tarn::tools
