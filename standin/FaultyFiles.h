// A file store and folders in front of other ones that let chosen operations on chosen paths fail. Used by the driver and by
// tests to walk every error path.
#pragma once

#include "platform/FileStore.h"
#include "platform/Folders.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace velluto {

struct FileFault {
    enum class Operation { Open, Read, Write, Delete, Any };
    static constexpr std::array<std::string_view, 5> kNames = {"open", "read", "write", "delete", "any"};
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
    std::unique_ptr<WritingUnderWay> BeginReplacing(const std::string &path, const ByteRuns &bytes) override
    {
        return behind_.BeginReplacing(path, bytes);
    }
    std::unique_ptr<WritingUnderWay> BeginChanging(const std::string &path) override { return behind_.BeginChanging(path); }
    std::string CurrentFolder() override { return behind_.CurrentFolder(); }

    // The fault that stands for the next such operation on the path, spent by one; no error where none does.
    RuntimeError Take(FileFault::Operation operation, const std::string &path);

private:
    using Opens = RuntimeError (FileStore::*)(const std::string &, std::unique_ptr<RandomAccessFile> &);
    RuntimeError OpenBy(Opens opens, const std::string &path, std::unique_ptr<RandomAccessFile> &file);

    FileStore &behind_;
};

// Listing a folder or asking a file's length takes the faults for opening and for reading that path.
class FaultyFolders : public Folders {
public:
    FaultyFolders(Folders &behind, FaultyFiles &faults) : behind_(behind), faults_(faults) {}

    RuntimeError Files(const std::string &folder, std::string_view pattern, std::vector<ListedFile> &files) override;
    RuntimeError Subfolders(const std::string &folder, std::vector<std::string> &names) override;
    RuntimeError FileLength(const std::string &path, std::uint64_t &length) override;
    std::vector<std::string> Drives() override { return behind_.Drives(); }

private:
    RuntimeError Take(const std::string &path);

    Folders &behind_;
    FaultyFiles &faults_;
};

} // namespace velluto
