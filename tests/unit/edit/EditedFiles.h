// Small instrument files written out in full, windows that show them, and the hands that copy, cut and paste in those
// windows. Used by the tests of the editing commands.
#pragma once

#include "unit/files/BankFiles.h"

#include "edit/Copy.h"
#include "edit/Cut.h"
#include "edit/Paste.h"

#include <string>
#include <vector>

namespace velluto::test {

using namespace std::string_literals; // bodies that hold zero bytes
using Rows = std::vector<int>;        // 0-based
using Texts = std::vector<std::string>;

// An item whose body can be told from the others'.
struct Lettered {
    std::string name;
    int slot = 0;
    std::string body;
};

inline Bytes FileOf(const std::vector<Lettered> &items)
{
    std::vector<Item> all;
    all.reserve(items.size());
    for (const Lettered &item : items) {
        all.push_back({item.name, item.slot, Bytes(item.body.begin(), item.body.end())});
    }
    return InstrumentFile(all);
}

struct Entry {
    std::string name;
    int slot = 0;
    std::string kept = "\x11\x22\x33\x44\x55\x66\x77"; // the four bytes before the slot byte and the three behind it
};

// An image put down piece by piece: the head, these entries, whatever stands between them and the index, and the offsets
// in the index. The head counts as many items as there are offsets, however many entries there are.
inline Bytes Written(const std::vector<Entry> &entries, const std::string &between, const std::vector<std::size_t> &offsets)
{
    std::string directory;
    for (const Entry &entry : entries) {
        directory += DirectoryEntry(entry.name, entry.slot, entry.kept);
    }
    return Framed(directory + between, offsets);
}

// Bytes as one reads them: letters as they are, all else in hexadecimal, a line for each 24.
inline std::string Legible(const Bytes &bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        text += i == 36 || (i > 36 && (i - 36) % 24 == 0) ? "\n" : "";
        if (bytes[i] > ' ' && bytes[i] < 0x7F) {
            text += static_cast<char>(bytes[i]);
        } else {
            text += '<';
            text += kDigits[bytes[i] / 16U];
            text += kDigits[bytes[i] % 16U];
            text += '>';
        }
    }
    return text;
}

inline const std::vector<Lettered> kThreePrograms{{"Piano", 0, "AAA"}, {"Organ", 1, "bb"}, {"Choir", 2, "CCCC"}};
inline const std::vector<Lettered> kThreePerformances{{"Ballad", 0, "AAA"}, {"Disco", 1, "bb"}, {"Latin", 2, "CCCC"}};
inline const std::vector<Lettered> kTwoPairs{{"Bossa", 0, "AAA"}, {"Bossa STS", 0, "aa"}, {"Beguine", 1, "BBBB"}, {"Beguine STS", 1, "b"}};
inline const std::vector<Lettered> kSambaInterleaved{
    {"Samba", 0, "SSSS"}, {"Samba STS", 0, "ss"}, {"Tango", 1, "TTTTT"}, {"Tango STS", 1, "t"}};
inline const std::vector<Lettered> kSambaGrouped{
    {"Samba", 0, "SSSS"}, {"Tango", 1, "TTTTT"}, {"Samba STS", 0, "ss"}, {"Tango STS", 1, "t"}};
inline const std::vector<Lettered> kSambaTangoRumba{{"Samba", 0, "SSSS"}, {"Tango", 1, "TTTTT"}, {"Rumba", 2, "RR"}};
inline const std::vector<Lettered> kBossaDanceLambada{{"Bossa", 0, "AAA"},    {"Dance", 2, "DD"},    {"Lambada", 4, "L"},
                                                      {"Bossa STS", 0, "aa"}, {"Dance STS", 2, "d"}, {"Lambada STS", 4, "llll"}};
inline const std::string kSixteenBlanks(16, ' ');

// The file of no items as an edit frames it: its outer length is that of the whole, 52.
inline const std::string kNoItems =
    Legible({0x01, 0x00, 0x01, 0x14, 0x00, 0x00, 0x00, 0x34, 0x02, 0x00, 0x00, 0x18, 0x00, 0x00, 0x00, 0x0C, 0x0B, 0x00, 0x00, 0x00,
             0x00, 0x00, 0x00, 'K',  'O',  'R',  'F',  0x00, 0x05, 0x00, 0x00, 0x18, 0x00, 0x00, 0x00, 0x00, 0xFE, 0x00, 0x00, 0x18,
             0x00, 0x00, 0x00, 0x10, 'K',  'B',  'E',  'G',  0x00, 0x00, 0x00, 0x1C, 'K',  'E',  'N',  'D',  0x00, 0x00, 0x00, 0x01});

// The rows as a list draws them: up to a zero byte, and without the blanks at their ends.
inline Texts Drawn(const ListBox &list)
{
    Texts drawn;
    for (const std::string &row : list.Rows()) {
        std::string text = row.substr(0, row.find('\0'));
        text.erase(text.find_last_not_of(' ') + 1);
        drawn.push_back(text);
    }
    return drawn;
}

// Everything of a window that a command must leave alone where it leaves all as it was.
struct Everything {
    std::string prefix;
    std::string image;
    Texts rows;
    bool operator==(const Everything &) const = default;
};

class EditTest : public BankFilesTest {
protected:
    using BankFilesTest::BankFilesTest;

    // Each opens a file of these items.
    frmPcgUN &Pcg(const std::string &name, const std::vector<Lettered> &items) { return OpenPcg(name, FileOf(items)); }
    frmPcgUN &OpenPcg(const std::string &name, const Bytes &bytes)
    {
        Open(Put(name, bytes));
        return Opened<frmPcgUN>(name);
    }
    frmStyUN &Style(const std::string &name, const std::vector<Lettered> &items) { return OpenStyle(name, FileOf(items)); }
    frmStyUN &OpenStyle(const std::string &name, const Bytes &bytes)
    {
        OpenSty(Put(name, bytes));
        return Opened<frmStyUN>(name);
    }
    frmPrfUN &Performance(const std::string &name, const std::vector<Lettered> &items) { return OpenPerformance(name, FileOf(items)); }
    frmPrfUN &OpenPerformance(const std::string &name, const Bytes &bytes)
    {
        OpenPrf(Put(name, bytes));
        return Opened<frmPrfUN>(name);
    }
    frmPcgUN &NewPcg64()
    {
        run.Choose(app.frame.mnuPcgNuovo64);
        return Window(11);
    }
    frmPcgUN &NewPcg128()
    {
        run.Choose(app.frame.mnuPcgNuovo128);
        return Window(12);
    }
    frmStyUN &NewSty()
    {
        run.Choose(app.frame.mnuStyNuovo);
        return Sty(0);
    }
    frmPrfUN &NewPrf()
    {
        run.Choose(app.frame.mnuPrfNuovo);
        return Prf(0);
    }

    // Makes the window the active one with just these rows selected.
    void Pick(DocumentForm &window, const Rows &rows)
    {
        app.children.Activate(window);
        window.List1.ClearSelection();
        for (const int row : rows) {
            window.List1.Select(row, true);
        }
    }
    void Copy(DocumentForm &window, const Rows &rows)
    {
        Pick(window, rows);
        mnuCopia_Click(files);
    }
    void Cut(DocumentForm &window, const Rows &rows)
    {
        Pick(window, rows);
        mnuTaglia_Click(files);
    }
    void Paste(DocumentForm &window, const Rows &rows)
    {
        Pick(window, rows);
        mnuIncolla_Click(files);
    }

    static std::string Image(const Form &window) { return Legible(BytesOf(window.Tag.image)); }
    static const std::string &Row(const DocumentForm &window, int row) { return window.List1.Row(row); }
    static Everything All(const DocumentForm &window) { return {window.Tag.prefix, Image(window), window.List1.Rows()}; }
    static int Modified(const Form &window) { return window.Tag.At(TagPosition::Modified); }

    // The rows that come back when the window's file is saved, closed and opened anew; a test fails where the file is not
    // the image byte for byte.
    Texts DrawnAfterSaveAndOpen(DocumentForm &window)
    {
        const int kind = window.Tag.Kind();
        const char *name = kind < 20 ? "again.pcg" : kind < 22 ? "again.sty" : "again.prf";
        app.children.Activate(window);
        SaveAs(run.At(name));
        EXPECT_EQ(Legible(ReadBytes(run.At(name))), Image(window));
        EXPECT_TRUE(run.Close(window)) << "nothing to ask after a save";
        if (kind < 20) {
            Open(run.At(name));
        } else if (kind < 22) {
            OpenSty(run.At(name));
        } else {
            OpenPrf(run.At(name));
        }
        EXPECT_THAT(Boxes(), IsEmpty());
        return Drawn(Opened<DocumentForm>(name).List1);
    }
    void ExpectTheSameAfterSaveAndOpen(DocumentForm &window)
    {
        const Texts before = Drawn(window.List1);
        EXPECT_EQ(DrawnAfterSaveAndOpen(window), before);
    }

    ItemClipboard &clipboard = files.clipboard;

private:
    // The active window; a test fails where it is not of that file.
    template <class W>
    W &Opened(const std::string &name)
    {
        Form *active = app.children.Active();
        if (active == nullptr || active->Tag.Path() != run.At(name)) {
            throw std::runtime_error("not opened: " + name);
        }
        return dynamic_cast<W &>(*active);
    }
};

} // namespace velluto::test
