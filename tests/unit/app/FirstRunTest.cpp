#include "unit/app/IniFile.h"

#include <gtest/gtest.h>

using namespace velluto;
using namespace velluto::test;

namespace {

bool Exists(const std::string &path)
{
    return std::filesystem::exists(path);
}

} // namespace

TEST(FirstRun, AMissingFileIsCreatedAndTheLanguageIsAsked)
{
    TestProgram run;
    EXPECT_TRUE(run.Start(TestProgram::English));
    EXPECT_EQ(run.languageQuestions, 1);
    EXPECT_EQ(run.program.app.settings.Lingua, 2);
    EXPECT_EQ(run.program.app.messages.LinguaBase, 200);
    EXPECT_EQ(run.face.frame, &run.program.app.frame);
    EXPECT_EQ(run.Ini().size(), 40000U);
}

TEST(FirstRun, TheNewFileIsZerosWithTheNameAndTheLanguageAndThenBlanks)
{
    TestProgram run;
    run.Start(TestProgram::English);
    IniFile ini = IniFile::Of(run);
    std::string first(500, '\0');
    first.replace(0, 7, "Velluto");
    first[24] = '\x02';
    EXPECT_EQ(ini.Record(1), first);
    for (std::size_t record = 2; record <= 80; ++record) {
        EXPECT_EQ(ini.Record(record), std::string(500, ' ')) << record;
    }
}

TEST(FirstRun, TheVariablesHoldTheirFirstValues)
{
    TestProgram run;
    run.Start();
    const Settings &settings = run.program.app.settings;
    EXPECT_FALSE(settings.ReservedFlag17);
    EXPECT_EQ(settings.MidiOutDev, 99);
    EXPECT_EQ(settings.MidiInDev, 99);
    EXPECT_FALSE(settings.PlayerPanelOpen);
    EXPECT_TRUE(settings.StatusBarOn);
    EXPECT_FALSE(settings.ThruOn);
    EXPECT_FALSE(settings.PcgUserAssigned);
    EXPECT_EQ(settings.LastChannel, 0);
    EXPECT_EQ(settings.LastDir + settings.PlayerDir + settings.PlayerFile + settings.PlayerName, "");
    EXPECT_EQ(settings.KeyboardRecord, (std::array<std::uint8_t, 16>{0, 1, 0, 2, 100, 64, 64, 64, 0, 0, 64, 0, 0, 0, 0, 0}));
    EXPECT_EQ(settings.ChannelRole, (std::array<std::uint8_t, 16>{2, 14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    for (std::size_t n = 1; n <= 16; ++n) {
        EXPECT_EQ(settings.RecentTable[n].Path.All(), std::string(234, ' '));
        EXPECT_EQ(settings.RecentTable[n].Flag, 0);
        EXPECT_EQ(settings.RecentTable[n].Kind, 0);
    }
}

TEST(FirstRun, ThePlacementsBeginWithRole2AndState0ExceptThree)
{
    const Settings settings;
    for (std::size_t k = 0; k < settings.PlacementTable.size(); ++k) {
        const WindowPlacement &placement = settings.PlacementTable[k];
        const bool factoryStyles = k == 14 || k == 15;
        EXPECT_EQ(placement.Role, factoryStyles ? 14 : 2) << k;
        EXPECT_EQ(placement.State, factoryStyles || k == 0 ? 2 : 0) << k;
        EXPECT_EQ(placement.Top + placement.Left + placement.Width + placement.Height + placement.MinWidth + placement.MinHeight, 0) << k;
    }
}

TEST(FirstRun, TheDocumentTablesBeginWithTheirRoles)
{
    TestProgram run;
    run.Start();
    const Settings &settings = run.program.app.settings;
    for (std::size_t slot = 1; slot <= 12; ++slot) {
        EXPECT_EQ(settings.PcgDocTable[slot].Role, 2) << slot;
        EXPECT_EQ(settings.PcgDocTable[slot].Path.Trimmed(), "") << slot;
    }
    for (std::size_t slot = 1; slot <= 20; ++slot) {
        EXPECT_EQ(settings.StyDocTable[slot].Role, 14) << slot;
        EXPECT_EQ(settings.StyDocTable[slot].Path.Trimmed(), "") << slot;
    }
    for (std::size_t slot = 1; slot <= 28; ++slot) {
        EXPECT_EQ(settings.PrfDocTable[slot].Role, 14) << slot;
    }
}

TEST(FirstRun, PerformanceEntries9To18AreTheFactoryBanks)
{
    TestProgram run;
    run.Start();
    const auto &table = run.program.app.settings.PrfDocTable;
    EXPECT_EQ(table[8].Path.Trimmed(), "");
    EXPECT_EQ(table[9].Path.Trimmed(), run.At("Velluto-Bank01.prf"));
    EXPECT_EQ(table[17].Path.Trimmed(), run.At("Velluto-Bank09.prf"));
    EXPECT_EQ(table[18].Path.Trimmed(), run.At("Velluto-Bank10.prf"));
    EXPECT_EQ(table[19].Path.Trimmed(), "");
}

TEST(FirstRun, AFactoryBankWhosePathDoesNotFitIsNotTied)
{
    Settings settings;
    AssignFactoryBanks(settings, "/" + std::string(230, 'd') + "/Velluto-Bank01.prf");
    EXPECT_EQ(settings.PrfDocTable[9].Path.Trimmed(), "");
}

TEST(FirstRun, TheLanguageDialogClosedWithoutAChoiceLeavesNoFileAndNoFrame)
{
    TestProgram run;
    EXPECT_FALSE(run.Start(TestProgram::Cancel));
    EXPECT_TRUE(run.program.app.StartAborted);
    EXPECT_EQ(run.face.frame, nullptr);
    EXPECT_FALSE(Exists(run.At("Velluto.ini")));
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_TRUE(run.midi.calls.empty());
}

TEST(FirstRun, AStartAfterACancelledFirstRunIsAFirstRunAgain)
{
    TestProgram first;
    first.Start(TestProgram::Cancel);
    TestProgram second(first.folder);
    EXPECT_TRUE(second.Start());
    EXPECT_EQ(second.languageQuestions, 1);
}

TEST(FirstRun, TheLanguageIsAskedOnlyOnce)
{
    TestProgram first;
    first.Start(TestProgram::English);
    first.Exit();
    TestProgram second(first.folder);
    EXPECT_TRUE(second.Start());
    EXPECT_EQ(second.languageQuestions, 0);
    EXPECT_EQ(second.program.app.messages.LinguaBase, 200);
}

TEST(FirstRun, AFileWithOtherMagicIsOverwritten)
{
    TestProgram run;
    IniFile ini = IniFile::Created(2);
    ini.At(1, 7) = 'a';
    ini.PutText(3, 1, "/somewhere");
    ini.WriteTo(run);
    EXPECT_TRUE(run.Start(TestProgram::Italian));
    EXPECT_EQ(run.languageQuestions, 1);
    EXPECT_EQ(run.program.app.settings.LastDir, "");
    EXPECT_EQ(IniFile::Of(run).Record(3), std::string(500, ' '));
}

TEST(FirstRun, AFileWithOtherMagicIsTakenAwayWhereTheQuestionIsNotAnswered)
{
    TestProgram run;
    IniFile ini = IniFile::Created(2);
    ini.At(1, 7) = 'a';
    ini.WriteTo(run);
    EXPECT_FALSE(run.Start(TestProgram::Cancel));
    EXPECT_FALSE(Exists(run.At("Velluto.ini")));
}

TEST(FirstRun, AFileShorterThanARecordIsTreatedAsMissingWhateverItBeginsWith)
{
    TestProgram run;
    IniFile ini = IniFile::Created(2);
    ini.bytes.resize(499);
    ini.WriteTo(run);
    run.Start(TestProgram::Italian);
    EXPECT_EQ(run.languageQuestions, 1);
    EXPECT_EQ(run.Ini().size(), 40000U);
}

TEST(FirstRun, AnEmptyFileIsTreatedAsMissing)
{
    TestProgram run;
    WriteBytes(run.At("Velluto.ini"), {});
    EXPECT_TRUE(run.Start());
    EXPECT_EQ(run.languageQuestions, 1);
}

TEST(FirstRun, TheDialogBeginsWithItalianChosen)
{
    TestProgram run;
    run.face.onModal = [&](Form &form) {
        EXPECT_EQ(form.name(), "frmLingua");
        EXPECT_EQ(form.caption.Get(), "Velluto v 1.1");
        EXPECT_EQ(ControlNamed(form, "Label1")->caption.Get(), "Scegliere una lingua / Choose a language");
        EXPECT_EQ(ControlNamed(form, "Option1", 0)->caption.Get(), "Italiano");
        EXPECT_EQ(ControlNamed(form, "Option1", 1)->caption.Get(), "English");
        EXPECT_EQ(ControlNamed(form, "CommOK")->caption.Get(), "&OK");
        EXPECT_TRUE(dynamic_cast<OptionButton &>(*ControlNamed(form, "Option1", 0)).value);
        EXPECT_EQ(run.program.app.settings.Lingua, 1);
        Press(*ControlNamed(form, "Option1", 1));
        EXPECT_EQ(run.program.app.settings.Lingua, 2);
        Press(*ControlNamed(form, "Option1", 0));
        EXPECT_EQ(run.program.app.settings.Lingua, 1);
        EXPECT_TRUE(form.IsLoaded());
        Press(*ControlNamed(form, "CommOK"));
        EXPECT_FALSE(form.IsLoaded());
    };
    EXPECT_TRUE(StartUp(run.program));
    EXPECT_FALSE(run.program.app.StartAborted);
}

TEST(FirstRun, AFolderThatCannotBeWrittenGivesARunningItalianProgramWithTheFirstValues)
{
    TestProgram run;
    run.files.faults.push_back({FileFault::Operation::Open, run.At("Velluto.ini"), 75, 1});
    EXPECT_TRUE(run.Start());
    EXPECT_EQ(run.languageQuestions, 0);
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_EQ(run.program.app.settings.MidiOutDev, 99);
    EXPECT_EQ(run.program.app.messages.LinguaBase, 0);
    EXPECT_EQ(run.program.app.frame.mnuFile.caption.Get(), "&File");
    EXPECT_EQ(run.program.app.frame.mnuExit.caption.Get(), "&Esci");
    EXPECT_EQ(run.program.app.settings.PrfDocTable[9].Path.Trimmed(), run.At("Velluto-Bank01.prf"));
}

TEST(FirstRun, AWriteThatFailsEndsTheReaderInSilenceBeforeTheQuestion)
{
    TestProgram run;
    run.files.faults.push_back({FileFault::Operation::Write, run.At("Velluto.ini"), 61, 1});
    EXPECT_TRUE(run.Start());
    EXPECT_EQ(run.languageQuestions, 0);
    EXPECT_TRUE(run.face.boxes.empty());
}

TEST(FirstRun, ADiskThatIsNotReadyIsTriedAgainWithoutAMessage)
{
    TestProgram run;
    const std::string ini = run.At("Velluto.ini");
    run.files.faults.push_back({FileFault::Operation::Open, ini, 71, 5});
    run.files.faults.push_back({FileFault::Operation::Write, ini, 71, 100});
    run.files.faults.push_back({FileFault::Operation::Read, ini, 71, 7});
    EXPECT_TRUE(run.Start(TestProgram::English));
    EXPECT_EQ(run.languageQuestions, 1);
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_EQ(run.Ini().size(), 40000U);
    EXPECT_EQ(IniFile::Of(run).At(1, 25), 2);
}

TEST(FirstRun, ACancelledFirstRunDeletesTheFileEvenOnADiskThatComesLate)
{
    TestProgram run;
    run.files.faults.push_back({FileFault::Operation::Delete, run.At("Velluto.ini"), 71, 3});
    EXPECT_FALSE(run.Start(TestProgram::Cancel));
    EXPECT_FALSE(Exists(run.At("Velluto.ini")));
}
