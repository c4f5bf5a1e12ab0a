#pragma once

#include <string>
#include <vector>

#include "base/handles.h"
#include "instance/hand_off.h"
#include "instance/shared_block.h"

namespace tarn {

class LayeredSettings;

/// Returns whether "Single Instance" is on. It has no effect for a service.
bool IsSingleInstanceOn(const LayeredSettings& settings);

/// Returns whether the pages of a view of the shared block are committed (`VirtualQuery`). Another
/// program may have created the block with reserved pages, which the first access would fault on.
/// The block is smaller than a page.
bool IsCommitted(const void* view);

/// The objects with which one launch takes part in "Single Instance": one running application for
/// each executable path. Without the setting there are none.
class SingleInstance {
  public:
    /// `target` is read until `Stop`.
    explicit SingleInstance(const HandOffTarget& target) : target_(target) {}
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;
    ~SingleInstance() { Stop(); }

    /// Reads the settings and, if "Single Instance" is on, makes this process the first instance or
    /// hands `arguments` over to it. Returns false if the settings path is unknown or a second
    /// instance cannot hand its arguments over. If a shared object cannot be created, the launch
    /// continues without single instance and without a message.
    bool SetupSingleInstance(const std::vector<std::wstring>& arguments);

    /// Whether another process runs the application, so that this one only waits for its answer.
    bool isSecondInstance() const { return singleInstance_ && !firstInstance_; }

    /// Waits in a second instance for the answer, which becomes the exit code. Returns the result
    /// of `secondaryMain`, the exit code of the first process when that ends without an answer, or
    /// 0 when the process cannot be opened.
    int WaitForAnswer() const;

    /// The event to set just before `main` is called; requests wait for it. Null unless this is a
    /// first instance.
    HANDLE readyEvent() const { return readyEvent_.get(); }

    /// Ends the listener and releases everything. The target must still exist.
    void Stop();

  private:
    bool MapBlock(const std::wstring& instanceName);
    bool HandOver(const std::vector<std::wstring>& arguments);
    bool StartListening(const std::wstring& instanceName);
    SharedBlock& block() const { return *static_cast<SharedBlock*>(sharedBlock_.get()); }

    const HandOffTarget target_;
    bool singleInstance_ = false;
    /// This process created the shared block.
    bool firstInstance_ = false;
    UniqueHandle mappingHandle_;
    UniqueFileView sharedBlock_;
    UniqueHandle readyEvent_;
    /// Never freed: see `HandOffServer`.
    HandOffServer* handOffServer_ = nullptr;
    Listener listener_;
};

}  // namespace tarn
