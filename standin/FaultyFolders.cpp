#include "standin/FaultyFolders.h"

namespace velluto {

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
