// The settings file: what a run reads from it and writes at its end.
#include "app/Paths.h"
#include "unit/app/SettingsFileRun.h"

using namespace velluto;
using namespace velluto::test;

namespace {

struct SettingsFileTest : SettingsFileRun {};

} // namespace

TEST_F(SettingsFileTest, DocumentsLieInRecords4To61)
{
    ini.PutPath(4, "/first.pcg");
    ini.PutPath(13, "/tenth.pcg");
    ini.PutPath(14, "/first.sty");
    ini.PutPath(33, "/twentieth.sty");
    ini.PutPath(34, "/first.prf");
    ini.PutPath(61, "/last.prf");
    Start();
    EXPECT_EQ(settings.PcgDocTable[1].Path.Trimmed(), "/first.pcg");
    EXPECT_EQ(settings.PcgDocTable[10].Path.Trimmed(), "/tenth.pcg");
    EXPECT_EQ(settings.StyDocTable[1].Path.Trimmed(), "/first.sty");
    EXPECT_EQ(settings.StyDocTable[20].Path.Trimmed(), "/twentieth.sty");
    EXPECT_EQ(settings.PrfDocTable[1].Path.Trimmed(), "/first.prf");
    EXPECT_EQ(settings.PrfDocTable[28].Path.Trimmed(), "/last.prf");
    // What the factory tied on a first run is not tied again.
    EXPECT_EQ(settings.PrfDocTable[9].Path.Trimmed(), "");
}

TEST_F(SettingsFileTest, DocumentsAreWrittenToRecords4To61)
{
    Start();
    settings.PcgDocTable[1].Path.Set("/pcg 1");
    settings.PcgDocTable[10].Path.Set("/pcg 10");
    settings.StyDocTable[1].Path.Set("/sty 1");
    settings.StyDocTable[20].Path.Set("/sty 20");
    settings.PrfDocTable[1].Path.Set("/prf 1");
    settings.PrfDocTable[28].Path.Set("/prf 28");
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.Text(4, 1, 234), Padded("/pcg 1", 234));
    EXPECT_EQ(after.Text(13, 1, 234), Padded("/pcg 10", 234));
    EXPECT_EQ(after.Text(14, 1, 234), Padded("/sty 1", 234));
    EXPECT_EQ(after.Text(33, 1, 234), Padded("/sty 20", 234));
    EXPECT_EQ(after.Text(34, 1, 234), Padded("/prf 1", 234));
    EXPECT_EQ(after.Text(61, 1, 234), Padded("/prf 28", 234));
}

TEST_F(SettingsFileTest, RecentFilesLieInRecords62To77)
{
    ini.PutPath(62, "/newest.pcg");
    ini.At(62, 245) = 1;
    ini.At(62, 246) = 9;
    ini.PutPath(77, "/oldest.pcg");
    Start();
    EXPECT_EQ(settings.RecentTable[1].Path.Trimmed(), "/newest.pcg");
    EXPECT_EQ(settings.RecentTable[1].Flag, 1);
    EXPECT_EQ(settings.RecentTable[1].Kind, 9);
    EXPECT_EQ(settings.RecentTable[16].Path.Trimmed(), "/oldest.pcg");
}

TEST_F(SettingsFileTest, TheTextsAreReadWithoutTheBlanksAtTheirEnd)
{
    ini.PutText(3, 1, "/music/of mine  ");
    ini.PutText(78, 1, std::string(500, 'd'));
    ini.PutText(79, 1, "name");
    ini.PutText(79, 51, "not part of the name");
    ini.PutText(80, 1, "/file.mid");
    Start();
    EXPECT_EQ(settings.LastDir, "/music/of mine");
    EXPECT_EQ(settings.PlayerDir, std::string(500, 'd'));
    EXPECT_EQ(settings.PlayerName, "name");
    EXPECT_EQ(settings.PlayerFile, "/file.mid");
}

TEST_F(SettingsFileTest, OnlyTheFirst234CharactersOfRecord3AreLastDir)
{
    ini.PutText(3, 1, std::string(300, 'x'));
    Start();
    EXPECT_EQ(settings.LastDir, std::string(234, 'x'));
}

TEST_F(SettingsFileTest, ARunThatChangesNothingKeepsTheReservedBytesOfRecord1AndRecord2)
{
    for (const std::size_t position : {8U, 16U, 24U, 26U, 28U, 29U, 45U, 50U, 457U, 484U}) {
        ini.At(1, position) = 0xA5;
    }
    ini.PutText(2, 1, std::string(500, '#'));
    Start();
    IniFile after = ExitAndRead();
    for (const std::size_t position : {8U, 16U, 24U, 26U, 28U, 29U, 45U, 50U, 457U, 484U}) {
        EXPECT_EQ(after.At(1, position), 0xA5) << position;
    }
    EXPECT_EQ(after.Text(1, 1, 7), "Velluto");
    EXPECT_EQ(after.Record(2), std::string(500, '#'));
    EXPECT_EQ(after.bytes.size(), 40000U);
}

TEST_F(SettingsFileTest, ARoleGivenByTheUserReadsBackAs0InTheNextRun)
{
    Start();
    settings.PcgDocTable[9].Role = 14;
    settings.PcgDocTable[9].Tag7 = 3;
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.At(12, 244), 0);
    EXPECT_EQ(after.At(12, 246), 0);
    TestProgram next(run.folder);
    next.Start();
    EXPECT_EQ(next.program.app.settings.PcgDocTable[9].Role, 0);
}

TEST_F(SettingsFileTest, TheRolesOfAFirstRunLastUntilItsEnd)
{
    TestProgram first;
    first.Start();
    EXPECT_EQ(first.program.app.settings.PcgDocTable[9].Role, 2);
    first.Exit();
    TestProgram next(first.folder);
    next.Start();
    EXPECT_EQ(next.program.app.settings.PcgDocTable[9].Role, 0);
    EXPECT_EQ(next.program.app.settings.PrfDocTable[9].Path.Trimmed(), next.At("Velluto-Bank01.prf"));
}

TEST_F(SettingsFileTest, TheSlotsOfNewProgramFilesHaveARoleInAFirstRunOnly)
{
    Start();
    EXPECT_EQ(settings.PcgDocTable[11].Role, 0);
    EXPECT_EQ(settings.PcgDocTable[12].Role, 0);
}

TEST_F(SettingsFileTest, ADocumentAtMinus20000IsStoredAsZero)
{
    Start();
    settings.PcgDocTable[1].Top = -20000;
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.Word(4, 235), 0);
    TestProgram next(run.folder);
    next.Start();
    EXPECT_EQ(next.program.app.settings.PcgDocTable[1].Top, -16000);
}

TEST_F(SettingsFileTest, TheTextsAreBlankPadded)
{
    Start();
    settings.LastDir = "/music";
    settings.PlayerDir = "/midi";
    settings.PlayerName = "set";
    settings.PlayerFile = "song.mid";
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.Record(3), Padded("/music", 500));
    EXPECT_EQ(after.Record(78), Padded("/midi", 500));
    EXPECT_EQ(after.Record(80), Padded("song.mid", 500));
}

TEST_F(SettingsFileTest, AFolderThatDoesNotFitIsNotKeptInPart)
{
    Start();
    settings.LastDir = "/" + std::string(234, 'x');
    EXPECT_EQ(ExitAndRead().Record(3), std::string(500, ' '));
}

TEST_F(SettingsFileTest, Record79IsNotClearedBeforeItIsWritten)
{
    Start();
    settings.PlayerDir = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    settings.PlayerName = "set";
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.Record(79), Padded("setDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789", 500));
    TestProgram next(run.folder);
    next.Start();
    EXPECT_EQ(next.program.app.settings.PlayerName, "setDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwx");
}

TEST_F(SettingsFileTest, APlayerNameIsCutTo50Characters)
{
    Start();
    settings.PlayerName = std::string(60, 'n');
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.Record(79), Padded(std::string(50, 'n'), 500));
}

TEST_F(SettingsFileTest, AMaximisedFrameStoresItsStateAndKeepsItsEarlierPlace)
{
    ini.PutWord(1, 51, 16000 + 111);
    ini.PutWord(1, 53, 16000 + 222);
    ini.PutWord(1, 55, 9000);
    ini.PutWord(1, 57, 8000);
    Start();
    run.program.app.frame.windowState = WindowState::Maximised;
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.At(1, 59), 2);
    EXPECT_EQ(after.Word(1, 51), 16111);
    EXPECT_EQ(after.Word(1, 53), 16222);
    EXPECT_EQ(after.Word(1, 55), 9000);
    EXPECT_EQ(after.Word(1, 57), 8000);
}

TEST_F(SettingsFileTest, AMinimisedFrameStoresItsStateOnly)
{
    Start();
    run.program.app.frame.place = Place{300, 400, 7000, 6000};
    run.program.app.frame.windowState = WindowState::Minimised;
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.At(1, 59), 1);
    EXPECT_EQ(after.Word(1, 55), 0);
}

TEST_F(SettingsFileTest, ANormalFrameStoresItsPlace)
{
    Start();
    run.program.app.frame.windowState = WindowState::Normal;
    run.program.app.frame.place = Place{300, -400, 7000, 6000};
    IniFile after = ExitAndRead();
    EXPECT_EQ(after.At(1, 59), 0);
    EXPECT_EQ(after.Word(1, 51), 15600);
    EXPECT_EQ(after.Word(1, 53), 16300);
    EXPECT_EQ(after.Word(1, 55), 7000);
    EXPECT_EQ(after.Word(1, 57), 6000);
}

TEST_F(SettingsFileTest, AFrameBeyondWhatTwoBytesHoldTakesTheNearestPlace)
{
    Start();
    run.program.app.frame.windowState = WindowState::Normal;
    run.program.app.frame.place = Place{90000, -90000, 100000, 6000};
    run.Exit();
    TestProgram next(run.folder);
    next.Start();
    EXPECT_EQ(next.program.app.frame.place.Get(), (Place{32767, -32768, 65535, 6000}));
}

TEST_F(SettingsFileTest, TheStatusBarIsStoredAsItsMenuEntryStands)
{
    ini.At(1, 27) = 1;
    Start();
    run.Choose(run.program.app.frame.mnuVisBarraStato);
    EXPECT_EQ(ExitAndRead().At(1, 27), 0);
}

TEST_F(SettingsFileTest, NothingIsWrittenBetweenStartAndEnd)
{
    Start();
    const Bytes before = run.Ini();
    settings.LastDir = "/elsewhere";
    run.Choose(run.program.app.frame.mnuItaliano);
    EXPECT_EQ(run.Ini(), before);
}

TEST_F(SettingsFileTest, WhatARunLeavesTheNextRunReads)
{
    Start();
    settings.LastChannel = 7;
    settings.ReservedFlag17 = true;
    settings.PcgUserAssigned = true;
    settings.ChannelRole[15] = 13;
    settings.KeyboardRecord[14] = 77;
    settings.KeyboardRecord[15] = 55;
    settings.PlacementTable[8].MinWidth = 4321;
    settings.RecentTable[1].Path.Set("/a.pcg");
    run.Exit();
    TestProgram next(run.folder);
    next.Start();
    const Settings &read = next.program.app.settings;
    EXPECT_EQ(read.LastChannel, 7);
    EXPECT_TRUE(read.ReservedFlag17);
    EXPECT_TRUE(read.PcgUserAssigned);
    EXPECT_EQ(read.ChannelRole[15], 13);
    EXPECT_EQ(read.KeyboardRecord[14], 77);
    EXPECT_EQ(read.KeyboardRecord[15], 0);
    EXPECT_EQ(read.PlacementTable[8].MinWidth, 4321);
    EXPECT_EQ(read.RecentTable[1].Path.Trimmed(), "/a.pcg");
}

// As a run on Windows leaves it for one on Linux, and the other way round.
TEST_F(SettingsFileTest, PathsOfTheOtherSystemStayAsTheyAreThroughARunThatKnowsNoneOfThem)
{
    const bool isWindows = kPathSeparator == '\\';
    const std::string drive = isWindows ? "/home/anna/Musica/Citt\xC3\xA0/" : "C:\\Musica\\Citt\xC3\xA0\\";
    const std::string share = isWindows ? "/media/PA80 disk/" : "\\\\server\\PA80 disk\\";
    const std::array<std::string, 3> tied{drive + "one.pcg", share + "two.sty", drive + "three.prf"};
    Start();
    settings.PcgDocTable[9].Path.Set(tied[0]);
    settings.StyDocTable[12].Path.Set(tied[1]);
    settings.PrfDocTable[28].Path.Set(tied[2]);
    settings.RecentTable[1].Path.Set(tied[0]);
    settings.RecentTable[1].Kind = 9;
    settings.RecentTable[16].Path.Set(share + "last.sty");
    settings.LastDir = share + "sets";
    settings.PlayerDir = drive + "midi";
    settings.PlayerName = "evening";
    settings.PlayerFile = "song.mid";
    IniFile left = ExitAndRead();
    EXPECT_EQ(left.Text(12, 1, 234), Padded(tied[0], 234));
    EXPECT_EQ(left.Text(25, 1, 234), Padded(tied[1], 234));
    EXPECT_EQ(left.Text(61, 1, 234), Padded(tied[2], 234));
    EXPECT_EQ(left.Text(62, 1, 234), Padded(tied[0], 234));
    EXPECT_EQ(left.Record(3), Padded(share + "sets", kRecordLength));
    EXPECT_EQ(left.Record(78), Padded(drive + "midi", kRecordLength));

    TestProgram here(run.folder);
    ASSERT_TRUE(here.Start());
    EXPECT_TRUE(here.program.app.frame.mnuPcgUser[9].enabled);
    EXPECT_TRUE(here.Choose(here.program.app.frame.mnuPcgUser[9])); // of which there is no file
    EXPECT_TRUE(here.Exit());
    IniFile after = IniFile::Of(here);
    for (std::size_t record = 2; record <= kRecords; ++record) {
        EXPECT_EQ(after.Record(record), left.Record(record)) << record;
    }
}
