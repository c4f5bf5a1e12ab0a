#pragma once

#include <string>
#include <vector>

#include "base/windows.h"

namespace tarn {

/// A program registered for a URL scheme while the object lives. It creates a file when it is run.
class UrlHandler {
  public:
    explicit UrlHandler(const std::wstring& scheme);
    ~UrlHandler();
    UrlHandler(const UrlHandler&) = delete;
    UrlHandler& operator=(const UrlHandler&) = delete;

    /// Waits, with a time limit, until the program has been run.
    bool WasRun() const;

  private:
    void Register(HKEY root);

    std::wstring key_;
    std::wstring trace_;
    std::vector<HKEY> roots_;
};

}  // namespace tarn
