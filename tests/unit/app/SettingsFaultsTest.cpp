// A settings file that ends early, that the disk refuses to read or to write, or that holds any bytes at all.
#include "unit/app/SettingsFileRun.h"

#include <random>

using namespace velluto;
using namespace velluto::test;

namespace {

struct SettingsFaultsTest : SettingsFileRun {};

} // namespace

TEST_F(SettingsFaultsTest, RecordsBeyondTheEndReadAsBlanks)
{
    ini.PutText(3, 1, "/music");
    ini.bytes.resize(500 * 3);
    Start();
    EXPECT_EQ(settings.LastDir, "/music");
    EXPECT_EQ(settings.PcgDocTable[1].Path.Trimmed(), "");
    EXPECT_EQ(settings.PcgDocTable[1].Width, 0x2020);
    EXPECT_EQ(settings.PlayerDir, "");
}

TEST_F(SettingsFaultsTest, AReadFailureEndsInSilenceWithWhatHasBeenRead)
{
    ini.PutText(3, 1, "/music");
    ini.PutPath(4, "/a.pcg");
    ini.PutPath(14, "/a.sty");
    ini.PutText(80, 1, "/song.mid");
    ini.At(1, 23) = 9;
    ini.WriteTo(run);
    // Record 1 and record 3 are read, record 4 is not.
    run.files.faults.push_back({FileFault::Operation::Read, run.At("Velluto.ini"), 0, 2});
    run.files.faults.push_back({FileFault::Operation::Read, run.At("Velluto.ini"), 57, 1});
    EXPECT_TRUE(run.Start());
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_EQ(settings.LastChannel, 9);
    EXPECT_EQ(run.program.app.messages.LinguaBase, 200);
    EXPECT_EQ(settings.LastDir, "/music");
    EXPECT_EQ(settings.PcgDocTable[1].Path.Trimmed(), "");
    EXPECT_EQ(settings.PcgDocTable[1].Role, 2);
    EXPECT_EQ(settings.StyDocTable[1].Path.Trimmed(), "") << "nor is anything behind it";
    EXPECT_EQ(settings.PlayerFile, "");
}

TEST_F(SettingsFaultsTest, AFirstRecordThatCannotBeReadIsNoFirstRun)
{
    ini.At(1, 23) = 9;
    ini.WriteTo(run);
    run.files.faults.push_back({FileFault::Operation::Read, run.At("Velluto.ini"), 57, 1});
    EXPECT_TRUE(run.Start());
    EXPECT_EQ(run.languageQuestions, 0);
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_EQ(run.Ini(), ini.bytes);
}

TEST_F(SettingsFaultsTest, AFileThatEndsBehindADocumentHasNoOtherDocument)
{
    ini.PutPath(4, "/a.pcg");
    ini.bytes.resize(500 * 4);
    Start();
    EXPECT_EQ(settings.PcgDocTable[1].Path.Trimmed(), "/a.pcg");
    EXPECT_EQ(settings.PcgDocTable[2].Path.Trimmed(), "");
}

TEST_F(SettingsFaultsTest, ADiskNotReadyWhileReadingIsTriedUntilItIs)
{
    ini.PutText(80, 1, "/song.mid");
    ini.WriteTo(run);
    run.files.faults.push_back({FileFault::Operation::Read, run.At("Velluto.ini"), 71, 500});
    EXPECT_TRUE(run.Start());
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_EQ(settings.PlayerFile, "/song.mid");
}

TEST_F(SettingsFaultsTest, AWriteFailureIsShownOnceUnderTheClosingTitleAndTheProgramCloses)
{
    Start();
    settings.LastDir = "/music";
    settings.PlayerFile = "never written";
    run.files.faults.push_back({FileFault::Operation::Write, run.At("Velluto.ini"), 0, 2});
    run.files.faults.push_back({FileFault::Operation::Write, run.At("Velluto.ini"), 61, 1});
    EXPECT_TRUE(run.Exit());
    EXPECT_EQ(run.face.frame, nullptr);
    ASSERT_EQ(run.face.boxes.size(), 1U);
    EXPECT_EQ(run.face.boxes[0].title, "Closing MIDI out device");
    EXPECT_EQ(run.face.boxes[0].text, "Disk reading error");
    IniFile after = IniFile::Of(run);
    EXPECT_EQ(after.Record(3), Padded("/music", 500));
    EXPECT_EQ(after.Record(4), std::string(500, ' '));
    EXPECT_EQ(after.Record(80), std::string(500, ' '));
}

TEST_F(SettingsFaultsTest, BehindAPlayersFolderThatCannotBeWrittenNothingIs)
{
    Start();
    settings.PlayerDir = "/music";
    settings.PlayerName = "Waltzes";
    settings.PlayerFile = "/music/one.mid";
    // Records 1, 3 and 4 to 77 come before the folder's.
    run.files.faults.push_back({FileFault::Operation::Write, run.At("Velluto.ini"), 0, 76});
    run.files.faults.push_back({FileFault::Operation::Write, run.At("Velluto.ini"), 61, 1});
    EXPECT_TRUE(run.Exit());
    ASSERT_EQ(run.face.boxes.size(), 1U);
    IniFile after = IniFile::Of(run);
    EXPECT_EQ(after.Record(78), std::string(500, ' '));
    EXPECT_EQ(after.Record(79), std::string(500, ' '));
    EXPECT_EQ(after.Record(80), std::string(500, ' '));
}

TEST_F(SettingsFaultsTest, ADiskNotReadyAtTheEndIsShownAndNotTriedAgain)
{
    Start();
    run.files.faults.push_back({FileFault::Operation::Open, run.At("Velluto.ini"), 71, 9});
    EXPECT_TRUE(run.Exit());
    ASSERT_EQ(run.face.boxes.size(), 1U);
    EXPECT_EQ(run.face.boxes[0].text, "Disk not ready or not formatted");
    EXPECT_EQ(run.files.faults.back().times, 8);
}

TEST_F(SettingsFaultsTest, AReadOnlyFileAtTheEndIsTold)
{
    Start();
    run.files.faults.push_back({FileFault::Operation::Open, run.At("Velluto.ini"), 75, 1});
    EXPECT_TRUE(run.Exit());
    ASSERT_EQ(run.face.boxes.size(), 1U);
    EXPECT_EQ(run.face.boxes[0].text, "Read only file");
}

TEST(SettingsFaults, AnyBytesAtAllGiveARunningProgramThatCanEnd)
{
    std::mt19937 random(1966);
    for (int round = 0; round < 150; ++round) {
        TestProgram run;
        IniFile ini;
        ini.bytes.resize(round % 3 == 0 ? random() % 40000 : 40000);
        for (std::uint8_t &byte : ini.bytes) {
            byte = static_cast<std::uint8_t>(random());
        }
        if (ini.bytes.size() > 7) {
            ini.PutText(1, 1, "Velluto");
        }
        ini.WriteTo(run);
        ASSERT_TRUE(run.Start()) << round;
        EXPECT_TRUE(run.program.app.settings.Lingua == 1 || run.program.app.settings.Lingua == 2);
        for (MenuEntry *menu : {&run.program.app.frame.mnuFile, &run.program.app.frame.mnuModifica, &run.program.app.frame.mnuView}) {
            DropMenu(*menu);
        }
        run.Choose(run.program.app.frame.mnuMsgEx);
        run.Choose(run.program.app.frame.mnuMIDISetup);
        run.Choose(run.program.app.frame.mnuRecentFile[1 + round % 16]);
        run.Choose(run.program.app.frame.mnuPcgUser[9 + round % 2]);
        run.Choose(run.program.app.frame.mnuPcgNuovo64);
        EXPECT_TRUE(run.Exit()) << round;
        EXPECT_EQ(run.Ini().size(), 40000U) << round;
    }
}
