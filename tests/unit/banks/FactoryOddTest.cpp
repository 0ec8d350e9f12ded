// Tables that are not what they should be, and a bank that something has marked as edited.
#include "FactoryDesk.h"

#include <filesystem>

namespace velluto::test {
namespace {

class OddTablesTest : public FactoryDesk {};

TEST_F(OddTablesTest, MissingTablesAreMadeAsEmptyFilesAndItemsSendZeros)
{
    Start();
    EXPECT_EQ(std::filesystem::file_size(run.At("Velluto-pcg.txt")), 0U);
    EXPECT_EQ(std::filesystem::file_size(run.At("Velluto-sty.txt")), 0U);
    EXPECT_TRUE(run.face.boxes.empty());
    frmBank117 &bank = Bank(2);
    EXPECT_EQ(bank.List1.Row(0), Blanks(18));
    EXPECT_EQ(bank.List1.Row(2), "01 " + Blanks(13));
    EXPECT_EQ(bank.List1.Row(116), "16 " + Blanks(13));
    EXPECT_EQ(Click(bank, 0), Sent{});
    EXPECT_EQ(Click(bank, 2), Messages(0, 0, 0, 0));
    frmSty &styles = Styles(1);
    EXPECT_EQ(styles.List1.Row(0), "");
    EXPECT_EQ(styles.List1.Row(2), "01  ");
    EXPECT_EQ(Click(styles, 0), Sent{});
    EXPECT_EQ(Click(styles, 22), Messages(1, 0, 1, 1)) << "a Style needs no name to be played";
}

TEST_F(OddTablesTest, AShortTableReadsBlanksForWhatItLacks)
{
    WriteTables();
    std::filesystem::resize_file(run.At("Velluto-pcg.txt"), 30 * 3 + 22);
    std::filesystem::resize_file(run.At("Velluto-sty.txt"), 23 * 3 + 12);
    Start();
    frmBank117 &bank = Bank(2);
    EXPECT_EQ(bank.List1.Row(2), "01 Prog 3       ");
    EXPECT_EQ(bank.List1.Row(3), "02 Prog 4       ");
    EXPECT_EQ(Click(bank, 3), Messages(0, 121, 0, 0)) << "cut behind the MSB";
    EXPECT_EQ(bank.List1.Row(4), "03 " + Blanks(13));
    EXPECT_EQ(Click(bank, 4), Messages(0, 0, 0, 0));
    EXPECT_EQ(Styles(1).List1.Row(3), "02  Style");
    EXPECT_EQ(Styles(1).List1.Row(4), "03  ");
}

TEST_F(OddTablesTest, WhatATableHasBeyondItsLastRecordIsNotRead)
{
    WriteTables();
    std::filesystem::resize_file(run.At("Velluto-pcg.txt"), 30 * 745 + 1000);
    std::filesystem::resize_file(run.At("Velluto-sty.txt"), 23 * 271 + 1000);
    Start();
    EXPECT_EQ(Bank(7).List1.ListCount(), 104);
    EXPECT_EQ(Click(Bank(7), 103), Messages(0, 121, 745 % 128, 745 % 128));
    EXPECT_EQ(Styles(2).List1.ListCount(), 148);
    EXPECT_EQ(std::filesystem::file_size(run.At("Velluto-pcg.txt")), 30U * 745 + 1000) << "the file stays as it is";
}

// What a bank asks should anything mark it as edited.
class EditedBankTest : public FactoryDesk {
protected:
    void SetUp() override { Start(); }
    frmBank117 &EditedBank()
    {
        frmBank117 &bank = Bank(6);
        bank.Tag.Set(7, 1);
        app.children.ClosingAll = true;
        return bank;
    }
    [[nodiscard]] bool IsOpen() { return run.program.banks.BankWindows[4] != nullptr; }
};

TEST_F(EditedBankTest, CancelKeepsItAndEndsAnExitInProgress)
{
    frmBank117 &bank = EditedBank();
    run.face.answers.push_back(Box::kCancel);
    EXPECT_FALSE(run.Close(bank));
    ASSERT_EQ(run.face.boxes.size(), 1U);
    EXPECT_EQ(run.face.boxes[0].title, "File Program - E: Synth 2, Bass.pcg");
    EXPECT_EQ(run.face.boxes[0].text, "The file has changed\r\nSave changes ?");
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(app.children.ClosingAll);
    EXPECT_EQ(bank.Tag.At(7), 1);
}

TEST_F(EditedBankTest, NoClosesIt)
{
    frmBank117 &bank = EditedBank();
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(run.Close(bank));
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(app.children.ClosingAll);
}

TEST_F(EditedBankTest, YesSavesAndAFailureKeepsIt)
{
    frmBank117 &bank = EditedBank();
    run.face.answers = {Box::kYes, Box::kOk};
    run.files.faults.push_back({FileFault::Operation::Open, "E: Synth 2, Bass", 75, 1});
    EXPECT_FALSE(run.Close(bank));
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(app.children.ClosingAll) << "only Cancel clears it";
}

TEST_F(EditedBankTest, AfterASaveUnderANewNameTheFileIsARecentOne)
{
    frmBank117 &bank = EditedBank();
    bank.Tag.Set(18, 1);
    bank.Tag.Set(2, 3);
    run.face.answers.push_back(Box::kYes);
    EXPECT_TRUE(run.Close(bank));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(app.settings.RecentTable[1].Path.Trimmed(), "E: Synth 2, Bass");
    EXPECT_EQ(app.settings.RecentTable[1].Kind, 3);
}

} // namespace
} // namespace velluto::test
