#pragma once

#include <string>
#include <vector>

#include "base/handles.h"

namespace tarn {

/// One running instance for each executable path: what a launch holds for it. Off unless the
/// settings switch it on.
class SingleInstance {
  public:
    SingleInstance() = default;
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance() { Stop(); }

    /// Reads the settings and, when single instance is on, becomes the first instance or hands
    /// `arguments` to it. Returns false when a second instance could not hand them over.
    bool Setup(const std::vector<std::wstring>& arguments);

    /// Another process runs the application already; this one only waits for its answer.
    bool isSecondInstance() const { return false; }

    /// The second instance's wait for the first one's answer, which becomes its exit code.
    int WaitForAnswer() const;

    /// Set just before `main` is called; requests wait for it. Null unless this is a first
    /// instance.
    HANDLE readyEvent() const { return readyEvent_.get(); }

    /// Ends the listener and releases everything. What the listener needs must still be there.
    void Stop();

  private:
    Handle readyEvent_;
};

}  // namespace tarn
