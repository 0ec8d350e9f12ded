// Folders of Windows behind the program's port.
#pragma once

#include "platform/Folders.h"

namespace velluto {

// What is hidden is what has the attribute for it, or the system's; a dot at the front of a name hides nothing here.
class WinFolders : public Folders {
public:
    RuntimeError Files(const std::string &folder, std::string_view pattern, std::vector<ListedFile> &files) override;
    RuntimeError Subfolders(const std::string &folder, std::vector<std::string> &names) override;
    RuntimeError FileLength(const std::string &path, std::uint64_t &length) override;
    // The drives that have a letter, in its order: "C:". So written a drive is its root, for all calls here.
    std::vector<std::string> Drives() override;
};

} // namespace velluto
