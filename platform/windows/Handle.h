// A handle of Windows that is closed when it goes. Used by the adapters of this folder.
#pragma once

#include "platform/windows/Windows.h"

#include <memory>

namespace velluto {

struct CloseHandleOnly {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const
    {
        if (handle != INVALID_HANDLE_VALUE) {
            ::CloseHandle(handle);
        }
    }
};

// What CreateFileW gives: false where it has failed.
class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    explicit operator bool() const { return handle_.get() != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const { return handle_.get(); }

private:
    std::unique_ptr<void, CloseHandleOnly> handle_;
};

} // namespace velluto
