#include "platform/posix/SaveJournal.h"

#include <cerrno>
#include <dirent.h>
#include <optional>
#include <random>
#include <string_view>
#include <sys/file.h>
#include <vector>

namespace velluto {

namespace {

constexpr std::string_view kPrefix = "save-";
constexpr std::size_t kLongest = std::size_t{1} << 16; // bytes of a file of the journal; a path has 4096 at most

bool Locks(const Descriptor &file)
{
    return ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0;
}

// False where somebody has taken its name away meanwhile.
bool HasName(const Descriptor &file)
{
    struct stat about {};
    return ::fstat(file.Number(), &about) == 0 && about.st_nlink > 0;
}

std::optional<UnfinishedSave> ReadSave(const Descriptor &file)
{
    std::vector<std::uint8_t> bytes(kLongest);
    const std::size_t got = file.Read(bytes);
    return ParseJournalText({reinterpret_cast<const char *>(bytes.data()), got});
}

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};

} // namespace

std::string UnusedName()
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::random_device chance;
    std::string name;
    for (int digit = 0; digit < 16; ++digit) {
        name += kDigits[chance() % kDigits.size()];
    }
    return name;
}

void JournalEntry::TakeBack()
{
    // Closed before it goes: some file systems keep the name of an open file, and with it the folder. Whoever finds it without
    // a lock now finds nothing in it.
    [[maybe_unused]] const int emptied = ::ftruncate(file_.Number(), 0);
    file_.Close();
    ::unlink(path_.c_str());
    ::rmdir(path_.substr(0, path_.rfind('/')).c_str()); // where it was the last one
}

std::unique_ptr<JournalEntry> SaveJournal::Tell(const UnfinishedSave &save, OnDisk when) const
{
    const std::string path = Folder() + "/" + std::string(kPrefix) + UnusedName();
    const std::string text = JournalText(save);
    const auto isOnDisk = [&](const Descriptor &file) { return Sync(file) && Sync(Folder()) && Sync(programFolder_); };
    constexpr int kTries = 3; // another copy of the program takes an empty folder away
    for (int tries = 0; tries < kTries; ++tries) {
        if (::mkdir(Folder().c_str(), 0700) != 0 && errno != EEXIST) {
            return nullptr;
        }
        Descriptor file(path, O_RDWR | O_CREAT | O_EXCL, 0600);
        if (!file.IsOpen() && errno == ENOENT) {
            continue;
        }
        const bool isTold = file.IsOpen() && Locks(file) &&
                            file.Write({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()}) &&
                            (when == OnDisk::WheneverItIs || isOnDisk(file)) && HasName(file);
        auto entry = std::make_unique<JournalEntry>(path, std::move(file));
        if (isTold) {
            return entry;
        }
        entry->TakeBack();
        return nullptr;
    }
    return nullptr;
}

void SaveJournal::EachLeft(const std::function<bool(const UnfinishedSave &)> &undo) const
{
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(Folder().c_str()));
    if (folder == nullptr) {
        return;
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the folder is this thread's own
    while (const dirent *found = ::readdir(folder.get())) {
        if (!std::string_view(found->d_name).starts_with(kPrefix)) {
            continue;
        }
        const std::string path = Folder() + "/" + found->d_name;
        Descriptor file(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
        struct stat about {};
        if (!file.IsOpen() || !file.IsRegular(about) || !Locks(file)) {
            continue; // under way elsewhere, or none of ours
        }
        // One that was never told to its end is of a save that had not begun.
        const std::optional<UnfinishedSave> save = ReadSave(file);
        const bool isDone = !save || undo(*save);
        file.Close();
        if (isDone) {
            ::unlink(path.c_str());
        }
    }
    ::rmdir(Folder().c_str());
}

} // namespace velluto
