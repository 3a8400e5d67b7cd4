// Handles that close themselves. Called by the Windows halves of this folder only.
#pragma once
#include <windows.h>

namespace zirvo {

class OwnedHandle {
public:
    explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
    ~OwnedHandle() { Close(); }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;

    bool IsOpen() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }
    /// Takes charge of another one; it must hold none.
    void Reset(HANDLE handle) { handle_ = handle; }
    /// Closes it now; false if the system reports a failure.
    bool Close() {
        const bool good = !IsOpen() || CloseHandle(handle_) != 0;
        handle_ = nullptr;
        return good;
    }

private:
    HANDLE handle_;
};

}  // namespace zirvo
