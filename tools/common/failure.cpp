#include "tools/common/failure.h"

#include "tools/common/text_encoding.h"

namespace tarn::tools {

Failure::Failure(const std::string& message) : std::runtime_error(message) {}

Failure::Failure(const std::filesystem::path& file, std::string_view problem)
    : std::runtime_error(Utf8OfPath(file) + ": " + std::string(problem)) {}

}  // namespace tarn::tools
