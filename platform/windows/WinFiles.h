// Files of Windows behind the program's file port.
#pragma once

#include "platform/FileStore.h"

namespace velluto {

class WinFiles : public FileStore {
public:
    WinFiles();
    // Nothing is kept here yet while a file is written: a process that is ended in the middle leaves a part of it.
    void KeepWhole(const std::string & /*programFolder*/) {}

    RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError Delete(const std::string &path) override;
    // The root of a drive keeps its separator: without it the drive's own current folder would be meant.
    std::string CurrentFolder() override;
};

// The run-time error of an error code of Windows (ERROR_...), for folders too; one without a meaning of its own is kOther.
[[nodiscard]] RuntimeError FromSystem(unsigned long code);

} // namespace velluto
