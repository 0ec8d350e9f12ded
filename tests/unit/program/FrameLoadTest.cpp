#include "unit/app/IniFile.h"
#include "unit/support/NativePath.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace velluto;
using namespace velluto::test;

namespace {

struct FrameLoadTest : testing::Test {
    TestProgram run;
    frmMain &menu = run.program.app.frame;
    IniFile ini = IniFile::Created(2);

    void StartOverFile()
    {
        ini.WriteTo(run);
        ASSERT_TRUE(run.Start());
    }
};

using Captions = std::vector<std::pair<const MenuEntry *, const char *>>;

void ExpectCaptions(const Captions &captions)
{
    for (const auto &[entry, text] : captions) {
        EXPECT_EQ(entry->caption.Get(), text) << entry->FullName();
    }
}

} // namespace

TEST_F(FrameLoadTest, FirstRunState)
{
    run.Start();
    EXPECT_FALSE(menu.mnuChiudi.enabled);
    EXPECT_FALSE(menu.mnuStampa.enabled);
    EXPECT_FALSE(menu.mnuModifica.enabled);
    EXPECT_FALSE(menu.mnuWindow.enabled);
    EXPECT_FALSE(menu.mnuMIDIThru.enabled);
    EXPECT_EQ(menu.windowState, WindowState::Maximised);
    EXPECT_EQ(run.program.app.children.ChildCount, 0);
}

TEST_F(FrameLoadTest, TheFramesCaptionIsTheProgramsTitleAndName)
{
    run.Start(TestProgram::English);
    EXPECT_EQ(menu.caption.Get(), "Velluto v 1.1 - Velluto");
}

struct InTwoLanguages {
    MenuEntry frmMain::*entry;
    const char *italian;
    const char *english;
};
constexpr InTwoLanguages kCaptions[] = {
    {&frmMain::mnuFile, "&File", "&File"},
    {&frmMain::mnuPcgNuovo64, "Nuovo pcg (64)", "New pcg (64)"},
    {&frmMain::mnuPcgNuovo128, "Nuovo pcg (128)", "New pcg (128)"},
    {&frmMain::mnuStyNuovo, "Nuovo sty", "New sty"},
    {&frmMain::mnuPrfNuovo, "Nuovo prf", "New prf"},
    {&frmMain::mnuPcgApri, "Apri &pcg", "Open &pcg"},
    {&frmMain::mnuStyApri, "Apri &sty", "Open &sty"},
    {&frmMain::mnuPrfApri, "Apri p&rf", "Open p&rf"},
    {&frmMain::mnuChiudi, "&Chiudi", "&Close"},
    {&frmMain::mnuExit, "&Esci", "E&xit"},
    {&frmMain::mnuModifica, "&Modifica", "&Edit"},
    {&frmMain::mnuIngrandisci, "Ingrandisci", "Maximize"},
    {&frmMain::mnuTaglia, "Taglia", "Cut"},
    {&frmMain::mnuCopia, "Copia", "Copy"},
    {&frmMain::mnuIncolla, "Incolla", "Paste"},
    {&frmMain::mnuView, "&Visualizza", "&View"},
    {&frmMain::mnuBanks, "BANCHI PROGRAM", "BANKS PROGRAM"},
    {&frmMain::mnuBanksSty, "BANCHI STYLE", "BANKS STYLE"},
    {&frmMain::mnuBanksPrf, "BANCHI PERFORMANCE", "BANKS PERFORMANCE"},
    {&frmMain::mnuMsgEx, "&Messaggi MIDI", "&MIDI Messages"},
    {&frmMain::mnuTastiera, "&Tastiera", "&Keyboard"},
    {&frmMain::mnuPreferenze, "&Preferenze", "&Preferences"},
    {&frmMain::mnuLingua, "&Lingua", "&Language"},
    {&frmMain::mnuItaliano, "Italiano", "Italian"},
    {&frmMain::mnuInglese, "Inglese", "English"},
    {&frmMain::mnuMIDIOut, "Dispositivo MIDI di uscita", "MIDI out device"},
    {&frmMain::mnuMIDIIn, "Dispositivo MIDI di ingresso", "MIDI in device"},
    {&frmMain::mnuVisBarraStato, "Visualizza Barra di Stato", "Show Status Bar"},
    {&frmMain::mnuBloccoNote, "Blocco Note", "Notebook"},
    {&frmMain::mnuWindow, "Fi&nestra", "&Window"},
    {&frmMain::mnuSovrapponi, "&Sovrapponi", "&Cascade"},
    {&frmMain::mnuAffiancaOrizz, "Affianca Orizzontalmente", "Tile Horizontal"},
    {&frmMain::mnuAffiancaVert, "Affianca Verticalmente", "Tile Vertical"},
    {&frmMain::mnuGuida, "Guida Utente", "User's Guide"},
    {&frmMain::mnuInfo, "Informazioni su Velluto", "About Velluto"},
};

TEST_F(FrameLoadTest, CaptionsAreOfTheLanguage)
{
    TestProgram other;
    run.Start(TestProgram::Italian);
    other.Start(TestProgram::English);
    for (const InTwoLanguages &row : kCaptions) {
        ExpectCaptions({{&(menu.*row.entry), row.italian}, {&(other.program.app.frame.*row.entry), row.english}});
    }
}

TEST_F(FrameLoadTest, FixedCaptionsStayInTheirOneLanguage)
{
    run.Start(TestProgram::English);
    ExpectCaptions({{&menu.mnuSalva, "Salva"},
                    {&menu.mnuSalvaAs, "Salva come"},
                    {&menu.mnuStampa, "Stampa"},
                    {&menu.mnuMIDIStp[0], "OFF"},
                    {&menu.mnuMIDIStp[2], "UP.1"},
                    {&menu.mnuMIDIStp[14], "CONTRL"},
                    {&menu.mnuBankA, "&A: Piano, E.Piano, Mallet/Bell, Accordion"},
                    {&menu.mnuBankF, "&F: Drum/Perc, SFX"},
                    {&menu.mnuPcgUser[9], "&G User 1:"},
                    {&menu.mnuPcgUser[10], "&H User 2:"},
                    {&menu.mnuSty[1], "&0 Style 1-8"},
                    {&menu.mnuSty[2], "&1 Style 9-16"},
                    {&menu.mnuStyUser[9], "&2 User 1:"},
                    {&menu.mnuStyUser[11], "&4 User 3:"},
                    {&menu.mnuStyUserAll, "&5 User All"},
                    {&menu.mnuStyDirectHD19, "&6 Direct HD 1-9"},
                    {&menu.mnuStyDirectHD[9], "9"},
                    {&menu.mnuStyDirectHD789, "&9 Direct HD 789"},
                    {&menu.mnuPrfUser120, "User 1-20"},
                    {&menu.mnuPrfUser[20], "20"},
                    {&menu.mnuPrfUserAll, "User All"},
                    {&menu.mnuMidiPlayer, "M&IDI PLAYER"},
                    {&menu.mnuDevMIDIIn[3], "(empty)"},
                    {&menu.mnuMIDIThru, "MIDI Thru"},
                    {&menu.mnuMIDISetup, "MIDI setup"},
                    {&menu.mnuHelp, "&?"}});
}

TEST_F(FrameLoadTest, CtrlAndALetterChooseTheSevenCommandsOfEveryDay)
{
    EXPECT_EQ(menu.mnuPcgNuovo64.shortcut.ctrlKey, 'N');
    EXPECT_EQ(menu.mnuPcgApri.shortcut.ctrlKey, 'A');
    EXPECT_EQ(menu.mnuSalva.shortcut.ctrlKey, 'S');
    EXPECT_EQ(menu.mnuStampa.shortcut.ctrlKey, 'P');
    EXPECT_EQ(menu.mnuTaglia.shortcut.ctrlKey, 'Z');
    EXPECT_EQ(menu.mnuCopia.shortcut.ctrlKey, 'C');
    EXPECT_EQ(menu.mnuIncolla.shortcut.ctrlKey, 'V');
}

TEST_F(FrameLoadTest, AUserBankTiedToAFileIsEnabledAndNamesIt)
{
    ini.PutPath(13, Native("/music/second bank.pcg"));
    StartOverFile();
    EXPECT_FALSE(menu.mnuPcgUser[9].enabled);
    EXPECT_EQ(menu.mnuPcgUser[9].caption.Get(), "&G User 1:");
    EXPECT_TRUE(menu.mnuPcgUser[10].enabled);
    EXPECT_EQ(menu.mnuPcgUser[10].caption.Get(), "&H User 2: second bank.pcg");
}

TEST_F(FrameLoadTest, StyleAndPerformanceBanksNameTheirFilesToo)
{
    ini.PutPath(24, Native("/music/three.sty"));        // slot 11
    ini.PutPath(25, Native("/music/one.sty"));          // slot 12, Direct HD 1
    ini.PutPath(33, "C:\\music\\nine.sty");             // slot 20, Direct HD 9
    ini.PutPath(34 + 8, Native("/music/user one.prf")); // slot 9
    ini.PutPath(61, Native("/music/user twenty.prf"));  // slot 28
    StartOverFile();
    ExpectCaptions({{&menu.mnuStyUser[11], "&4 User 3: three.sty"},
                    {&menu.mnuStyDirectHD[1], "1 one.sty"},
                    {&menu.mnuStyDirectHD[2], "2"},
                    {&menu.mnuStyDirectHD[9], "9 nine.sty"},
                    {&menu.mnuPrfUser[1], " 1 user one.prf"},
                    {&menu.mnuPrfUser[2], " 2"},
                    {&menu.mnuPrfUser[20], "20 user twenty.prf"}});
}

TEST_F(FrameLoadTest, WithoutATiedBankNoOverviewAndNoSubmenuIsOffered)
{
    StartOverFile();
    const std::vector<const MenuEntry *> entries{&menu.mnuStyUserAll,     &menu.mnuStyDirectHD19,  &menu.mnuStyDirectHD123,
                                                 &menu.mnuStyDirectHD456, &menu.mnuStyDirectHD789, &menu.mnuPrfUserAll,
                                                 &menu.mnuPrfUser120,     &menu.mnuPcgUser[9],     &menu.mnuStyUser[9],
                                                 &menu.mnuStyDirectHD[1], &menu.mnuPrfUser[1]};
    for (const MenuEntry *entry : entries) {
        EXPECT_FALSE(entry->enabled) << entry->FullName();
    }
}

TEST_F(FrameLoadTest, CommandsAreOfferedUnlessTheirBankHoldsNothing)
{
    ini.PutPath(22, Native("/music/one.sty"));
    ini.PutPath(25, Native("/music/hd.sty"));
    ini.PutPath(42, Native("/music/one.prf"));
    StartOverFile();
    std::vector<const MenuEntry *> entries{&menu.mnuTaglia, &menu.mnuCopia, &menu.mnuIncolla};
    for (const MenuEntry *entry : entries) {
        EXPECT_FALSE(entry->enabled) << entry->FullName();
    }
    const std::vector<const MenuEntry *> offered{
        &menu.mnuBankA,       &menu.mnuBankF,      &menu.mnuSty[1],        &menu.mnuSty[2],         &menu.mnuPcgNuovo64,
        &menu.mnuPcgNuovo128, &menu.mnuPcgApri,    &menu.mnuMsgEx,         &menu.mnuMIDISetup,      &menu.mnuTastiera,
        &menu.mnuItaliano,    &menu.mnuExit,       &menu.mnuVisBarraStato, &menu.mnuMIDIOut,        &menu.mnuMIDIIn,
        &menu.mnuPreferenze,  &menu.mnuStyNuovo,   &menu.mnuPrfNuovo,      &menu.mnuStyApri,        &menu.mnuPrfApri,
        &menu.mnuStyUser[9],  &menu.mnuStyUserAll, &menu.mnuStyDirectHD19, &menu.mnuStyDirectHD[1], &menu.mnuStyDirectHD123,
        &menu.mnuPrfUser120,  &menu.mnuPrfUser[1], &menu.mnuPrfUserAll,    &menu.mnuBloccoNote,     &menu.mnuGuida,
        &menu.mnuInfo,        &menu.mnuMidiPlayer};
    for (const MenuEntry *entry : offered) {
        EXPECT_TRUE(entry->enabled) << entry->FullName();
    }
    const std::vector<const MenuEntry *> tiedToNothing{&menu.mnuStyUser[10], &menu.mnuStyDirectHD[2], &menu.mnuStyDirectHD456,
                                                       &menu.mnuStyDirectHD789, &menu.mnuPrfUser[2]};
    for (const MenuEntry *entry : tiedToNothing) {
        EXPECT_FALSE(entry->enabled) << entry->FullName();
    }
}

TEST_F(FrameLoadTest, DeviceEntriesShowTheNamesOfTheirDevices)
{
    run.midi.outs.push_back({"Second out", {}, false, false, {}});
    StartOverFile();
    EXPECT_EQ(menu.mnuDevMIDIOut[0].caption.Get(), "Synth out");
    EXPECT_EQ(menu.mnuDevMIDIOut[1].caption.Get(), "Second out");
    EXPECT_TRUE(menu.mnuDevMIDIOut[1].visible);
    EXPECT_FALSE(menu.mnuDevMIDIOut[2].visible);
    EXPECT_EQ(menu.mnuDevMIDIIn[0].caption.Get(), "Keys in");
    EXPECT_FALSE(menu.mnuDevMIDIIn[1].visible);
}

TEST_F(FrameLoadTest, CheckMarksFollowTheSettings)
{
    ini.At(1, 27) = 1;
    StartOverFile();
    EXPECT_FALSE(menu.mnuItaliano.checked);
    EXPECT_TRUE(menu.mnuInglese.checked);
    EXPECT_TRUE(menu.mnuVisBarraStato.checked);
    EXPECT_TRUE(menu.Picture1.visible);
}

TEST_F(FrameLoadTest, MonitorEnabledIsOffAfterTheLoadWhateverItWas)
{
    run.program.midi.MonitorEnabled = true;
    StartOverFile();
    EXPECT_FALSE(run.program.midi.MonitorEnabled);
}

TEST_F(FrameLoadTest, AStatusBarSwitchedOffStaysHidden)
{
    ini.At(1, 27) = 0;
    StartOverFile();
    EXPECT_FALSE(menu.mnuVisBarraStato.checked);
    EXPECT_FALSE(menu.Picture1.visible);
}

TEST_F(FrameLoadTest, ANormalFrameTakesItsPlaceFromEntry0)
{
    ini.PutWord(1, 51, 16000 + 300);
    ini.PutWord(1, 53, 16000 - 40);
    ini.PutWord(1, 55, 9000);
    ini.PutWord(1, 57, 8000);
    ini.At(1, 59) = 0;
    StartOverFile();
    EXPECT_EQ(menu.windowState, WindowState::Normal);
    EXPECT_EQ(menu.place.Get(), (Place{-40, 300, 9000, 8000}));
}

TEST_F(FrameLoadTest, AMinimisedOrMaximisedFrameComesBackSoWithoutThatPlace)
{
    for (const auto &[stored, state] : std::vector<std::pair<int, WindowState>>{{1, WindowState::Minimised}, {2, WindowState::Maximised}}) {
        TestProgram other;
        IniFile file = IniFile::Created(1);
        file.PutWord(1, 55, 9000);
        file.At(1, 59) = static_cast<std::uint8_t>(stored);
        file.WriteTo(other);
        other.Start();
        EXPECT_EQ(other.program.app.frame.windowState, state);
        EXPECT_NE(other.program.app.frame.Width(), 9000);
    }
}

TEST_F(FrameLoadTest, AnyOtherStateLeavesTheFrameAsItIs)
{
    ini.PutWord(1, 55, 9000);
    ini.At(1, 59) = 3;
    StartOverFile();
    EXPECT_EQ(menu.windowState, WindowState::Normal);
    EXPECT_NE(menu.Width(), 9000);
}

TEST_F(FrameLoadTest, TheTitleLineIsItalianInEveryLanguage)
{
    run.Start(TestProgram::English);
    EXPECT_EQ(run.program.app.TitleLine, "Velluto v 1.1 - KORG PA80 real time control/file manager, versione 1.1, maggio 2005");
    EXPECT_EQ(menu.LabelNomeAppl.caption.Get(), " " + run.program.app.TitleLine + " ");
}

TEST_F(FrameLoadTest, LoadingTwiceLoadsOnce)
{
    run.Start();
    menu.mnuFile.caption = std::string("touched");
    run.program.app.frame.Load();
    EXPECT_EQ(menu.mnuFile.caption.Get(), "touched");
}
