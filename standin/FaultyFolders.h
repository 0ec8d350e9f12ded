// Folders in front of other ones whose chosen operations fail: the faults are those of the file store. Used by the driver
// and by tests.
#pragma once

#include "platform/Folders.h"
#include "standin/FaultyFiles.h"

namespace velluto {

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
