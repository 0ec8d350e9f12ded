#include "unit/app/IniFile.h"

#include <gtest/gtest.h>

using namespace velluto;
using namespace velluto::test;

TEST(StartUp, TheCompanionFilesLieInTheCurrentDirectory)
{
    TestProgram run;
    run.Start();
    const RunPaths &paths = run.program.app.paths;
    EXPECT_EQ(paths.AppDir, run.folder->Path());
    EXPECT_EQ(paths.IniPath, run.At("Velluto.ini"));
    EXPECT_EQ(paths.GuidaPath, run.At("Velluto-GuidaUtente.txt"));
    EXPECT_EQ(paths.GuidePath, run.At("Velluto-UserGuide.txt"));
    EXPECT_EQ(paths.NotebookPath, run.At("Velluto-Notebook.txt"));
    EXPECT_EQ(paths.PcgTablePath, run.At("Velluto-pcg.txt"));
    EXPECT_EQ(paths.StyTablePath, run.At("Velluto-sty.txt"));
    EXPECT_EQ(paths.PrfBank1Path, run.At("Velluto-Bank01.prf"));
}

TEST(StartUp, TheOperationNamesItselfBeforeTheSurvey)
{
    TestProgram italian;
    italian.Start(TestProgram::Italian);
    EXPECT_EQ(italian.program.app.CurrentOperation, "Apertura dispositivo MIDI");
    TestProgram english;
    english.Start(TestProgram::English);
    EXPECT_EQ(english.program.app.CurrentOperation, "Opening MIDI out device");
}

TEST(StartUp, AMachineWithoutDevicesShowsItsBoxAndGoesOn)
{
    TestProgram run;
    run.midi.outs.clear();
    run.midi.ins.clear();
    EXPECT_TRUE(run.Start(TestProgram::English));
    ASSERT_EQ(run.face.boxes.size(), 1U);
    EXPECT_EQ(run.face.boxes[0].title, "Velluto v 1.1");
    EXPECT_EQ(run.face.boxes[0].text, "Output MIDI Device not found");
    const frmMain &menu = run.program.app.frame;
    EXPECT_FALSE(menu.mnuMIDIOut.enabled);
    EXPECT_TRUE(menu.mnuMIDIIn.enabled);
    EXPECT_FALSE(menu.mnuMIDIThru.enabled);
    // The load of the frame in the middle of the survey is the only one.
    EXPECT_EQ(menu.mnuFile.caption.Get(), "&File");
}

TEST(StartUp, TheSavedDevicesAreReopenedAndTheirEntriesChecked)
{
    TestProgram run;
    IniFile ini = IniFile::Created(1);
    ini.At(1, 19) = 0;
    ini.At(1, 20) = 0;
    ini.At(1, 21) = 1;
    ini.WriteTo(run);
    run.Start();
    frmMain &menu = run.program.app.frame;
    EXPECT_TRUE(run.program.midi.MidiOutOpen);
    EXPECT_TRUE(run.program.midi.MidiInOpen);
    EXPECT_TRUE(menu.mnuDevMIDIOut[0].checked);
    EXPECT_TRUE(menu.mnuDevMIDIIn[0].checked);
    // A saved Thru only comes back as a check mark: no connection, and the entry is disabled.
    EXPECT_TRUE(menu.mnuMIDIThru.checked);
    EXPECT_FALSE(menu.mnuMIDIThru.enabled);
    EXPECT_TRUE(run.midi.thru.empty());
}

TEST(StartUp, TheFactoryTablesAreReadAtTheLoadOfTheFrame)
{
    TestProgram run;
    WriteBytes(run.At("Velluto-pcg.txt"), Bytes(745 * 30, 'p'));
    Bytes styles(23 * 3, 's');
    styles[23] = 'S';
    WriteBytes(run.At("Velluto-sty.txt"), styles);
    run.Start();
    const FactoryTables &tables = run.program.recall.tables;
    EXPECT_EQ(tables.PcgTable[1], std::string(30, 'p'));
    EXPECT_EQ(tables.PcgTable[745], std::string(30, 'p'));
    EXPECT_EQ(tables.StyTable[1], std::string(23, 's'));
    EXPECT_EQ(tables.StyTable[2], "S" + std::string(22, 's'));
    EXPECT_EQ(tables.StyTable[3], std::string(23, 's'));
    EXPECT_EQ(tables.StyTable[4], std::string(23, ' '));
    EXPECT_EQ(tables.StyTable[271], std::string(23, ' '));
}

TEST(StartUp, AMissingFactoryTableIsAnEmptyFileAndReadsAsBlanks)
{
    TestProgram run;
    run.Start();
    EXPECT_TRUE(std::filesystem::exists(run.At("Velluto-pcg.txt")));
    EXPECT_EQ(std::filesystem::file_size(run.At("Velluto-sty.txt")), 0U);
    EXPECT_EQ(run.program.recall.tables.PcgTable[1], std::string(30, ' '));
    EXPECT_EQ(run.program.recall.tables.StyTable[271], std::string(23, ' '));
    EXPECT_TRUE(run.face.boxes.empty());
}

TEST(StartUp, AFactoryTableThatEndsInsideARecordIsFilledUpWithBlanks)
{
    TestProgram run;
    WriteBytes(run.At("Velluto-pcg.txt"), Bytes(35, 'x'));
    run.Start();
    EXPECT_EQ(run.program.recall.tables.PcgTable[2], "xxxxx" + std::string(25, ' '));
}

TEST(StartUp, AFactoryTableThatCannotBeReadReadsAsBlanks)
{
    TestProgram run;
    WriteBytes(run.At("Velluto-pcg.txt"), Bytes(745 * 30, 'p'));
    run.files.faults.push_back({FileFault::Operation::Open, run.At("Velluto-pcg.txt"), 75, 1});
    EXPECT_TRUE(run.Start());
    EXPECT_EQ(run.program.recall.tables.PcgTable[1], std::string(30, ' '));
    EXPECT_TRUE(run.face.boxes.empty());
}

TEST(StartUp, TwoProgramsLiveSideBySide)
{
    TestProgram first;
    TestProgram second;
    first.Start(TestProgram::Italian);
    second.Start(TestProgram::English);
    EXPECT_EQ(first.program.app.frame.mnuView.caption.Get(), "&Visualizza");
    EXPECT_EQ(second.program.app.frame.mnuView.caption.Get(), "&View");
}
