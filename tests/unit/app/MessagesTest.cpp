#include "app/Messages.h"

#include "app/Modulo1.h"
#include "standin/StandinFace.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

using namespace velluto;

namespace {

constexpr int kItalian = 0;
constexpr int kEnglish = 200;

struct MessagesTest : testing::Test {
    StandinFace face;
    Messages italian{face, kItalian};
    Messages english{face, kEnglish};
};

} // namespace

TEST(MessageText, EachNumberLeadsToItsText)
{
    const std::vector<std::pair<int, const char *>> rows{
        {0, "generic error"},
        {2, "x error"},
        {3, "Remove all"},
        {4, "Error reading x"},
        {5, "File x not found"},
        {10, "MIDI input device not found"},
        {11, "Path not found"},
        {12, "Close before all other applications"},
        {14, "New"},
        {15, "Remove sel."},
        {16, "File already open"},
        {17, "Read only file"},
        {18, "Disk reading error"},
        {19, "Disk full"},
        {20, "Output MIDI Device already in use"},
        {21, "Error opening MIDI input device"},
        {22, "Output MIDI Device not found"},
        {23, "Error closing Output MIDI Device"},
        {24, "The change will take place next time you will run the programme"},
        {25, "Reading Error"},
        {26, "Reading "},
        {27, "File not found"},
        {28, "Disk not ready or not formatted"},
        {29, "Disk writing error"},
        {30, "Path not found"},
        {31, "Error I/O device"},
        {32, "Data format error"},
        {33, "MIDI input device not found"},
        {34, "Error Opening the MIDI Input Device"},
        {35, "The MIDI Device will not be used"},
        {36, " "},
        {38, "Input MIDI Device already in use"},
        {39, "MCI device not ready"},
    };
    for (const auto &[number, text] : rows) {
        EXPECT_EQ(MessageText(number, kEnglish, "x"), text) << number;
    }
}

TEST(MessageText, NumbersThatLeadToNoIdGiveNoText)
{
    for (const int number : {-1, 13, 37, 40, 1000}) {
        EXPECT_EQ(MessageText(number, kItalian, "x"), "") << number;
        EXPECT_EQ(MessageText(number, kEnglish, "x"), "") << number;
    }
}

TEST(MessageText, Numbers6To9LeadToFourIdsInARowThatHoldNoText)
{
    for (const int number : {6, 7, 8, 9}) {
        EXPECT_THROW((void)MessageText(number, kItalian, ""), std::out_of_range) << number;
        EXPECT_THROW((void)MessageText(number, kEnglish, ""), std::out_of_range) << number;
    }
    // The four ids behind them hold texts: a base of four shows which is which.
    constexpr int kFourOn = 4;
    EXPECT_EQ(MessageText(6, kFourOn, ""), "&Cancella");
    EXPECT_EQ(MessageText(7, kFourOn, ""), "ATTENDERE");
    EXPECT_EQ(MessageText(8, kFourOn, ""), "Nome File");
    EXPECT_EQ(MessageText(9, kFourOn, ""), "Guida Utente");
}

TEST(MessageText, Message4ReplacesOnlyThePlaceholderOfTheTextAndNotThatOfTheInsert)
{
    EXPECT_EQ(MessageText(4, kItalian, "my_file.pcg"), "Formato dati my_file.pcg errato");
    EXPECT_EQ(MessageText(4, kEnglish, "a_b_c"), "Error reading a_b_c");
}

TEST(MessageText, Message22InEnglish)
{
    EXPECT_EQ(MessageText(22, kEnglish, ""), "Output MIDI Device not found");
}

TEST(MessageText, WithoutAPlaceholderTheInsertIsIgnored)
{
    EXPECT_EQ(MessageText(27, kItalian, "something"), "File assente");
}

TEST(MessageText, WithNumber1TheWholeTextIsTheInsert)
{
    EXPECT_EQ(MessageText(1, kItalian, "words of one's own"), "words of one's own");
    EXPECT_EQ(MessageText(1, kEnglish, "a_b"), "a_b");
}

TEST(MessageText, AnEmptyInsertLeavesTheTwoBlanksSideBySide)
{
    EXPECT_EQ(MessageText(4, kItalian, ""), "Formato dati  errato");
}

TEST_F(MessagesTest, ShowMessageIsABoxWithOneButtonAndTheExclamationIcon)
{
    italian.ShowMessage(16, "Apertura di a.pcg", "");
    ASSERT_EQ(face.boxes.size(), 1U);
    EXPECT_EQ(face.boxes[0].title, "Apertura di a.pcg");
    EXPECT_EQ(face.boxes[0].text, "File gi\xC3\xA0 aperto");
    EXPECT_EQ(face.boxes[0].style, 48);
}

TEST_F(MessagesTest, ANumberWithoutATextStillShowsItsBox)
{
    english.ShowMessage(13, "title", "insert");
    ASSERT_EQ(face.boxes.size(), 1U);
    EXPECT_EQ(face.boxes[0].text, "");
}

TEST_F(MessagesTest, AskSaveHasItsFirstLineByKind)
{
    const std::vector<std::pair<int, std::string>> kinds{
        {0, "Save changes ?"},
        {1, "The file has changed\r\nSave changes ?"},
        {2, "Tile Horizontal\r\nSave changes ?"},
        {3, "The Program has changed.\r\nSave changes ?"},
        {4, "Save changes ?"},
        {-1, "Save changes ?"},
    };
    for (const auto &[kind, text] : kinds) {
        (void)english.AskSave(kind, "a title");
        EXPECT_EQ(face.boxes.back().text, text) << kind;
        EXPECT_EQ(face.boxes.back().title, "a title");
        EXPECT_EQ(face.boxes.back().style, 51);
    }
    (void)italian.AskSave(1, "");
    EXPECT_EQ(face.boxes.back().text, "Il file \xC3\xA8 stato modificato\r\nSalvare le modifiche ?");
}

TEST_F(MessagesTest, AskSaveGivesBackTheButton)
{
    face.answers = {Box::kYes, Box::kNo, Box::kCancel};
    EXPECT_EQ(italian.AskSave(1, ""), 6);
    EXPECT_EQ(italian.AskSave(1, ""), 7);
    EXPECT_EQ(italian.AskSave(1, ""), 2);
}

TEST_F(MessagesTest, ClassifyIoErrorHasAWordAndAVerdictForEachError)
{
    struct Row {
        int error;
        const char *text;
        int verdict;
    };
    // 57, the error that systems report for a device, is a disk reading error; only 56 has the device's own word.
    const std::vector<Row> rows{
        {56, "Error I/O device", 1},   {57, "Disk reading error", 1}, {71, "Disk not ready or not formatted", 2},
        {75, "Read only file", 1},     {76, "Path not found", 1},     {53, "Disk reading error", 1},
        {61, "Disk reading error", 1}, {51, "Disk reading error", 1},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(ClassifyIoError(english, "the title", {row.error}), row.verdict) << row.error;
        EXPECT_EQ(face.boxes.back().text, row.text) << row.error;
        EXPECT_EQ(face.boxes.back().title, "the title");
        EXPECT_EQ(face.boxes.back().style, 48);
    }
    EXPECT_EQ(face.boxes.size(), rows.size());
}
