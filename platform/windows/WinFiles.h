// Files of Windows behind the program's file port.
#pragma once

#include "platform/FileStore.h"
#include "platform/kept/KeptFiles.h"

namespace velluto {

class WinFiles : public FileStore {
public:
    WinFiles();
    // From now on the end of the process leaves no file half written: the next call with this folder, the program's own, undoes
    // what was under way.
    void KeepWhole(const std::string &programFolder);

    RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError Delete(const std::string &path) override;
    std::unique_ptr<WritingUnderWay> BeginReplacing(const std::string &path, const ByteRuns &bytes) override;
    std::unique_ptr<WritingUnderWay> BeginChanging(const std::string &path) override;
    // The root of a drive keeps its separator: without it the drive's own current folder would be meant.
    std::string CurrentFolder() override;

private:
    std::unique_ptr<KeptFiles> kept_; // null where nothing is kept
};

// The run-time error of an error code of Windows (ERROR_...), for folders too; one without a meaning of its own is kOther.
[[nodiscard]] RuntimeError FromSystem(unsigned long code);

} // namespace velluto
