// Folders of a POSIX system behind the program's port.
#pragma once

#include "platform/Folders.h"

namespace velluto {

class PosixFolders : public Folders {
public:
    RuntimeError Files(const std::string &folder, std::string_view pattern, std::vector<ListedFile> &files) override;
    RuntimeError Subfolders(const std::string &folder, std::vector<std::string> &names) override;
    RuntimeError FileLength(const std::string &path, std::uint64_t &length) override;
    // The home folder is what HOME says. Mounted for the user is what lies below /media, /run/media or /mnt.
    std::vector<std::string> Drives() override;
};

// The mount points for the user in a table of mounts, as /proc/self/mounts writes it.
[[nodiscard]] std::vector<std::string> UserMounts(std::string_view table);

} // namespace velluto
