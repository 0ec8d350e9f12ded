// Captions of all list windows, and the natural size.
#include "unit/files/InstrumentFiles.h"
#include "unit/support/NativePath.h"

#include "app/ViewKind.h"

namespace velluto::test {
namespace {

WindowTag TagOf(int kind, int slot, const std::string &path)
{
    WindowTag tag;
    tag.prefix = TagPrefix();
    tag.Set(TagPosition::Kind, kind);
    tag.Set(TagPosition::Slot, slot);
    tag.SetPath(path);
    return tag;
}

class WindowTitleTest : public FilesTest {
protected:
    std::string Title(int kind, int slot, const std::string &path = Native("/music/Song.ext"))
    {
        return WindowTitle(app, TagOf(kind, slot, path));
    }
};

TEST_F(WindowTitleTest, FactoryProgramBanks)
{
    EXPECT_EQ(Title(2, 0, "A: Piano, E.Piano"), "Banchi A: Piano, E.Piano");
    EXPECT_EQ(Title(7, 0, "F: Drum/Perc, SFX"), "Banchi F: Drum/Perc, SFX");
    const std::string long45(45, 'x');
    EXPECT_EQ(Title(5, 0, long45 + "beyond"), "Banchi " + long45) << "45 characters";
}

TEST_F(WindowTitleTest, FactoryStyleBanksKeepTheirThirteenCharacters)
{
    EXPECT_EQ(Title(16, 2, "2: Style 9-16"), "Banchi 2: Style 9-16");
    EXPECT_EQ(Title(15, 1, "1: Style 1-8"), "Banchi 1: Style 1-8 ");
}

TEST_F(WindowTitleTest, ProgramFiles)
{
    EXPECT_EQ(Title(14, 3, Native("/music/My Sounds.pcg")), "File User: My Sounds.pcg (3)");
    EXPECT_EQ(Title(14, 1), "File User: Song.ext (1)");
    EXPECT_EQ(Title(14, 8), "File User: Song.ext (8)");
    EXPECT_EQ(Title(14, 9), "Banco User 1: Song.ext");
    EXPECT_EQ(Title(14, 10), "Banco User 2: Song.ext");
    EXPECT_EQ(Title(14, 11), "Nuovo File: Song.ext");
    EXPECT_EQ(Title(14, 12), "Nuovo File: Song.ext");
    EXPECT_EQ(Title(18, 11), "Nuovo File: Song.ext");
    EXPECT_EQ(Title(19, 12), "Nuovo File: Song.ext");
    EXPECT_EQ(Title(18, 9), "Banco User 1: Song.ext");
    EXPECT_EQ(Title(19, 8), "File User: Song.ext (8)");
}

TEST_F(WindowTitleTest, StyleFiles)
{
    for (const int kind : {20, 21}) {
        EXPECT_EQ(Title(kind, 0), "Nuovo File: Song.ext   (STY)");
        EXPECT_EQ(Title(kind, 1), "File User: Song.ext   (STY)");
        EXPECT_EQ(Title(kind, 8), "File User: Song.ext   (STY)");
        EXPECT_EQ(Title(kind, 9), "Banco User 1: Song.ext   (STY)");
        EXPECT_EQ(Title(kind, 11), "Banco User 3: Song.ext   (STY)");
        EXPECT_EQ(Title(kind, 12), "Banco Direct HD 1: Song.ext   (STY)");
        EXPECT_EQ(Title(kind, 20), "Banco Direct HD 9: Song.ext   (STY)");
    }
}

TEST_F(WindowTitleTest, PerformanceFiles)
{
    for (const int kind : {22, 23}) {
        EXPECT_EQ(Title(kind, 0), "Nuovo File: Song.ext");
        EXPECT_EQ(Title(kind, 1), "File User: Song.ext");
        EXPECT_EQ(Title(kind, 9), "Banco User 1: Song.ext");
        EXPECT_EQ(Title(kind, 20), "Banco User 12: Song.ext") << "one blank before the number";
        EXPECT_EQ(Title(kind, 28), "Banco User 20: Song.ext");
    }
}

TEST_F(WindowTitleTest, Overviews)
{
    EXPECT_EQ(Title(24, 0), "Banchi Performance User 1-20");
    EXPECT_EQ(Title(25, 0), "Banchi Style User 1-3");
    EXPECT_EQ(Title(26, 0), "Banco Direct HD 123");
    EXPECT_EQ(Title(27, 0), "Banco Direct HD 456");
    EXPECT_EQ(Title(28, 0), "Banco Direct HD 789");
}

TEST_F(WindowTitleTest, AnyOtherCombinationIsEmpty)
{
    for (const auto &[kind, slot] : std::vector<std::pair<int, int>>{{0, 0},
                                                                     {1, 1},
                                                                     {8, 0},
                                                                     {13, 0},
                                                                     {17, 0},
                                                                     {29, 0},
                                                                     {14, 0},
                                                                     {14, 13},
                                                                     {18, 13},
                                                                     {20, 21},
                                                                     {21, 255},
                                                                     {22, 29},
                                                                     {23, 200},
                                                                     {255, 1}}) {
        EXPECT_EQ(Title(kind, slot), "") << kind << ", " << slot;
    }
}

TEST_F(WindowTitleTest, LeavesKindAndSlotInTheirGlobals)
{
    EXPECT_EQ(Title(19, 8), "File User: Song.ext (8)");
    EXPECT_EQ(app.ViewKind, 19);
    EXPECT_EQ(app.slot, 8);
    EXPECT_EQ(Title(29, 77), "");
    EXPECT_EQ(app.ViewKind, 29);
    EXPECT_EQ(app.slot, 77);
}

TEST_F(WindowTitleTest, ANameWithBracesOrUnderscoresStaysAsItIs)
{
    EXPECT_EQ(Title(14, 3, Native("/music/{name}_{n}.pcg")), "File User: {name}_{n}.pcg (3)");
    EXPECT_EQ(Title(14, 3, ""), "File User:  (3)");
}

TEST_F(WindowTitleTest, AShortTagIsNoHarm)
{
    EXPECT_EQ(WindowTitle(app, ToolTag(2)), "Banchi ");
    EXPECT_EQ(WindowTitle(app, WindowTag{}), "");
}

class WindowTitleEnglishTest : public EnglishFilesTest {};

TEST_F(WindowTitleEnglishTest, OnlyTheFactoryBanksSpeakEnglish)
{
    EXPECT_EQ(WindowTitle(app, TagOf(2, 0, "A: Piano")), "Banks A: Piano");
    EXPECT_EQ(WindowTitle(app, TagOf(16, 2, "2: Style 9-16")), "Banks 2: Style 9-16");
    EXPECT_EQ(WindowTitle(app, TagOf(14, 9, Native("/a/x.pcg"))), "Banco User 1: x.pcg");
    EXPECT_EQ(WindowTitle(app, TagOf(14, 11, Native("/a/x.pcg"))), "Nuovo File: x.pcg");
    EXPECT_EQ(WindowTitle(app, TagOf(20, 10, Native("/a/x.sty"))), "Banco User 2: x.sty   (STY)");
    EXPECT_EQ(WindowTitle(app, TagOf(24, 0, "")), "Banchi Performance User 1-20");
    EXPECT_EQ(WindowTitle(app, TagOf(28, 0, "")), "Banco Direct HD 789");
}

// A child of any kind, to be given its natural size.
struct AnyChild : Form {
    AnyChild(int kind, int slot) : Form("anyChild")
    {
        Tag = TagOf(kind, slot, "");
        place = Place{100, 200, 3000, 4000};
    }
};

class NaturalSizeTest : public FilesTest {
protected:
    Place Grown(int kind, int slot)
    {
        AnyChild child(kind, slot);
        app.children.Show(child);
        mnuIngrandisci_Click(files);
        app.children.Unload(child);
        return child.place;
    }
};

TEST_F(NaturalSizeTest, ComesFromTheTableOfTheKind)
{
    Record(3).MinWidth = 1003;
    Record(3).MinHeight = 2003;
    app.settings.StyDocTable[5].MinWidth = 1005;
    app.settings.StyDocTable[5].MinHeight = 2005;
    app.settings.PrfDocTable[28].MinWidth = 1028;
    app.settings.PrfDocTable[28].MinHeight = 2028;
    app.settings.PrfDocTable[0].MinWidth = 1000;
    app.settings.PrfDocTable[0].MinHeight = 2000;
    for (const int kind : {14, 18}) {
        EXPECT_EQ(Grown(kind, 3), (Place{100, 200, 1003, 2003}));
    }
    for (const int kind : {20, 21}) {
        EXPECT_EQ(Grown(kind, 5), (Place{100, 200, 1005, 2005}));
    }
    for (const int kind : {22, 23}) {
        EXPECT_EQ(Grown(kind, 28), (Place{100, 200, 1028, 2028}));
    }
    EXPECT_EQ(Grown(24, 28), (Place{100, 200, 1000, 2000})) << "the overview has no slot";
}

TEST_F(NaturalSizeTest, OfToolsAndBanksComesFromTheirPlacement)
{
    for (int entry = 0; entry < 29; ++entry) {
        app.settings.PlacementTable[static_cast<std::size_t>(entry)].MinWidth = static_cast<std::uint16_t>(5000 + entry);
        app.settings.PlacementTable[static_cast<std::size_t>(entry)].MinHeight = static_cast<std::uint16_t>(6000 + entry);
    }
    for (const int kind : {2, 3, 4, 5, 6, 7, 8, 9, 12, 15, 16, 17, 25, 26, 27, 28}) {
        EXPECT_EQ(Grown(kind, 0), (Place{100, 200, 5000 + kind - 1, 6000 + kind - 1})) << kind;
    }
}

TEST_F(NaturalSizeTest, OtherWindowsKeepTheirSize)
{
    for (const int kind : {0, 1, 10, 11, 13, 19, 29, 255}) {
        EXPECT_EQ(Grown(kind, 3), (Place{100, 200, 3000, 4000})) << kind;
    }
    EXPECT_EQ(Grown(14, 13), (Place{100, 200, 3000, 4000})) << "no such slot";
    EXPECT_EQ(Grown(20, 21), (Place{100, 200, 3000, 4000}));
    EXPECT_EQ(Grown(22, 255), (Place{100, 200, 3000, 4000}));
}

TEST_F(NaturalSizeTest, WithoutAChildNothingHappens)
{
    mnuIngrandisci_Click(files);
    EXPECT_EQ(app.children.Active(), nullptr);
}

TEST_F(NaturalSizeTest, AnEnlargedProgramWindowGetsItsNaturalSizeBack)
{
    Open(Put("a.pcg", FileOfLength(200)));
    const Place natural = Window(1).place;
    app.children.Resize(Window(1), natural.width + 900, natural.height + 700);
    mnuIngrandisci_Click(files);
    EXPECT_EQ(Window(1).place.Get(), natural);
    EXPECT_EQ(Record(1).Width, natural.width);
}

} // namespace
} // namespace velluto::test
