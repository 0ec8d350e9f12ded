// What the windows of the three types of file share: their list, their place, how they load, close, are resized and
// clicked, and the buttons that tie their file to a bank. Each type's form adds its rows and its own rules.
#pragma once

#include "files/Files.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velluto {

class DocumentForm : public ChildForm {
public:
    ListBox List1{*this, "List1"};

    [[nodiscard]] DocumentType &Type() const { return type_; }

protected:
    // command is that of the menu which is off while this window, of a new file or of a bank, is there.
    DocumentForm(std::string name, FilesState &files, DocumentType &type, int slot, MenuEntry *command);

    // Makes the button one of those that tie this file to a bank; they are shown in file windows only. bankName is what
    // its tool tip and a screen reader call the bank.
    void AddBankButton(Button &button, int bankSlot, std::string bankName);
    // Makes the button the one that closes the window.
    void AddCloseButton(Button &button, bool visible);

    [[nodiscard]] FilesState &Files() const { return files_; }
    [[nodiscard]] DocRecord &Work() const { return type_.work; }
    [[nodiscard]] int Slot() const { return slot_; }
    [[nodiscard]] bool IsFileWindow() const { return IsFileSlot(slot_); }

    // Copies the bank's slot to the working record and closes its window where it has State 1; its own close logic
    // applies, and a user who keeps it open does not stop what follows.
    void TakeBank(int bankSlot);
    // Stores the working record as the bank's; its menu entry can be chosen and reads as the words say.
    void StoreBank(int bankSlot, MenuEntry &entry, const std::string &words);

private:
    // Expects the slot's record, app.ViewKind, and the file in files.LoadImage where the window is not of a new file.
    bool LoadWindow() final;
    void UnloadWindow() final;
    void Resized() final;

    // Ties this file to a bank.
    virtual void TieTo(int bankSlot) = 0;
    // The name that a new file is given.
    [[nodiscard]] virtual std::string NewName() const = 0;
    // Rows, and what else of the state text is the type's own, for a new file and for the file in tag.image.
    virtual void ShowNew(WindowTag &tag) = 0;
    virtual void ShowFile(WindowTag &tag) = 0;
    // The outer natural size; called first of all.
    [[nodiscard]] virtual Size NaturalSize() = 0;
    // Before the record in Work() decides the window's place.
    virtual void CheckPlace() {}
    // The height of what stands below the list, and where its buttons stand. Twips.
    [[nodiscard]] virtual int ButtonsHeight() const = 0;
    virtual void LayOutButtons(int width, int top) = 0;
    // The kind in the state text of a window that has been loaded with this kind.
    [[nodiscard]] virtual int KindOnceLoaded(int kind) const { return kind; }
    // A click on a row passes on to the instrument: by the row without its trailing blanks, and by the slot.
    [[nodiscard]] virtual bool SelectsRow(std::size_t trimmedLength) const = 0;
    // True where the clipboard's copy came from this very window.
    [[nodiscard]] virtual bool IsCopySource() const;

    void PlaceWindow();
    void LayOut();
    void RefreshToolTips();
    void List1_Click();
    void List1_KeyDown(int key) const;
    void CommClose_Click();

    struct BankButton {
        Button *button;
        int slot;
        std::string name;
    };
    FilesState &files_;
    DocumentType &type_;
    int slot_;
    std::vector<BankButton> banks_;
    Button *close_ = nullptr;
};

} // namespace velluto
