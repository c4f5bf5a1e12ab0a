#pragma once

namespace tarn {

/// COM on this thread for as long as the object lives (`OleInitialize`): the shell's dialogs and
/// many protocol handlers need it. The library is loaded for the first one.
class ComSession {
  public:
    ComSession();
    ~ComSession();
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

    /// Gives back memory that the shell has handed out (`CoTaskMemFree`).
    static void Free(void* memory);

  private:
    bool initialized_ = false;
};

}  // namespace tarn
