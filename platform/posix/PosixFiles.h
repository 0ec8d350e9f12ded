// Files of a POSIX system behind the program's file port.
#pragma once

#include "platform/FileStore.h"
#include "platform/kept/KeptFiles.h"

namespace velluto {

class PosixFiles : public FileStore {
public:
    PosixFiles();
    // From now on the end of the process leaves no file half written: the next call with this folder, the program's own, undoes
    // what was under way.
    void KeepWhole(const std::string &programFolder);

    RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError Delete(const std::string &path) override;
    std::unique_ptr<WritingUnderWay> BeginReplacing(const std::string &path, const ByteRuns &bytes) override;
    std::unique_ptr<WritingUnderWay> BeginChanging(const std::string &path) override;
    std::string CurrentFolder() override;

private:
    std::unique_ptr<KeptFiles> kept_; // null where nothing is kept
};

// The run-time error of a system's error code, for folders too: code is an errno; one without a meaning of its own is kOther.
[[nodiscard]] RuntimeError FromErrno(int code);

} // namespace velluto
