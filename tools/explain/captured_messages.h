#pragma once

#include <string>
#include <vector>

namespace tarn::tools {

/// While it lives, the launcher's own steps tell their messages here instead of showing them. One
/// at a time.
class CapturedMessages {
  public:
    CapturedMessages();
    ~CapturedMessages();

    CapturedMessages(const CapturedMessages&) = delete;
    CapturedMessages& operator=(const CapturedMessages&) = delete;

    /// The messages since the last call, in UTF-8.
    static std::vector<std::string> Take();
};

}  // namespace tarn::tools
