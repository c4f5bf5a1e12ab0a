#pragma once

#include <string>
#include <vector>

namespace tarn::tools {

/// Collects the launcher's messages instead of showing them, during its lifetime. One instance at a
/// time.
class CapturedMessages {
  public:
    CapturedMessages();
    ~CapturedMessages();

    CapturedMessages(const CapturedMessages&) = delete;
    CapturedMessages& operator=(const CapturedMessages&) = delete;

    /// Returns and removes the messages since the last call, in UTF-8.
    static std::vector<std::string> Take();
};

}  // namespace tarn::tools
