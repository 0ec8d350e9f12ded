// The plain editor against bytes worked out by hand: what the random comparison rests on.
#include "unit/edit/PlainEditor.h"
#include "unit/files/InstrumentFiles.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

struct Entry {
    std::string name;
    int slot;
};

struct Sound {
    std::string name;
    int slot;
    std::string body;
};

// A name as wide as its field, so that no zeros stand in it.
std::string Wide(std::string name)
{
    name.resize(16, ' ');
    return name;
}

std::string FileOf(const std::vector<Sound> &sounds)
{
    std::vector<Item> items;
    for (const Sound &sound : sounds) {
        items.push_back({Wide(sound.name), sound.slot, Bytes(sound.body.begin(), sound.body.end())});
    }
    const Bytes file = InstrumentFile(items);
    return {file.begin(), file.end()};
}

std::string Number(std::size_t value, int bytes)
{
    std::string text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
        text.push_back(static_cast<char>(value >> shift));
    }
    return text;
}

// An image written out: its entries, all bytes up to the index, and the 1-based positions that the index names.
std::string ImageOf(const std::vector<Entry> &entries, const std::string &bytes, const std::vector<std::size_t> &positions)
{
    const std::string directory = std::string("\x05\0\0\x18", 4) + Number(24 * positions.size(), 4);
    std::string image = std::string("\0\0\0\0\0\0\0KORF\0", 12) + directory;
    for (const Entry &entry : entries) {
        image += Wide(entry.name) + "\x11\x22\x33\x44" + static_cast<char>(entry.slot) + "\x55\x66\x77";
    }
    image = std::string("\x02\0\0\x18\0\0\0\x0C\x0B", 9) + image.substr(1) + bytes;
    image += std::string("\xFE\0\0\x18", 4) + Number(4 * positions.size() + 16, 4) + "KBEG" + Number(28, 4);
    for (const std::size_t position : positions) {
        image += Number(position - 1, 4);
    }
    return std::string("\x01\0\x01\x14", 4) + Number(image.size() + 8, 4) + image + "KEND" + Number(positions.size() + 1, 4);
}

PlainOpened Opened(const std::string &image, int slot = 1)
{
    return {slot, 0, 2, "/a", image};
}

void Select(PlainDocument &document, std::initializer_list<int> rows)
{
    document.selected.assign(document.rows.size(), false);
    for (const int row : rows) {
        document.selected.at(static_cast<std::size_t>(row)) = true;
    }
}

// Three Programs; the first body is long enough to hold an entry.
const std::vector<Sound> kThree = {{"A", 0, std::string(30, 'a')}, {"B", 1, "bb"}, {"C", 2, "ccc"}};
const std::vector<Sound> kAbc = {{"A", 0, "aaa"}, {"B", 1, "bb"}, {"C", 2, "c"}};
const std::vector<Sound> kGrouped = {{"A", 0, "a"}, {"B", 2, "bb"}, {"C", 4, "ccc"}, {"D", 0, "d"}, {"E", 2, "ee"}, {"F", 4, "fff"}};
const std::vector<Sound> kPair = {{"P", 5, "pp"}, {"Q", 5, "q"}};

struct PlainEditor : testing::Test {
    PlainGlobals globals;

    PlainDocument ProgramOf(const std::vector<Sound> &sounds) { return PlainProgram(Opened(FileOf(sounds))); }
    PlainDocument StyleOf(const std::vector<Sound> &sounds) { return PlainStyle(globals, Opened(FileOf(sounds))); }
    // A clipboard as a Copy of these rows leaves it. firstRow counts from 1.
    void Clip(const std::vector<Sound> &sounds, int firstRow, int count)
    {
        globals.clipboard.ClipValid = 1;
        globals.clipboard.ClipImage = FileOf(sounds);
        globals.clipboard.ClipFirstRow = firstRow;
        globals.clipboard.ClipCount = count;
    }
};

TEST_F(PlainEditor, TheEmptyImageIsSixtyBytes)
{
    const std::string image = ImageOf({}, "", {});
    EXPECT_EQ(PlainFinished(PlainHeader(), globals.BuildItemIndex, 0), image);
    EXPECT_EQ(image.size(), 60U);
    EXPECT_EQ(image[7], 52);
    std::string unframed = image;
    unframed[7] = 0;
    EXPECT_EQ(PlainEmptyImage(), unframed);
}

TEST_F(PlainEditor, FewerThanNoItemsStop)
{
    EXPECT_THROW(PlainFinished(PlainHeader(), globals.BuildItemIndex, -1), PlainStop);
}

TEST_F(PlainEditor, TheLastItemReachesToTheIndex)
{
    PlainIndex(ImageOf({{"A", 0}, {"B", 1}}, "aabbb?", {85, 87}), globals.ItemIndex);
    EXPECT_EQ(globals.ItemIndex.Position(1), 85);
    EXPECT_EQ(globals.ItemIndex.Length(1), 2);
    EXPECT_EQ(globals.ItemIndex.Position(2), 87);
    EXPECT_EQ(globals.ItemIndex.Length(2), 4);
}

TEST_F(PlainEditor, APieceOfNoLengthIsEmptyWhereverItLies)
{
    EXPECT_EQ(PlainSlice("abc", 99, 0), "");
    EXPECT_EQ(PlainSlice("abc", 2, 2), "bc");
    EXPECT_THROW(PlainSlice("abc", 2, 3), PlainStop);
    EXPECT_THROW(PlainSlice("abc", 0, 1), PlainStop);
    EXPECT_THROW(PlainSlice("abc", 2, -1), PlainStop);
}

TEST_F(PlainEditor, TheArrangementIsToldByTheFirstSlotThatComesAgain)
{
    EXPECT_EQ(PlainLayout(FileOf({})), 0);
    EXPECT_EQ(PlainLayout(FileOf({{"A", 0, ""}})), 0);
    EXPECT_EQ(PlainLayout(FileOf({{"A", 0, ""}, {"B", 1, ""}, {"C", 1, ""}})), 0);
    EXPECT_EQ(PlainLayout(FileOf(kPair)), 1);
    EXPECT_EQ(PlainLayout(FileOf(kGrouped)), 2);
}

TEST_F(PlainEditor, CopyTakesTheFirstRunOfSelectedOccupiedRows)
{
    PlainDocument document = ProgramOf({{"A", 2, ""}, {"B", 3, ""}, {"C", 6, ""}});
    Select(document, {1, 2, 3, 4, 6});
    PlainCopy(globals, document);
    EXPECT_EQ(globals.clipboard, (PlainClipboard{1, document.image, 3, 2, 14, 1, 0}));
}

TEST_F(PlainEditor, CopyOfNothingCountsNone)
{
    PlainDocument document = ProgramOf(kThree);
    PlainCopy(globals, document);
    EXPECT_EQ(globals.clipboard.ClipFirstRow, 257);
    EXPECT_EQ(globals.clipboard.ClipCount, 0);
}

TEST_F(PlainEditor, CuttingTheFirstProgramIsClean)
{
    PlainDocument document = ProgramOf(kThree);
    Select(document, {0});
    EXPECT_EQ(PlainCut(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"B", 1}, {"C", 2}}, "bbccc", {85, 87}));
    EXPECT_EQ(document.Row(0), " 001 " + std::string(16, ' '));
    EXPECT_EQ(document.At(6), 1);
    EXPECT_EQ(globals.CutCount, 1);
    EXPECT_EQ(globals.clipboard, (PlainClipboard{1, FileOf(kThree), 1, 1, 14, 1, 0}));
}

TEST_F(PlainEditor, CuttingFromTheMiddleCarriesBytesPastTheDirectory)
{
    PlainDocument document = ProgramOf(kThree);
    Select(document, {1});
    EXPECT_EQ(PlainCut(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"A", 0}, {"C", 2}}, std::string(24 + 30, 'a') + "ccc", {85, 115}));
}

TEST_F(PlainEditor, CuttingTheLastProgramIsClean)
{
    PlainDocument document = ProgramOf(kThree);
    Select(document, {2});
    EXPECT_EQ(PlainCut(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"A", 0}, {"B", 1}}, std::string(30, 'a') + "bb", {85, 115}));
}

TEST_F(PlainEditor, ACutThatFoundNothingLeavesNoItemsAndAllRows)
{
    PlainDocument document = ProgramOf(kThree);
    const std::vector<std::string> rows = document.rows;
    EXPECT_EQ(PlainCut(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({}, "", {}));
    EXPECT_EQ(document.rows, rows);
    EXPECT_EQ(globals.clipboard.ClipFirstRow, 65);
}

TEST_F(PlainEditor, ACutWithoutAnImageChangesNothing)
{
    PlainDocument document = PlainNewProgram(64);
    PlainCut(globals, document);
    EXPECT_EQ(document.image, "");
    EXPECT_EQ(document.At(6), 0);
    EXPECT_EQ(globals.clipboard, PlainClipboard());
}

TEST_F(PlainEditor, AGroupedStyleGoesWithTheEntryHalfTheDirectoryOn)
{
    PlainDocument document = StyleOf(kGrouped);
    Select(document, {2});
    EXPECT_EQ(PlainCut(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"A", 0}, {"C", 4}, {"D", 0}, {"F", 4}}, "acccdfff", {133, 134, 137, 138}));
    EXPECT_EQ(document.Row(2), " 03 " + std::string(16, ' '));
}

TEST_F(PlainEditor, AnInterleavedStyleGoesWithTheEntryBehindIt)
{
    PlainDocument document = StyleOf({{"A", 0, "a"}, {"B", 0, "bb"}, {"C", 1, "c"}, {"D", 1, "dd"}});
    Select(document, {0});
    EXPECT_EQ(PlainCut(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"C", 1}, {"D", 1}}, "cdd", {85, 86}));
}

TEST_F(PlainEditor, AStyleFileWithoutAPassTakesTheImageOfAnEarlierCommand)
{
    PlainNewStyle(globals);
    PlainDocument document = StyleOf(kGrouped);
    EXPECT_EQ(PlainCut(globals, document), "");
    EXPECT_EQ(document.image, PlainEmptyImage());
}

TEST_F(PlainEditor, TheFirstProgramsOfANewFile)
{
    Clip(kThree, 2, 2);
    PlainDocument document = PlainNewProgram(64);
    Select(document, {4});
    EXPECT_EQ(PlainPaste(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"B", 4}, {"C", 5}}, "bbccc", {85, 87}));
    EXPECT_EQ(document.Row(4), " 005 B");
    EXPECT_EQ(document.Row(5), " 006 C");
    EXPECT_EQ(document.At(6), 1);
}

TEST_F(PlainEditor, ProgramsBehindAllOthersBringTheWholeBlock)
{
    Clip(kAbc, 1, 3);
    PlainDocument document = ProgramOf({{"X", 61, "xx"}});
    Select(document, {62});
    EXPECT_EQ(PlainPaste(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"X", 61}, {"A", 62}, {"B", 63}}, "xxaaabbc", {109, 111, 114}));
}

TEST_F(PlainEditor, ProgramsBeforeOthersShiftTheTableInItsOwnOrder)
{
    Clip(kAbc, 1, 3);
    PlainDocument document = ProgramOf({{"X", 0, "xx"}, {"Y", 3, "yyyy"}});
    Select(document, {1});
    EXPECT_EQ(PlainPaste(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"X", 0}, {"A", 1}, {"B", 2}, {"Y", 3}}, "xxaaabbcyyy", {133, 135, 138, 140}));
    EXPECT_EQ(document.Row(1), " 002 A");
    EXPECT_EQ(document.Row(2), " 003 B");
}

TEST_F(PlainEditor, StylesWithoutStsLeaveTheEvenPlacesOfTheTable)
{
    Clip(kAbc, 1, 3);
    globals.BuildItemIndex.Length(2) = 7;
    PlainDocument document = PlainNewStyle(globals);
    Select(document, {0});
    EXPECT_EQ(PlainPaste(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"A", 0}, {"B", 1}, {"C", 2}}, "aaabbc", {109, 112, 119}));
    EXPECT_EQ(document.Row(0), " 01 A                    3");
    EXPECT_EQ(document.At(8), 0);
    EXPECT_EQ(document.At(9), 1);
    EXPECT_FALSE(document.stsEnabled);
}

TEST_F(PlainEditor, GroupedStylesBecomePairsInAnEmptyFile)
{
    Clip(kGrouped, 3, 1);
    PlainDocument document = PlainNewStyle(globals);
    Select(document, {7});
    EXPECT_EQ(PlainPaste(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"B", 7}, {"E", 7}}, "bbee", {85, 87}));
    EXPECT_EQ(document.At(8), 1);
    EXPECT_TRUE(document.stsEnabled);
}

TEST_F(PlainEditor, AStyleAndItsStsGoToTheirPlacesInAGroupedFile)
{
    Clip(kPair, 6, 1);
    PlainDocument document = StyleOf(kGrouped);
    Select(document, {1});
    EXPECT_EQ(PlainPaste(globals, document), "");
    const std::vector<Entry> entries = {{"A", 0}, {"P", 1}, {"B", 2}, {"C", 4}, {"D", 0}, {"Q", 1}, {"E", 2}, {"F", 4}};
    EXPECT_EQ(document.image, ImageOf(entries, "appbbcccdqeefff", {229, 230, 232, 234, 237, 238, 239, 241}));
}

TEST_F(PlainEditor, BeforeTheLastStyleOfAGroupedFileTheLastStsIsLost)
{
    Clip(kPair, 6, 1);
    PlainDocument document = StyleOf(kGrouped);
    Select(document, {3});
    EXPECT_EQ(PlainPaste(globals, document), "");
    const std::vector<Entry> entries = {{"A", 0}, {"B", 2}, {"P", 3}, {"C", 4}, {"D", 0}, {"E", 2}, {"Q", 3}};
    EXPECT_EQ(document.image, ImageOf(entries, "abbppcccdeeq", {229, 230, 232, 234, 237, 238, 240, 241}));
}

// One item alone, whose body holds its slot where a second entry would: the directory takes that for its partner's entry,
// the bodies take the item itself.
TEST_F(PlainEditor, APartnersEntryAndBodyAreToldByDifferentTests)
{
    const std::string body = std::string(20, 'p') + '\x05' + std::string(9, 'p');
    Clip({{"P", 5, body}}, 6, 1);
    PlainDocument document = StyleOf(kGrouped);
    Select(document, {7});
    EXPECT_EQ(PlainPaste(globals, document), "");
    const std::vector<Entry> entries = {{"A", 0}, {"B", 2}, {"C", 4}, {"P", 7}, {"D", 0}, {"E", 2}, {"F", 4}};
    const std::string taken = std::string(20, 'p') + '\x07' + "ppp";
    EXPECT_EQ(document.image, ImageOf(entries, taken + "abbccc" + body + "deefff" + body, {229, 230, 232, 235, 265, 266, 268, 271}));
}

TEST_F(PlainEditor, APairIsAppendedToAnInterleavedFile)
{
    Clip(kPair, 6, 1);
    PlainDocument document = StyleOf({{"A", 9, "a"}, {"B", 9, "b"}});
    Select(document, {3});
    EXPECT_EQ(PlainPaste(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"A", 9}, {"B", 9}, {"P", 3}, {"Q", 3}}, "abppq", {133, 134, 135, 137}));
}

TEST_F(PlainEditor, AStylesOnlyFileTakesNoSts)
{
    Clip(kPair, 6, 1);
    PlainDocument document = StyleOf({{"A", 0, "a"}, {"B", 1, "bb"}});
    Select(document, {3});
    EXPECT_EQ(PlainPaste(globals, document), "");
    EXPECT_EQ(document.image, ImageOf({{"A", 0}, {"B", 1}, {"P", 3}}, "abbpp", {109, 110, 112}));
}

TEST_F(PlainEditor, AStopLeavesTheDocumentAndWhatTheStepsBeforeItWrote)
{
    std::string damaged = FileOf({{"A", 0, "a"}, {"B", 1, "b"}});
    damaged.replace(damaged.size() - 11, 3, "\xFF\xFF\xFF"); // where the second body lies
    PlainDocument document = PlainProgram(Opened(damaged));
    const PlainDocument before = document;
    Select(document, {0});
    EXPECT_NE(PlainCut(globals, document), "");
    EXPECT_EQ(document.image, before.image);
    EXPECT_EQ(document.rows, before.rows);
    EXPECT_EQ(document.prefix, before.prefix);
    EXPECT_EQ(globals.clipboard, PlainClipboard());
    EXPECT_EQ(globals.CutCount, 1);
    EXPECT_EQ(globals.ItemIndex.Position(1), 85);
    EXPECT_EQ(globals.ItemIndex.Position(2), 0x1000000);
    EXPECT_EQ(globals.BuildItemIndex, PlainTable(128));
    EXPECT_EQ(globals.BuildImage, "");
}

TEST_F(PlainEditor, TheMenuOffersCopyAndCutWhereNoRowIsEmptyAndPasteWhereNoneIsOccupied)
{
    PlainDocument document = ProgramOf(kThree);
    EXPECT_EQ(PlainMenuOf(globals, document), (PlainMenu{false, false, false}));
    Select(document, {1, 2});
    EXPECT_EQ(PlainMenuOf(globals, document), (PlainMenu{true, true, false}));
    Select(document, {2, 3});
    EXPECT_EQ(PlainMenuOf(globals, document), (PlainMenu{false, false, false}));
    Select(document, {3, 4});
    EXPECT_EQ(PlainMenuOf(globals, document), (PlainMenu{false, false, false}));
    Clip(kThree, 1, 1);
    globals.clipboard.ClipKind = 14;
    EXPECT_EQ(PlainMenuOf(globals, document), (PlainMenu{false, false, true}));
    globals.clipboard.ClipKind = 22;
    EXPECT_EQ(PlainMenuOf(globals, document), (PlainMenu{false, false, false}));
    document.Set(15, 9);
    Select(document, {1});
    EXPECT_EQ(PlainMenuOf(globals, document), (PlainMenu{true, false, false}));
}

TEST_F(PlainEditor, PrintingAStyleTakesTheClipboardOver)
{
    Clip(kThree, 1, 1);
    const PlainDocument program = ProgramOf(kThree);
    PlainPrint(globals, program);
    EXPECT_EQ(globals.clipboard.ClipValid, 1);
    const PlainDocument style = StyleOf(kGrouped);
    PlainPrint(globals, style);
    EXPECT_EQ(globals.clipboard.ClipValid, 0);
    EXPECT_EQ(globals.clipboard.ClipImage, style.image);
}

} // namespace
} // namespace velluto::test
