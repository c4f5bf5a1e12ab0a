#pragma once

#include <string>
#include <vector>

#include "base/handles.h"
#include "instance/hand_off.h"
#include "instance/listener.h"
#include "instance/shared_block.h"

namespace tarn {

/// One running instance for each executable path: what a launch holds for it. Off unless the
/// settings switch it on.
class SingleInstance {
  public:
    /// `target` is what a first instance hands later launches over to; looked at until `Stop`.
    explicit SingleInstance(const HandOffTarget& target) : target_(target) {}
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance() { Stop(); }

    /// Reads the settings and, when single instance is on, becomes the first instance or hands
    /// `arguments` to it. Returns false when a second instance could not hand them over. Where the
    /// shared objects cannot be made the launch is an ordinary one, without a word.
    bool Setup(const std::vector<std::wstring>& arguments);

    /// Another process runs the application already; this one only waits for its answer.
    bool isSecondInstance() const { return singleInstance_ && !firstInstance_; }

    /// The second instance's wait for the first one's answer, which becomes its exit code: what
    /// `secondaryMain` returned, the first process's own exit code when that ended without an
    /// answer, or 0 when there is no such process.
    int WaitForAnswer() const;

    /// Set just before `main` is called; requests wait for it. Null unless this is a first
    /// instance.
    HANDLE readyEvent() const { return readyEvent_.get(); }

    /// Ends the listener and releases everything. What the listener needs must still be there.
    void Stop();

  private:
    bool MapBlock(const std::wstring& name);
    bool HandOver(const std::vector<std::wstring>& arguments);
    bool StartListening(const std::wstring& name);
    SharedBlock& block() const { return *static_cast<SharedBlock*>(view_.get()); }

    const HandOffTarget target_;
    bool singleInstance_ = false;
    bool firstInstance_ = false;
    UniqueHandle mapping_;
    UniqueFileView view_;
    UniqueHandle readyEvent_;
    /// Never freed: see there.
    HandOffServer* handOffServer_ = nullptr;
    Listener listener_;
};

}  // namespace tarn
