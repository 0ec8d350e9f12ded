// The lists that lead to a folder: one of drives, one of folders. They know nothing of a file system: the form fills them and
// follows their path.
#pragma once

#include "view/Control.h"

namespace velluto {

// The folders from the root down to the open one and those inside it. A path that cannot be opened is the form's affair.
class FolderList : public ListBox {
public:
    FolderList(Form &form, std::string name, int index = kNoIndex) : ListBox(form, std::move(name), index)
    {
        multiSelect = false;
        encoding = Encoding::Utf8;
    }
    std::string path;               // of the open folder; empty before the first
    std::vector<std::string> paths; // of each row
    // Asks the form to open a folder, as a double click on its row does.
    std::function<void(const std::string &path)> Open;
};

// Choosing a drive raises Change, also where it is the one shown: that leads back to its top.
class DriveList : public ComboBox {
public:
    DriveList(Form &form, std::string name, int index = kNoIndex) : ComboBox(form, std::move(name), index) {}
    // rows are the paths of the drives. None is shown then.
    void SetDrives(std::vector<std::string> paths);
    // The path of the drive shown; empty for none.
    [[nodiscard]] std::string Drive() const;
    void Choose(int row);
    Handler Change;
};

} // namespace velluto
