// A file store in front of another one that lets chosen operations on chosen paths fail. Used by the driver and by
// tests to walk every error path.
#pragma once

#include "platform/FileStore.h"

#include <string>
#include <vector>

namespace velluto {

struct FileFault {
    enum class Operation { Open, Read, Write, Delete, Any };
    Operation operation = Operation::Any;
    std::string path;
    int number = FileError::kOther; // the run-time error that the operation gives
    int times = 1;
};

class FaultyFiles : public FileStore {
public:
    explicit FaultyFiles(FileStore &behind) : behind_(behind) {}

    std::vector<FileFault> faults;
    std::vector<std::string> calls; // every operation on a path: "open /a/b"

    RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override;
    RuntimeError Delete(const std::string &path) override;
    std::string CurrentFolder() override { return behind_.CurrentFolder(); }

    // The fault that stands for the next such operation on the path, spent by one; no error where none does.
    RuntimeError Take(FileFault::Operation operation, const std::string &path);

private:
    using Opens = RuntimeError (FileStore::*)(const std::string &, std::unique_ptr<RandomAccessFile> &);
    RuntimeError OpenBy(Opens opens, const std::string &path, std::unique_ptr<RandomAccessFile> &file);

    FileStore &behind_;
};

} // namespace velluto
