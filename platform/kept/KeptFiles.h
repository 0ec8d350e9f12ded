// Keeps the old bytes of each file that is being written, so that the end of the process loses none: a told save takes the old file
// away first. Below the rules: what fails while it is done fails as it would without, and a full disk gets what is kept back first.
// Used by PosixFiles and WinFiles.
#pragma once

#include "platform/FileStore.h"
#include "platform/kept/SaveJournal.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace velluto {

class KeptFiles {
public:
    // The journal lies in this folder. What another run has left unfinished there is undone.
    explicit KeptFiles(const std::string &programFolder);

    // As FileStore has them.
    std::unique_ptr<WritingUnderWay> BeginReplacing(const std::string &path, const ByteRuns &bytes);
    std::unique_ptr<WritingUnderWay> BeginChanging(const std::string &path);

    // Takes the file away as deleting it would, where that belongs to a replacing; path has its links followed. False where it still
    // has to be deleted.
    bool PutAside(const std::string &path);
    // Gives back what is kept. True where that may have made room on the disk.
    bool MakeRoom();

private:
    class Writing;
    std::unique_ptr<WritingUnderWay> Begin(UnfinishedSave save);

    SaveJournal journal_;
    std::vector<Writing *> underWay_;
};

} // namespace velluto
