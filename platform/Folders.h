// What lies in the folders of the machine: files by pattern with their lengths, folders, and the places where a search
// begins. Used by player/; answered by PosixFolders and WinFolders, with FaultyFolders in front of it in the driver and the tests.
#pragma once

#include "platform/RuntimeError.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velluto {

struct ListedFile {
    std::string name; // without its folder
    std::uint64_t length = 0;
    bool operator==(const ListedFile &) const = default;
};

// Paths are the platform's own, in UTF-8. Names come sorted without regard to the case of ASCII letters. Hidden files and
// folders are left out. Errors are the run-time numbers of FileError: 76 for a folder that is not there.
class Folders {
public:
    virtual ~Folders() = default;
    // The regular files of the folder whose names match the pattern: "*" stands for anything, letters match in any case.
    virtual RuntimeError Files(const std::string &folder, std::string_view pattern, std::vector<ListedFile> &files) = 0;
    virtual RuntimeError Subfolders(const std::string &folder, std::vector<std::string> &names) = 0;
    // Error 53 where the folder has no such regular file, 76 where the folder is not there.
    virtual RuntimeError FileLength(const std::string &path, std::uint64_t &length) = 0;
    // Where a search begins: the root, the user's home folder, and what is mounted for the user; on Windows its drives.
    virtual std::vector<std::string> Drives() = 0;
};

// Does a name match a pattern of letters and "*"? ASCII letters match in any case.
[[nodiscard]] bool MatchesPattern(std::string_view name, std::string_view pattern);
// The order of names in a list: without regard to the case of ASCII letters, then byte by byte.
[[nodiscard]] bool ComesBefore(std::string_view name, std::string_view other);

} // namespace velluto
