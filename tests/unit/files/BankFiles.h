// Style and Performance files of a few items, and a running program with their windows within reach.
// Used by the tests of those windows and of the overviews.
#pragma once

#include "unit/files/InstrumentFiles.h"

#include "app/ViewKind.h"
#include "edit/EditMenu.h"
#include "files/frmPrfUN.h"
#include "files/frmPrfUserAll.h"
#include "files/frmStyUN.h"
#include "files/frmStyUserAll.h"

namespace velluto::test {

// An item with a body of so many bytes.
inline Item Sized(const std::string &name, int slot, std::size_t size)
{
    return {name, slot, Bytes(size, 0x5A)};
}

// The bytes of a file whose body bytes are all ones that no test takes for a slot.
inline Bytes FileWithItems(const std::vector<std::pair<std::string, int>> &items)
{
    std::vector<Item> all;
    for (const auto &[name, slot] : items) {
        all.push_back(Sized(name, slot, all.size() + 1));
    }
    return InstrumentFile(all);
}

// A text that holds zero bytes.
template <std::size_t Length>
std::string WithZeros(const char (&text)[Length]) // NOLINT(modernize-avoid-c-arrays): a literal is one
{
    return {text, Length - 1};
}

class BankFilesTest : public FilesTest {
protected:
    using FilesTest::FilesTest;

    frmStyUN &Sty(int slot) { return WindowAt<frmStyUN>(files.styles.windows, slot); }
    frmPrfUN &Prf(int slot) { return WindowAt<frmPrfUN>(files.performances.windows, slot); }
    frmStyUserAll &StyAll(int kind) { return WindowAt<frmStyUserAll>(files.overviews, kind - 24); }
    frmPrfUserAll &PrfAll() { return WindowAt<frmPrfUserAll>(files.overviews, 0); }
    bool HasSty(int slot) { return files.styles.windows.at(static_cast<std::size_t>(slot)) != nullptr; }
    bool HasPrf(int slot) { return files.performances.windows.at(static_cast<std::size_t>(slot)) != nullptr; }
    DocRecord &StyRecord(int slot) { return app.settings.StyDocTable.at(static_cast<std::size_t>(slot)); }
    DocRecord &PrfRecord(int slot) { return app.settings.PrfDocTable.at(static_cast<std::size_t>(slot)); }

    void OpenSty(const std::string &path)
    {
        run.face.choices.push_back({false, path, 2});
        run.Choose(app.frame.mnuStyApri);
    }
    void OpenPrf(const std::string &path)
    {
        run.face.choices.push_back({false, path, 3});
        run.Choose(app.frame.mnuPrfApri);
    }
    // Puts the file there and opens it in slot 1.
    frmStyUN &StyleOf(const Bytes &bytes)
    {
        OpenSty(Put("a.sty", bytes));
        return Sty(1);
    }
    frmPrfUN &PerformanceOf(const Bytes &bytes)
    {
        OpenPrf(Put("a.prf", bytes));
        return Prf(1);
    }
    // Ties a bank to a file the way the settings hold it, and lets its commands be chosen.
    void TieSty(int slot, const std::string &path)
    {
        StyRecord(slot).Path.Set(path);
        for (MenuEntry *entry : {&app.frame.mnuStyUserAll, &app.frame.mnuStyDirectHD19, &app.frame.mnuStyDirectHD123,
                                 &app.frame.mnuStyDirectHD456, &app.frame.mnuStyDirectHD789}) {
            entry->enabled = true;
        }
        (slot <= 11 ? app.frame.mnuStyUser[slot] : app.frame.mnuStyDirectHD[slot - 11]).enabled = true;
    }
    void TiePrf(int slot, const std::string &path)
    {
        PrfRecord(slot).Path.Set(path);
        app.frame.mnuPrfUser120.enabled = true;
        app.frame.mnuPrfUserAll.enabled = true;
        app.frame.mnuPrfUser[slot - 8].enabled = true;
    }
    // First runs tie banks 1 to 10 to factory files, which no test has.
    void SetUp() override
    {
        FilesTest::SetUp();
        for (int slot = 9; slot <= 18; ++slot) {
            PrfRecord(slot).Path.Set("");
        }
    }
    std::vector<std::string> OpenForms()
    {
        std::vector<std::string> names;
        for (const Form *form : app.children.All()) {
            names.push_back(form->FullName());
        }
        return names;
    }
};

// Windows of Style files.
class StyleWindowTest : public BankFilesTest {
protected:
    using BankFilesTest::BankFilesTest;
    // Opens the bank of that slot, tied to the file, from the View menu.
    frmStyUN &OpenBank(int slot, const std::string &path)
    {
        TieSty(slot, path);
        run.Choose(slot <= 11 ? app.frame.mnuStyUser[slot] : app.frame.mnuStyDirectHD[slot - 11]);
        return Sty(slot);
    }
    static std::string Row(frmStyUN &window, int row) { return window.List1.Row(row); }
};

} // namespace velluto::test
