#include "platform/kept/SaveJournal.h"

#include <optional>
#include <random>
#include <string_view>
#include <vector>

namespace velluto {

namespace {

constexpr std::string_view kPrefix = "save-";
constexpr std::size_t kLongest = std::size_t{1} << 16; // bytes of a file of the journal; a path has 4096 at most

std::optional<UnfinishedSave> ReadSave(const disk::File &file)
{
    std::vector<std::uint8_t> bytes(kLongest);
    const std::size_t got = file.Read(bytes);
    return ParseJournalText({reinterpret_cast<const char *>(bytes.data()), got});
}

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
    file_.Empty();
    file_.Close();
    disk::TakeAway(path_);
    disk::TakeEmptyFolderAway(path_.substr(0, path_.rfind(disk::kSeparator))); // where it was the last one
}

std::unique_ptr<JournalEntry> SaveJournal::Tell(const UnfinishedSave &save, OnDisk when) const
{
    const std::string path = Folder() + disk::kSeparator + std::string(kPrefix) + UnusedName();
    const std::string text = JournalText(save);
    const auto isOnDisk = [&](const disk::File &file) { return file.Sync() && disk::Sync(Folder()) && disk::Sync(programFolder_); };
    constexpr int kTries = 3; // another copy of the program takes an empty folder away
    for (int tries = 0; tries < kTries; ++tries) {
        if (!disk::MakeHiddenFolder(Folder())) {
            return nullptr;
        }
        bool folderIsMissing = false;
        disk::File file = disk::File::Make(path, folderIsMissing);
        if (folderIsMissing) {
            continue;
        }
        const bool isTold = file.IsOpen() && file.Lock() &&
                            file.Write({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()}) &&
                            (when == OnDisk::WheneverItIs || isOnDisk(file)) && file.HasName();
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
    const std::vector<std::string> names = disk::NamesIn(Folder());
    for (const std::string &name : names) {
        if (!name.starts_with(kPrefix)) {
            continue;
        }
        const std::string path = Folder() + disk::kSeparator + name;
        disk::File file = disk::File::ToRead(path);
        if (!file.IsOpen() || !file.Lock()) {
            continue; // under way elsewhere, or none of ours
        }
        // One that was never told to its end is of a save that had not begun.
        const std::optional<UnfinishedSave> save = ReadSave(file);
        const bool isDone = !save || undo(*save);
        file.Close();
        if (isDone) {
            disk::TakeAway(path);
        }
    }
    if (!names.empty()) {
        disk::TakeEmptyFolderAway(Folder());
    }
}

} // namespace velluto
