// The three types of document window, as the suites see them that run on each of the three.
#pragma once

#include "unit/files/BankFiles.h"

namespace velluto::test {

// What a suite needs to know of a type, and what is not alike.
struct DocumentKind {
    std::string name;
    std::size_t type; // in files.types
    std::string extension;
    std::string form;
    int viewKind;
    int firstBank; // the slot of User 1
    int newSlot;
    int buttonOffset; // from a bank's slot to the number of its button and of its menu entry
    Bytes file;
    std::string row0; // of the file's first item, as the window begins it
    std::uint32_t msb;
    std::uint32_t lsb; // of User 1
    std::string question;
    bool freesSlot;
    int clearedByNo;
};

inline std::vector<DocumentKind> DocumentKinds()
{
    return {
        {"Program", 0, ".pcg", "frmPcgUN", 14, 9, 11, 0, FileWithItems({{"Grand Piano", 0}, {"Organ", 5}}), " 001 Grand Piano", 121, 64,
         "File Program - a.pcg (1)", true, TagPosition::ProgramEdited},
        {"Style", 1, ".sty", "frmStyUN", 20, 9, 0, 0, FileWithItems({{"Bossa", 0}, {"STS", 0}, {"Beat", 5}, {"STS", 5}}),
         " 01 Bossa                1  ", 0, 17, "File Style: ", false, TagPosition::ProgramEdited},
        {"Performance", 2, ".prf", "frmPrfUN", 22, 9, 0, 8, FileWithItems({{"Ballad", 0}, {"Waltz", 5}}), " 1 Ballad", 1, 0,
         "File a.prf (1)", true, TagPosition::Modified},
    };
}

class EachDocumentTest : public BankFilesTest, public ::testing::WithParamInterface<DocumentKind> {
protected:
    const DocumentKind &kind = GetParam();
    DocumentType &type = files.types.at(kind.type);

    void SetUp() override
    {
        BankFilesTest::SetUp();
        app.settings.ChannelRole = {14, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        run.Choose(app.frame.mnuDevMIDIOut[0]);
        run.midi.sent.clear();
    }
    std::string PutFile(const std::string &name) { return Put(name + kind.extension, kind.file); }
    void OpenFile(const std::string &path)
    {
        run.face.choices.push_back({false, path, type.filterIndex});
        run.Choose(type.openCommand);
    }
    bool Has(int slot) { return Find(slot) != nullptr; }
    Form *Find(int slot)
    {
        for (Form *form : app.children.All()) {
            if (form->name() == kind.form && form->number() == slot) {
                return form;
            }
        }
        return nullptr;
    }
    Form &Window(int slot)
    {
        if (Form *form = Find(slot)) {
            return *form;
        }
        throw std::runtime_error("no window in slot " + std::to_string(slot));
    }
    static ListBox &List(Form &form) { return dynamic_cast<ListBox &>(*ControlNamed(form, "List1")); }
    DocRecord &Record(int slot) { return type.table[static_cast<std::size_t>(slot)]; }
    MenuEntry &BankEntry()
    {
        if (&type == &files.programs) {
            return app.frame.mnuPcgUser[9];
        }
        return &type == &files.styles ? app.frame.mnuStyUser[9] : app.frame.mnuPrfUser[1];
    }
    MenuEntry &NewEntry()
    {
        if (&type == &files.programs) {
            return app.frame.mnuPcgNuovo64;
        }
        return &type == &files.styles ? app.frame.mnuStyNuovo : app.frame.mnuPrfNuovo;
    }
    Control &BankButton(Form &form) { return *ControlNamed(form, "CommUser", kind.firstBank - kind.buttonOffset); }
    std::array<bool, 9> &OpenFlags() { return type.openFlags; }
    // Opens the file, ties it to User 1 and opens that bank.
    Form &OpenBankOf(const std::string &path)
    {
        OpenFile(path);
        Press(BankButton(Window(1)));
        run.Choose(BankEntry());
        return Window(kind.firstBank);
    }
};

inline std::string NameOfKind(const ::testing::TestParamInfo<DocumentKind> &row)
{
    return row.param.name;
}

} // namespace velluto::test
