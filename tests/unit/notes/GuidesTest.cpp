// The two guides that ship with the program: their form, and that every line of their contents leads to its chapter.
#include "app/Characters.h"
#include "notes/GuideText.h"
#include "unit/notes/NotesProgram.h"

#include <algorithm>
#include <sstream>

namespace velluto::test {
namespace {

constexpr std::size_t kLongest = 35000; // bytes
constexpr std::size_t kColumns = 74;    // the window shows a few more

struct Guide {
    TestProgram::Language language;
    const char *file;
    const char *contents; // the line above the contents
};

void PrintTo(const Guide &guide, std::ostream *out)
{
    *out << guide.file;
}

class GuidesTest : public NotesTest, public testing::WithParamInterface<Guide> {
protected:
    void SetUp() override
    {
        const Bytes shipped = ReadBytes(std::string(VELLUTO_DATA) + "/" + GetParam().file);
        bytes.assign(shipped.begin(), shipped.end());
        ASSERT_FALSE(bytes.empty()) << GetParam().file;
        StartIn(GetParam().language);
        PutFile(GetParam().file, bytes);
        ASSERT_TRUE(run.Choose(menu.mnuGuida));
        ASSERT_NE(notes.guide, nullptr);
        text = CharactersOfText(notes.guide->Text1.text.Get());
    }
    // The lines of the contents: what stands between the blank line below its title and the next one.
    [[nodiscard]] std::vector<std::u32string> Contents() const
    {
        const std::u32string title = U"\r\n" + CharactersOfText(GetParam().contents) + U"\r\n\r\n";
        std::size_t at = text.find(title);
        EXPECT_NE(at, std::u32string::npos);
        std::vector<std::u32string> lines;
        for (at += title.size(); at < text.size() && text[at] != U'\r'; at = text.find(U'\n', at) + 1) {
            lines.push_back(text.substr(at, text.find(U'\r', at) - at));
        }
        return lines;
    }
    // The double click of the window itself; gives where the caret stands then.
    [[nodiscard]] std::size_t DoubleClick(std::size_t caret)
    {
        notes.guide->Text1.caret = static_cast<int>(caret);
        Raise(notes.guide->Text1.DblClick);
        EXPECT_EQ(notes.guide->Text1.AskedAtTop(), notes.guide->Text1.caret);
        return static_cast<std::size_t>(notes.guide->Text1.caret.Get());
    }
    [[nodiscard]] std::u32string LineAt(std::size_t at) const { return text.substr(at, text.find(U'\r', at) - at); }

    std::string bytes;
    std::u32string text;
};

TEST_P(GuidesTest, FitsIntoTheWindowsRoom)
{
    EXPECT_LE(bytes.size(), kLongest);
    EXPECT_GT(bytes.size(), 20000U); // a real guide
}

TEST_P(GuidesTest, EveryLineEndsInCrLfAndFitsIntoTheWindow)
{
    std::size_t lines = 0;
    for (std::size_t at = 0; at < bytes.size(); ++lines) {
        const std::size_t end = bytes.find('\n', at);
        ASSERT_NE(end, std::string::npos) << "the last line has no end";
        ASSERT_GT(end, 0U);
        EXPECT_EQ(bytes[end - 1], '\r') << "line " << lines + 1;
        EXPECT_LE(end - 1 - at, kColumns) << "line " << lines + 1;
        EXPECT_EQ(std::count(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.begin() + static_cast<std::ptrdiff_t>(end), '\r'), 1);
        at = end + 1;
    }
    EXPECT_GT(lines, 400U);
}

TEST_P(GuidesTest, HoldsNoByteThatWindows1252LacksAndIsNoUtf8InDisguise)
{
    EXPECT_EQ(text, CharactersOfBytes(bytes));
    const auto control = [](char32_t c) { return (c < U' ' && c != U'\r' && c != U'\n') || (c >= 0x7F && c < 0xA0); };
    EXPECT_EQ(std::ranges::count_if(text, control), 0);
}

TEST_P(GuidesTest, EveryLineOfTheContentsLeadsToTheHeadingOfItsChapter)
{
    const std::vector<std::u32string> contents = Contents();
    EXPECT_GT(contents.size(), 20U);
    std::size_t before = 0;
    for (const std::u32string &line : contents) {
        const std::size_t entry = text.find(U"\r\n" + line + U"\r\n") + 2;
        const std::size_t heading = DoubleClick(entry + line.size() / 2);
        EXPECT_GT(heading, entry) << Utf8Of(line);
        EXPECT_EQ(LineAt(heading), line);
        EXPECT_EQ(text[heading - 1], U'\n') << Utf8Of(line); // the heading is a line of its own
        const std::u32string rule = LineAt(heading + line.size() + 2);
        EXPECT_EQ(rule, std::u32string(line.size(), U'-')) << Utf8Of(line);
        // In the order of the contents, from wherever in the line the click came.
        EXPECT_GT(heading, before) << Utf8Of(line);
        EXPECT_EQ(DoubleClick(entry), heading) << Utf8Of(line);
        EXPECT_EQ(DoubleClick(entry + line.size()), heading) << Utf8Of(line);
        before = heading;
    }
}

TEST_P(GuidesTest, TheHeadingOfEveryChapterLeadsBackToTheTop)
{
    for (const std::u32string &line : Contents()) {
        const std::size_t heading = text.rfind(U"\r\n" + line + U"\r\n") + 2;
        EXPECT_EQ(DoubleClick(heading + 3), 0U) << Utf8Of(line);
    }
}

TEST_P(GuidesTest, NoChapterIsMissingFromTheContents)
{
    // A chapter is a line with dashes of its length below it.
    std::vector<std::u32string> chapters;
    for (std::size_t at = 0; at < text.size();) {
        const std::u32string line = LineAt(at);
        const std::size_t next = std::min(text.find(U'\n', at), text.size() - 1) + 1;
        if (!line.empty() && next < text.size() && LineAt(next) == std::u32string(line.size(), U'-')) {
            chapters.push_back(line);
        }
        at = next;
    }
    EXPECT_EQ(chapters, Contents());
}

INSTANTIATE_TEST_SUITE_P(Shipped, GuidesTest,
                         testing::Values(Guide{TestProgram::English, kEnglishGuide, "CONTENTS"},
                                         Guide{TestProgram::Italian, kItalianGuide, "INDICE"}),
                         [](const auto &guide) { return guide.param.language == TestProgram::English ? "English" : "Italian"; });

// A guide as a row of signs, one for each line that begins something: '=' the rule of a chapter, '1' a numbered line, '-'
// an item, '.' a paragraph.
std::string ShapeOf(const char *file)
{
    const Bytes shipped = ReadBytes(std::string(VELLUTO_DATA) + "/" + file);
    std::istringstream lines(std::string(shipped.begin(), shipped.end()));
    std::string shape;
    bool isAfterBlank = false;
    for (std::string line; std::getline(lines, line, '\r'); lines.ignore()) {
        const std::size_t words = line.find_first_not_of(" 0123456789");
        if (line.starts_with("---")) {
            shape += '=';
        } else if (line.starts_with(" - ")) {
            shape += '-';
        } else if (words != std::string::npos && words > 0 && line.substr(words, 2) == ". ") {
            shape += '1';
        } else if (isAfterBlank && !line.empty()) {
            shape += '.';
        }
        isAfterBlank = line.empty();
    }
    return shape;
}

TEST(GuidesSideBySide, HaveTheSameChaptersWithTheSameStepsItemsAndParagraphs)
{
    const std::string english = ShapeOf(kEnglishGuide);
    EXPECT_EQ(english, ShapeOf(kItalianGuide));
    EXPECT_EQ(std::ranges::count(english, '='), 28);
}

// What the guides quote from the menus is what the menus say.
TEST(GuideWords, ChaptersAboutMenusQuoteTheCaptionsOfTheirLanguage)
{
    for (const auto &[language, file] : {std::pair(TestProgram::English, kEnglishGuide), std::pair(TestProgram::Italian, kItalianGuide)}) {
        TestProgram run;
        ASSERT_TRUE(run.Start(language));
        const Bytes shipped = ReadBytes(std::string(VELLUTO_DATA) + "/" + file);
        std::string flat = ShownGuide(std::string(shipped.begin(), shipped.end()));
        // Quotes may run over the end of a line.
        for (std::size_t at = flat.find("\r\n"); at != std::string::npos; at = flat.find("\r\n", at)) {
            std::size_t end = at + 2;
            while (end < flat.size() && flat[end] == ' ') {
                ++end;
            }
            flat.replace(at, end - at, " ");
        }
        const frmMain &menu = run.program.app.frame;
        for (const MenuEntry *entry : {&menu.mnuPcgNuovo64,
                                       &menu.mnuPcgNuovo128,
                                       &menu.mnuStyNuovo,
                                       &menu.mnuPrfNuovo,
                                       &menu.mnuPcgApri,
                                       &menu.mnuStyApri,
                                       &menu.mnuPrfApri,
                                       &menu.mnuSalva,
                                       &menu.mnuSalvaAs,
                                       &menu.mnuStampa,
                                       &menu.mnuIngrandisci,
                                       &menu.mnuTaglia,
                                       &menu.mnuCopia,
                                       &menu.mnuIncolla,
                                       &menu.mnuView,
                                       &menu.mnuBankA,
                                       &menu.mnuStyUserAll,
                                       &menu.mnuStyDirectHD19,
                                       &menu.mnuStyDirectHD123,
                                       &menu.mnuStyDirectHD456,
                                       &menu.mnuStyDirectHD789,
                                       &menu.mnuPrfUser120,
                                       &menu.mnuPrfUserAll,
                                       &menu.mnuMsgEx,
                                       &menu.mnuTastiera,
                                       &menu.mnuMidiPlayer,
                                       &menu.mnuPreferenze,
                                       &menu.mnuLingua,
                                       &menu.mnuMIDIOut,
                                       &menu.mnuMIDIIn,
                                       &menu.mnuMIDIThru,
                                       &menu.mnuMIDISetup,
                                       &menu.mnuVisBarraStato,
                                       &menu.mnuBloccoNote,
                                       &menu.mnuWindow,
                                       &menu.mnuSovrapponi,
                                       &menu.mnuAffiancaOrizz,
                                       &menu.mnuAffiancaVert,
                                       &menu.mnuHelp,
                                       &menu.mnuGuida,
                                       &menu.mnuInfo}) {
            std::string caption = entry->caption.Get();
            std::erase(caption, '&');
            EXPECT_NE(flat.find('"' + caption + '"'), std::string::npos) << file << ": " << caption;
        }
    }
}

} // namespace
} // namespace velluto::test
