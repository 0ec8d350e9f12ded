// The journal of saves under way: a hidden folder in the program's folder, there only while there is something to tell, with a file
// for each save. Whoever saves holds a lock on his, so that another start knows what is under way from what was left. Used by
// KeptFiles.
#pragma once

#include "platform/kept/Disk.h"
#include "platform/kept/UnfinishedSave.h"

#include <functional>
#include <memory>
#include <string>

namespace velluto {

// One save told by the journal. It stays told when the object goes, unless it was taken back.
class JournalEntry {
public:
    JournalEntry(std::string path, disk::File file) : path_(std::move(path)), file_(std::move(file)) {}
    void TakeBack();

private:
    std::string path_;
    disk::File file_; // locked
};

class SaveJournal {
public:
    explicit SaveJournal(std::string programFolder) : programFolder_(std::move(programFolder)) {}

    enum class OnDisk { Now, WheneverItIs };
    // Null where it cannot be told, or not for sure: then no trace is left.
    [[nodiscard]] std::unique_ptr<JournalEntry> Tell(const UnfinishedSave &save, OnDisk when) const;
    // Calls undo for each save that was left; those for which it is true are forgotten. What is no such file is left alone.
    void EachLeft(const std::function<bool(const UnfinishedSave &)> &undo) const;

private:
    [[nodiscard]] std::string Folder() const { return programFolder_ + disk::kSeparator + ".velluto-saves"; }

    std::string programFolder_; // absolute
};

// A name that no other file has: of letters and digits, another at each call.
std::string UnusedName();

} // namespace velluto
