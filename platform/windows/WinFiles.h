// Files of Windows behind the program's file port.
#pragma once

#include "platform/FileStore.h"

namespace velluto {

class WinFiles : public FileStore {
public:
    WinFiles();
    RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError Delete(const std::string &path) override;
    // The root of a drive keeps its separator: without it the drive's own current folder would be meant.
    std::string CurrentFolder() override;
};

// The run-time error of an error code of Windows (ERROR_...), for folders too; one without a meaning of its own is kOther.
[[nodiscard]] RuntimeError FromSystem(unsigned long code);

} // namespace velluto
