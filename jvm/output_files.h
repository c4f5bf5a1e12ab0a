#pragma once

#include <string>

namespace tarn {

/// Where Java's standard streams go. Environment variables are expanded, time-stamp pictures are
/// not yet; an empty name leaves the stream alone.
struct OutputFiles {
    std::wstring outputFile;
    bool outputAppend = false;
    std::wstring errorFile;
    bool errorAppend = false;
};

}  // namespace tarn
