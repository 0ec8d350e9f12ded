// Files of a POSIX system behind the program's file port.
#pragma once

#include "platform/FileStore.h"

namespace velluto {

class PosixFiles : public FileStore {
public:
    PosixFiles();
    RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError Delete(const std::string &path) override;
    std::string CurrentFolder() override;
};

// The run-time error of a system's error code, for folders too: code is an errno; one without a meaning of its own is kOther.
[[nodiscard]] RuntimeError FromErrno(int code);

} // namespace velluto
