// The listing of Style files, whole: Styles alone, and Styles with their STS in both arrangements.
#include "unit/edit/PrintedFile.h"

#include <map>

namespace velluto::test {
namespace {

using namespace std::string_literals;
using Window = PrintLink::Window;

const char *const kTitles = " No Style             Bytes";
const char *const kStsTitles = " No Style             Bytes          STS                 Bytes";

// A blank and the number with two digits.
std::string Head(int number)
{
    return number < 10 ? " 0" + std::to_string(number) : " " + std::to_string(number);
}

// The rows of a file without items.
Lines EmptyRows()
{
    Lines rows;
    for (int number = 1; number <= 16; ++number) {
        rows.push_back(Head(number) + std::string(25, ' '));
    }
    return rows;
}

// A listing: its titles, and the sixteen lines that show the numbers alone but for these, by number.
Lines Listed(const std::string &titles, const std::map<int, std::string> &shown = {})
{
    Lines lines{Line(titles), ""};
    for (int number = 1; number <= 16; ++number) {
        lines.push_back(Line(Head(number) + (shown.contains(number) ? " " + shown.at(number) : "")));
    }
    return lines;
}

// A body of so many bytes.
Bytes Body(std::size_t length, std::uint8_t byte = 0xAA)
{
    Bytes body(length, byte);
    return body;
}

class StyleListingTest : public PrintingTest {
protected:
    // The listing of an image, with rows that show the numbers alone.
    Lines ListingOf(const Bytes &image)
    {
        Window window(20, 1, Native("/pa80/Pop.sty"), image);
        window.Rows(EmptyRows());
        return link.Listing(window);
    }
    // The line of the 0-based row.
    std::string RowOf(const Bytes &image, int row) { return ListingOf(image).at(2 + static_cast<std::size_t>(row)); }
};

TEST_F(StyleListingTest, StylesWithoutStsAreListedAsTheWindowShowsThem)
{
    const Bytes image = InstrumentFile({{"Pop Ballad", 0, Body(1200)}, {"Big Band", 5, Body(77)}});
    Lines rows = EmptyRows();
    rows[0] = " 01 Pop Ballad        1200  ";
    rows[5] = " 06 Big Band            77  ";
    Window window(20, 1, Native("/pa80/Pop.sty"), image);
    window.Rows(rows);
    Lines texts{Line("Velluto - Velluto v 1.1                Pop.sty                 14/05/2005"), "", ""};
    std::ranges::copy(Listed(kTitles, {{1, "Pop Ballad        1200"}, {6, "Big Band            77"}}), std::back_inserter(texts));
    EXPECT_EQ(link.Texts(window), texts);
}

TEST_F(StyleListingTest, ANewFileShowsItsNumberedEmptyRows)
{
    std::string empty;
    BuildEmptyImage(empty);
    Window window(21, 0, "Untitled.sty", Bytes(empty.begin(), empty.end()));
    window.Rows(EmptyRows());
    EXPECT_EQ(link.Listing(window), Listed(kTitles));
}

TEST_F(StyleListingTest, InAnInterleavedFileThePartnerIsTheNextEntry)
{
    const Bytes image = InstrumentFile({{"Pop Ballad", 0, Body(1200)},
                                        {"Pop STS", 0, Body(9)},
                                        {"Sixteen letters!", 15, Body(34567)},
                                        {"Letters sixteen!", 15, Body(123456)},
                                        {"Waltz", 2, Body(1)},
                                        {"Waltz STS", 2, Body(0)}});
    EXPECT_EQ(ListingOf(image), Listed(kStsTitles, {{1, "Pop Ballad          1200         Pop STS                  9"},
                                                    {3, "Waltz                  1         Waltz STS                0"},
                                                    {16, "Sixteen letters!   34567         Letters sixteen!    123456"}}));
}

TEST_F(StyleListingTest, InAGroupedFileOfSixThePartnerIsThreeFurtherOn)
{
    const Bytes image = InstrumentFile({{"First", 0, Body(10)},
                                        {"Second", 1, Body(20)},
                                        {"Third", 2, Body(30)},
                                        {"First STS", 0, Body(1)},
                                        {"Second STS", 1, Body(2)},
                                        {"Third STS", 2, Body(3)}});
    EXPECT_EQ(ListingOf(image), Listed(kStsTitles, {{1, "First                 10         First STS                1"},
                                                    {2, "Second                20         Second STS               2"},
                                                    {3, "Third                 30         Third STS                3"}}));
}

TEST_F(StyleListingTest, TheStsOfAGroupedFileAreNotTakenForStyles)
{
    // Slot 7 stands in the second half only.
    const Bytes image = InstrumentFile({{"A", 0, Body(1)}, {"B", 1, Body(2)}, {"A STS", 0, Body(3)}, {"Stray", 7, Body(4)}});
    EXPECT_EQ(RowOf(image, 7), Line(" 08"));
    EXPECT_EQ(RowOf(image, 1), Line(" 02 B                      2         Stray                    4"));
}

TEST_F(StyleListingTest, TheFirstEntryOfASlotIsTheOneShown)
{
    const Bytes image = InstrumentFile({{"One", 3, Body(1)}, {"Two", 3, Body(2)}, {"Three", 3, Body(3)}, {"Four", 3, Body(4)}});
    EXPECT_EQ(RowOf(image, 3), Line(" 04 One                    1         Two                      2"));
}

TEST_F(StyleListingTest, EntriesBeyondTheSixteenPlacesAreNotShown)
{
    const Bytes image = InstrumentFile({{"Far", 16, Body(1)}, {"Far STS", 16, Body(2)}});
    EXPECT_EQ(ListingOf(image), Listed(kStsTitles));
}

TEST_F(StyleListingTest, OnlyTheFirstFourCharactersOfARowCome)
{
    // The window shows the STS: the listing takes the number from the row and all else from the file.
    Window window(20, 1, Native("/pa80/Pop.sty"), InstrumentFile({{"Pop", 0, Body(7)}, {"Pop STS", 0, Body(8)}}));
    Lines rows = EmptyRows();
    rows[0] = " 01 Pop STS              8  ";
    rows[1] = "abcdefgh";
    rows[2] = "ab";
    window.Rows(rows);
    const Lines listing = link.Listing(window);
    EXPECT_EQ(listing.at(2), Line(" 01 Pop                    7         Pop STS                  8"));
    EXPECT_EQ(listing.at(3), Line("abcd"));
    EXPECT_EQ(listing.at(4), Line("ab"));
}

TEST_F(StyleListingTest, ZerosInNamesBecomeBlanks)
{
    const Bytes image = InstrumentFile({{"\0Po\0p"s, 0, Body(7)}, {"S\0TS"s, 0, Body(8)}});
    EXPECT_EQ(RowOf(image, 0), Line(" 01  Po p                  7         S TS                     8"));
}

TEST_F(StyleListingTest, NamesAreShownInTheirOwnCharacters)
{
    const Bytes image = InstrumentFile({{"Caf\xE9", 0, Body(7)}, {"\x80uro", 0, Body(8)}});
    EXPECT_EQ(RowOf(image, 0), " 01 Café                   7         €uro                     8                     ");
}

TEST_F(StyleListingTest, SizesOfMoreThanSixDigitsReachFurtherRight)
{
    const Bytes image = InstrumentFile({{"Long", 0, Body(1234567)}, {"Longer", 0, Body(10000001)}});
    EXPECT_EQ(RowOf(image, 0), Line(" 01 Long              1234567        Longer              10000001"));
}

// The image's index is the last thing but 8 bytes; word n of it, of 4 bytes, is the offset of item n (from 0).
std::size_t IndexWord(const Bytes &image, std::size_t items, std::size_t item)
{
    return image.size() - 8 - 4 * (items - item);
}

TEST_F(StyleListingTest, ANegativeSizeStandsWhereTheNumbersEnd)
{
    Bytes image = InstrumentFile({{"Style", 0, Body(7)}, {"STS", 0, Body(8)}});
    image.at(IndexWord(image, 2, 1) + 3) -= 10; // the second body is said to begin 3 bytes before the first
    EXPECT_EQ(RowOf(image, 0), Line(" 01 Style                 -3         STS                     18"));
}

TEST_F(StyleListingTest, AnStsPastTheDirectoryShowsTheBytesAndTheSizeThatStandThere)
{
    // Three entries: the last Style's partner is read from the first body, and its size is what the table last held.
    Bytes body = Body(40, ' ');
    const std::string text = "not a name";
    std::ranges::copy(text, body.begin());
    const Bytes image = InstrumentFile({{"One", 0, body}, {"One STS", 0, Body(2)}, {"Two", 1, Body(3)}});
    link.files.ItemIndex.fill(0);
    link.files.ItemIndex[128 + 3] = 4321;
    EXPECT_EQ(RowOf(image, 1), Line(" 02 Two                    3         not a name            4321"));
    EXPECT_EQ(link.files.ItemIndex[128 + 3], 4321);
}

TEST_F(StyleListingTest, AnItemThatTheTableHasNoRoomForShowsNoSize)
{
    std::vector<Item> items{{"One", 0, Body(1)}, {"One STS", 0, Body(1)}};
    while (items.size() < 129) {
        items.push_back({"Far", 99, Body(1)});
    }
    items.push_back({"Late", 1, Body(1)});
    items.push_back({"Late STS", 1, Body(1)});
    EXPECT_EQ(RowOf(InstrumentFile(items), 1), Line(" 02 Late                             Late STS"));
}

TEST_F(StyleListingTest, AnImageThatEndsInItsDirectoryIsNotReadOutside)
{
    const Bytes whole = InstrumentFile({{"One", 0, Body(1)}, {"One STS", 0, Body(1)}, {"Two", 1, Body(1)}, {"Two STS", 1, Body(1)}});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(ListingOf(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))).size(), 18U) << length;
    }
    // Cut after the first five bytes of the second entry's name: its slot is gone, and so are the STS.
    EXPECT_EQ(ListingOf(Bytes(whole.begin(), whole.begin() + 36 + 24 + 5)).at(0), Line(kTitles));
    // Cut after its slot byte: it is an STS, and the last entries are not there.
    EXPECT_EQ(ListingOf(Bytes(whole.begin(), whole.begin() + 36 + 24 + 21)).at(0), Line(kStsTitles));
}

TEST_F(StyleListingTest, TheClipboardIsEmptiedAndItsImageTakenOver)
{
    const Bytes image = InstrumentFile({{"Pop", 0, Body(7)}});
    link.files.clipboard = {1, ImageOf(InstrumentFile({{"Copied", 0, Body(3)}})), 3, 2, 14, 4, 1};
    ListingOf(image);
    const ItemClipboard &clipboard = link.files.clipboard;
    EXPECT_EQ(clipboard.ClipValid, 0);
    EXPECT_EQ(BytesOf(clipboard.ClipImage), image);
    EXPECT_EQ(clipboard.ClipFirstRow, 3);
    EXPECT_EQ(clipboard.ClipCount, 2);
    EXPECT_EQ(clipboard.ClipKind, 14);
    EXPECT_EQ(clipboard.ClipSlot, 4);
    EXPECT_EQ(clipboard.ClipHasSts, 1);
    EXPECT_EQ(link.files.ItemIndex[0], 36 + 24 + 1);
    EXPECT_EQ(link.files.ItemIndex[128], 7);
}

TEST_F(StyleListingTest, ANewStyleFileEmptiesTheClipboardToo)
{
    link.files.clipboard.ClipValid = 1;
    Window window(21, 0, "Untitled.sty");
    link.Page(window);
    EXPECT_EQ(link.files.clipboard.ClipValid, 0);
}

TEST_F(StyleListingTest, AnUntouchedClipboardSurvivesAPrinterThatFailsInTheHeading)
{
    // 3 operations of the font, 2 places and 3 lines of the heading.
    constexpr int kHeading = 8;
    for (int good = 0; good <= kHeading; ++good) {
        link.files.clipboard.ClipValid = 1;
        link.printer.successes = good;
        Window window(20, 1, Native("/pa80/Pop.sty"), InstrumentFile({{"Pop", 0, Body(7)}}));
        link.app.children.Show(window);
        mnuStampa_Click(link.files);
        EXPECT_EQ(link.files.clipboard.ClipValid, good < kHeading ? 1 : 0) << good;
        link.app.children.Unload(window);
    }
}

} // namespace
} // namespace velluto::test
