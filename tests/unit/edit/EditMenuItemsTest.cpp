// The Edit menu when it drops: which of Cut, Copy and Paste the selection and the clipboard allow.
#include "unit/edit/EditedFiles.h"

#include "unit/support/ListWindows.h"
#include "unit/support/MidiLink.h"

namespace velluto::test {
namespace {

struct Offer {
    bool cut = false;
    bool copy = false;
    bool paste = false;
    bool operator==(const Offer &) const = default;
    friend std::ostream &operator<<(std::ostream &out, const Offer &offer)
    {
        return out << (offer.cut ? "Cut " : "") << (offer.copy ? "Copy " : "") << (offer.paste ? "Paste " : "");
    }
};
constexpr Offer kNothing{};
constexpr Offer kCutAndCopy{true, true, false};
constexpr Offer kCopy{false, true, false};
constexpr Offer kPaste{false, false, true};

// A list window of any kind, with rows of any text.
class OfferTest : public ::testing::Test {
protected:
    OfferTest() { Show(14, 3); }

    void Show(int kind, int slot)
    {
        if (window) {
            link.app.children.Unload(*window);
        }
        window = std::make_unique<ListWindow>(kind, slot);
        window->Tag.Set(TagPosition::Places, 64);
        window->Tag.Set(TagPosition::ListShows, 1);
        link.app.children.Show(*window);
    }
    // Selects the rows named; the menu drops.
    Offer With(const Texts &rows, const Rows &selected)
    {
        window->List1.SetRows(rows);
        for (const int row : selected) {
            window->List1.Select(row, true);
        }
        return Drop();
    }
    Offer Drop()
    {
        frmMain &menu = link.app.frame;
        menu.mnuTaglia.enabled = menu.mnuCopia.enabled = menu.mnuIncolla.enabled = true; // as some window left them
        mnuModifica_Click(files);
        return {menu.mnuTaglia.enabled, menu.mnuCopia.enabled, menu.mnuIncolla.enabled};
    }
    void Hold(int kind, int hasSts = 0)
    {
        files.clipboard.ClipValid = 1;
        files.clipboard.ClipKind = kind;
        files.clipboard.ClipHasSts = hasSts;
    }
    // With an empty row of its kind selected.
    Offer OnEmptyRow()
    {
        const int kind = window->Tag.Kind();
        return With({kind < 20 ? " 001                 " : kind < 22 ? " 01                 " : " 1                 "}, {0});
    }

    MidiLink link;
    FilesState files{link.app};
    std::unique_ptr<ListWindow> window;
};

// Rows 1, 2 and 5 hold items.
const Texts kPrograms{" 001 Piano", " 002 Organ", " 003 ", " 004 ", " 005 Choir", " 006 "};
const Texts kStyles{
    " 01 Bossa                4  ", " 02 Tango                4  ", " 03                         ", " 04", " 05 Polka", " 06"};
const Texts kPerformances{" 1 Ballad          ", " 2 Disco", " 3                 ", " 4 ", " 5 Latin", " 6"};

// --- Copy and Cut

TEST_F(OfferTest, OccupiedRowsMayBeCopiedAndCut)
{
    EXPECT_EQ(With(kPrograms, {0, 1}), kCutAndCopy);
    EXPECT_EQ(With(kPrograms, {4}), kCutAndCopy);
    Show(20, 1);
    EXPECT_EQ(With(kStyles, {0, 1}), kCutAndCopy);
    Show(21, 0);
    EXPECT_EQ(With(kStyles, {0, 1}), kCutAndCopy);
    Show(22, 1);
    EXPECT_EQ(With(kPerformances, {0, 1}), kCutAndCopy);
    Show(23, 0);
    EXPECT_EQ(With(kPerformances, {0, 1}), kCutAndCopy);
}

TEST_F(OfferTest, OccupiedRowsAreNotPastedOver)
{
    Hold(14);
    EXPECT_EQ(With(kPrograms, {0, 1}), kCutAndCopy);
}

TEST_F(OfferTest, AnOccupiedRowAndAnEmptyOneTogetherAllowNothing)
{
    Hold(14);
    EXPECT_EQ(With(kPrograms, {1, 2}), kNothing);
    EXPECT_EQ(With(kPrograms, {3, 4}), kNothing);
    Show(20, 1);
    Hold(20);
    EXPECT_EQ(With(kStyles, {1, 2}), kNothing);
    Show(22, 1);
    Hold(22);
    EXPECT_EQ(With(kPerformances, {1, 2}), kNothing);
}

TEST_F(OfferTest, OnlyTheFirstRunOfTheSelectionCounts)
{
    Hold(14);
    EXPECT_EQ(With(kPrograms, {0, 3}), kCutAndCopy);
    EXPECT_EQ(With(kPrograms, {2, 4}), kPaste);
}

TEST_F(OfferTest, WithoutASelectionNothingIsOffered)
{
    Hold(14);
    EXPECT_EQ(With(kPrograms, {}), kNothing);
    EXPECT_EQ(With({}, {}), kNothing);
}

TEST_F(OfferTest, AFileOfSixtyFourPlacesIsLookedAtAsFarAsThat)
{
    Texts rows(70, " 001 ");
    rows[63] = " 064 Gunshot";
    rows[64] = " 065 Beyond";
    EXPECT_EQ(With(rows, {64}), kNothing);
    EXPECT_EQ(With(rows, {63, 64}), kCutAndCopy);
    Hold(14);
    rows[63] = " 064 ";
    EXPECT_EQ(With(rows, {63, 64}), kPaste) << "the occupied row behind the last is not of the run";
    window->Tag.Set(TagPosition::Places, 128);
    EXPECT_EQ(With(rows, {64}), kCutAndCopy);
    window->Tag.Set(TagPosition::Places, 0);
    EXPECT_EQ(With(rows, {0}), kNothing);
}

TEST_F(OfferTest, ARunReachesToTheVeryLastRow)
{
    Show(22, 1);
    Hold(22);
    Texts rows = kPerformances;
    rows.insert(rows.end(), {" 7 Samba", " 8                 "});
    EXPECT_EQ(With(rows, {6, 7}), kNothing);
    EXPECT_EQ(With(rows, {6}), kCutAndCopy);
}

TEST_F(OfferTest, SixteenStylesAndEightPerformancesAreLookedAt)
{
    Show(20, 1);
    EXPECT_EQ(With(Texts(20, " 01 Bossa"), {15}), kCutAndCopy);
    EXPECT_EQ(With(Texts(20, " 01 Bossa"), {16}), kNothing);
    Show(22, 1);
    EXPECT_EQ(With(Texts(20, " 1 Ballad"), {7}), kCutAndCopy);
    EXPECT_EQ(With(Texts(20, " 1 Ballad"), {8}), kNothing);
}

TEST_F(OfferTest, ARowShorterThanAnEmptyOneIsNoObstacleToEither)
{
    // It has not exactly the length that keeps Copy off, and not more than the one that keeps Paste off.
    Hold(14);
    EXPECT_EQ(With({" 00"}, {0}), (Offer{true, true, true}));
}

TEST_F(OfferTest, TheRowsOfAPerformanceFileWithoutItemsPassForOccupied)
{
    Show(22, 1);
    Hold(22);
    EXPECT_EQ(With({"001                 "}, {0}), kCutAndCopy);
}

TEST_F(OfferTest, KindsThatAreOnlyThereWhileLoadingGoByTheSameRules)
{
    for (const int kind : {18, 19}) {
        Show(kind, 11);
        Hold(14);
        EXPECT_EQ(With(kPrograms, {0}), kCutAndCopy) << kind;
        EXPECT_EQ(With(kPrograms, {2}), kPaste) << kind;
    }
}

TEST_F(OfferTest, StsAreNeverCopiedCutOrPasted)
{
    for (const int kind : {20, 21}) {
        Show(kind, 1);
        Hold(20);
        window->Tag.Set(TagPosition::ListShows, 0);
        EXPECT_EQ(With(kStyles, {0}), kNothing) << kind;
        EXPECT_EQ(With(kStyles, {2}), kNothing) << kind;
        window->Tag.Set(TagPosition::ListShows, 1);
        EXPECT_EQ(With(kStyles, {0}), kCutAndCopy) << kind;
        EXPECT_EQ(With(kStyles, {2}), kPaste) << kind;
    }
}

TEST_F(OfferTest, ThatPositionMeansNothingInOtherFiles)
{
    for (const int kind : {14, 22}) {
        Show(kind, 1);
        window->Tag.Set(TagPosition::ListShows, 0);
        EXPECT_EQ(With(kind == 14 ? kPrograms : kPerformances, {0}), kCutAndCopy) << kind;
    }
}

TEST_F(OfferTest, FromSlot9ItemsAreOnlyCopied)
{
    const struct {
        int kind;
        const Texts &rows;
    } banks[] = {{14, kPrograms}, {20, kStyles}, {22, kPerformances}};
    for (const auto &bank : banks) {
        for (const int slot : {8, 9, 10}) {
            Show(bank.kind, slot);
            Hold(bank.kind);
            EXPECT_EQ(With(bank.rows, {0}), (slot == 9 ? kCopy : kCutAndCopy)) << bank.kind << " " << slot;
            EXPECT_EQ(With(bank.rows, {2}), (slot == 9 ? kNothing : kPaste)) << bank.kind << " " << slot;
        }
    }
}

TEST_F(OfferTest, WindowsThatAreNoFilesOfferNothing)
{
    for (const int kind : {0, 1, 2, 7, 8, 9, 11, 12, 13, 15, 16, 17, 24, 25, 28, 29, 70, 255}) {
        Show(kind, 1);
        Hold(14);
        EXPECT_EQ(With(kPrograms, {0}), kNothing) << kind;
        EXPECT_EQ(With(kPrograms, {2}), kNothing) << kind;
    }
}

// --- Paste

TEST_F(OfferTest, EmptyRowsMayBePastedTo)
{
    Hold(14);
    EXPECT_EQ(With(kPrograms, {2}), kPaste);
    EXPECT_EQ(With(kPrograms, {2, 3}), kPaste);
}

TEST_F(OfferTest, NothingIsPastedFromAnEmptyClipboard)
{
    Hold(14);
    files.clipboard.ClipValid = 0;
    EXPECT_EQ(With(kPrograms, {2}), kNothing);
}

TEST_F(OfferTest, ItemsGoToWindowsOfTheirOwnTypeOnly)
{
    const int programs[] = {14, 18, 19};
    const int styles[] = {20, 21};
    const int performances[] = {22, 23};
    const auto typeOf = [&](int kind) {
        const auto is = [kind](const auto &kinds) { return std::ranges::find(kinds, kind) != std::end(kinds); };
        return is(programs) ? 1 : is(styles) ? 2 : is(performances) ? 3 : 0;
    };
    for (const int target : {14, 18, 19, 20, 21, 22, 23}) {
        Show(target, 1);
        for (const int clip : {14, 18, 19, 20, 21, 22, 23}) {
            Hold(clip);
            EXPECT_EQ(OnEmptyRow(), (typeOf(clip) == typeOf(target) ? kPaste : kNothing)) << clip << " to " << target;
        }
    }
}

TEST_F(OfferTest, AClipboardOfAnyOtherKindIsNotTested)
{
    for (const int target : {14, 20, 21, 22, 23}) {
        Show(target, 1);
        for (const int clip : {0, 2, 17, 24, 99}) {
            Hold(clip);
            EXPECT_EQ(OnEmptyRow(), kPaste) << clip << " to " << target;
        }
    }
}

TEST_F(OfferTest, StylesOfAFileGoToAFileThatHasStsLikeTheirs)
{
    Show(20, 1);
    for (const int fixed : {0, 1}) {
        window->Tag.Set(TagPosition::PasteFixed, fixed);
        for (const int clip : {0, 1}) {
            for (const int target : {0, 1}) {
                Hold(20, clip);
                window->Tag.Set(TagPosition::HasSts, target);
                EXPECT_EQ(OnEmptyRow(), (clip == target ? kPaste : kNothing)) << clip << " to " << target;
            }
        }
    }
}

TEST_F(OfferTest, StylesOfAFileGoToANewFileWhateverTheirStsUntilAPasteHasSettledIt)
{
    Show(21, 0);
    for (const int clip : {0, 1}) {
        for (const int target : {0, 1}) {
            Hold(20, clip);
            window->Tag.Set(TagPosition::HasSts, target);
            window->Tag.Set(TagPosition::PasteFixed, 0);
            EXPECT_EQ(OnEmptyRow(), kPaste) << clip << " to " << target;
            window->Tag.Set(TagPosition::PasteFixed, 1);
            EXPECT_EQ(OnEmptyRow(), (clip == target ? kPaste : kNothing)) << clip << " to " << target;
        }
    }
}

TEST_F(OfferTest, StylesOfANewFileGoOnlyWhereTheStsAgree)
{
    for (const int kind : {20, 21}) {
        Show(kind, 1);
        for (const int fixed : {0, 1}) {
            window->Tag.Set(TagPosition::PasteFixed, fixed);
            for (const int clip : {0, 1}) {
                for (const int target : {0, 1}) {
                    Hold(21, clip);
                    window->Tag.Set(TagPosition::HasSts, target);
                    EXPECT_EQ(OnEmptyRow(), (clip == target ? kPaste : kNothing)) << kind << ": " << clip << " to " << target;
                }
            }
        }
    }
}

} // namespace
} // namespace velluto::test
