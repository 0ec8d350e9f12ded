// Texts on their way between the program and Qt.
#include "desktop/Dialogs.h"
#include "desktop/QtText.h"

#include <gtest/gtest.h>

namespace velluto {

namespace {

TEST(WordsTest, OnlyTheFirstMarkIsAnAccessKey)
{
    EXPECT_EQ(WithAccessKey("&1 R&B.pcg"), QStringLiteral("&1 R&&B.pcg"));
    EXPECT_EQ(WithAccessKey("M&IDI PLAYER"), QStringLiteral("M&IDI PLAYER"));
    EXPECT_EQ(WithAccessKey("Salva"), QStringLiteral("Salva"));
    EXPECT_EQ(WithoutAccessKey("R&B"), QStringLiteral("R&&B"));
    EXPECT_EQ(Spoken("&G User 1: R&B"), QStringLiteral("G User 1: R&B"));
}

TEST(WordsTest, BytesOfWindows1252AreTheirCharactersUpToTheFirstZero)
{
    EXPECT_EQ(FromWindows1252("A\xE8\x80\x9F"), QString::fromUtf8("Aè€Ÿ"));
    EXPECT_EQ(FromWindows1252(std::string_view("ab\0cd", 5)), QStringLiteral("ab"));
}

TEST(WordsTest, ABytesWithoutACharacterStillTakesOnePlace)
{
    EXPECT_EQ(FromWindows1252("a\x81\x07z").size(), 4);
    EXPECT_EQ(FromWindows1252("a\x81\x07z").front(), QLatin1Char('a'));
    EXPECT_EQ(FromWindows1252("a\x81\x07z").back(), QLatin1Char('z'));
}

TEST(WordsTest, TheCaretCountsCharactersAndTwoForALineEnd)
{
    const std::string text = "a\r\n\xF0\x9F\x8E\xB9z"; // one character beyond the first plane
    EXPECT_EQ(ToEditorText(text).size(), 5);
    EXPECT_EQ(ToEditorPosition(text, 0), 0);
    EXPECT_EQ(ToEditorPosition(text, 1), 1);
    EXPECT_EQ(ToEditorPosition(text, 3), 2);
    EXPECT_EQ(ToEditorPosition(text, 4), 4);
    EXPECT_EQ(ToEditorPosition(text, 99), 5);
    const QString shown = ToEditorText(text);
    EXPECT_EQ(FromEditorPosition(shown, 2), 3);
    EXPECT_EQ(FromEditorPosition(shown, 4), 4);
    EXPECT_EQ(FromEditorPosition(shown, 5), 5);
}

TEST(WordsTest, ATitleWithQtsOwnMarkInItIsShownAsItIs)
{
    EXPECT_EQ(AsTitle("a[*].pcg"), QStringLiteral("a[*][*].pcg"));
}

TEST(WordsTest, FiltersBecomeQtsAndAllFilesMeansFilesWithoutADotToo)
{
    const QStringList filters = NameFilters("Program (*.pcg)|*.pcg| Style (*.sty)|*.sty|All files (*.*)|*.*|");
    EXPECT_EQ(filters, (QStringList{QStringLiteral("Program (*.pcg)"), QStringLiteral("Style (*.sty)"), QStringLiteral("All files (*)")}));
}

} // namespace

} // namespace velluto
