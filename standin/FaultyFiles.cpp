#include "standin/FaultyFiles.h"

namespace velluto {

namespace {

class FaultyFile : public RandomAccessFile {
public:
    FaultyFile(FaultyFiles &faults, std::string path, std::unique_ptr<RandomAccessFile> behind)
        : faults_(faults), path_(std::move(path)), behind_(std::move(behind))
    {
    }
    RuntimeError Length(std::uint64_t &length) override { return behind_->Length(length); }
    RuntimeError Read(std::uint64_t offset, std::span<std::uint8_t> buffer, std::size_t &got) override
    {
        const RuntimeError error = faults_.Take(FileFault::Operation::Read, path_);
        return error.Failed() ? error : behind_->Read(offset, buffer, got);
    }
    RuntimeError Write(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        const RuntimeError error = faults_.Take(FileFault::Operation::Write, path_);
        return error.Failed() ? error : behind_->Write(offset, bytes);
    }

private:
    FaultyFiles &faults_;
    std::string path_;
    std::unique_ptr<RandomAccessFile> behind_;
};

} // namespace

RuntimeError FaultyFiles::Take(FileFault::Operation operation, const std::string &path)
{
    calls.push_back(std::string(FileFault::kNames.at(static_cast<std::size_t>(operation))) + " " + path);
    for (FileFault &fault : faults) {
        const bool meant = fault.operation == operation || fault.operation == FileFault::Operation::Any;
        if (meant && fault.path == path && fault.times > 0) {
            --fault.times;
            return {fault.number};
        }
    }
    return {};
}

RuntimeError FaultyFiles::Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file)
{
    return OpenBy(&FileStore::Open, path, file);
}

RuntimeError FaultyFiles::OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file)
{
    return OpenBy(&FileStore::OpenToRead, path, file);
}

RuntimeError FaultyFiles::OpenBy(Opens opens, const std::string &path, std::unique_ptr<RandomAccessFile> &file)
{
    if (const RuntimeError error = Take(FileFault::Operation::Open, path); error.Failed()) {
        return error;
    }
    std::unique_ptr<RandomAccessFile> opened;
    const RuntimeError error = (behind_.*opens)(path, opened);
    if (!error.Failed()) {
        file = std::make_unique<FaultyFile>(*this, path, std::move(opened));
    }
    return error;
}

RuntimeError FaultyFiles::Delete(const std::string &path)
{
    const RuntimeError error = Take(FileFault::Operation::Delete, path);
    return error.Failed() ? error : behind_.Delete(path);
}

RuntimeError FaultyFolders::Take(const std::string &path)
{
    const RuntimeError error = faults_.Take(FileFault::Operation::Open, path);
    return error.Failed() ? error : faults_.Take(FileFault::Operation::Read, path);
}

RuntimeError FaultyFolders::Files(const std::string &folder, std::string_view pattern, std::vector<ListedFile> &files)
{
    const RuntimeError error = Take(folder);
    return error.Failed() ? error : behind_.Files(folder, pattern, files);
}

RuntimeError FaultyFolders::Subfolders(const std::string &folder, std::vector<std::string> &names)
{
    return behind_.Subfolders(folder, names);
}

RuntimeError FaultyFolders::FileLength(const std::string &path, std::uint64_t &length)
{
    const RuntimeError error = Take(path);
    return error.Failed() ? error : behind_.FileLength(path, length);
}

} // namespace velluto
