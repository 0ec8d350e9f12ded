#include "app/RecentFiles.h"

#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

using namespace velluto;
using namespace velluto::test;

namespace {

// A child that keeps the contract with the frame and is whatever its state says.
struct PlainChild : Form {
    PlainChild(Modulo1 &core, int kind, int slot) : Form("PlainChild"), app(core)
    {
        Tag.prefix = TagPrefix();
        Tag.Set(TagPosition::Kind, kind);
        Tag.Set(TagPosition::Slot, slot);
    }
    void Form_Load() override { ++app.children.ChildCount; }
    bool Form_QueryUnload() override { return !refuses; }
    void Form_Unload() override
    {
        closingAll = app.children.ClosingAll;
        --app.children.ChildCount;
        RefreshAfterClose(app);
    }
    void Form_Activate() override { RefreshWindowMenu(app); }
    Modulo1 &app;
    bool refuses = false;
    bool closingAll = false;
};

struct MenuStateTest : testing::Test {
    TestProgram run;
    Modulo1 &app = run.program.app;
    frmMain &menu = run.program.app.frame;
    std::vector<std::unique_ptr<PlainChild>> windows;

    void SetUp() override { ASSERT_TRUE(run.Start(TestProgram::English)); }
    PlainChild &Open(int kind, int slot)
    {
        windows.push_back(std::make_unique<PlainChild>(app, kind, slot));
        app.children.Show(*windows.back());
        return *windows.back();
    }
};

} // namespace

TEST_F(MenuStateTest, WithoutAChildTheFileMenuOffersNoCloseNoSaveNoPrint)
{
    menu.mnuSalva.enabled = true;
    menu.mnuSalvaAs.enabled = true;
    menu.mnuChiudi.enabled = true;
    menu.mnuStampa.enabled = true;
    run.program.files.OpenChainCode = 5;
    DropMenu(menu.mnuFile);
    EXPECT_FALSE(menu.mnuChiudi.enabled);
    EXPECT_FALSE(menu.mnuSalva.enabled);
    EXPECT_FALSE(menu.mnuSalvaAs.enabled);
    EXPECT_FALSE(menu.mnuStampa.enabled);
    EXPECT_EQ(run.program.files.OpenChainCode, 0);
}

TEST_F(MenuStateTest, ActiveChildIsAFactoryBankView)
{
    Open(ViewKind::BankA, 0);
    DropMenu(menu.mnuFile);
    EXPECT_TRUE(menu.mnuChiudi.enabled);
    EXPECT_FALSE(menu.mnuSalva.enabled);
    EXPECT_FALSE(menu.mnuSalvaAs.enabled);
    EXPECT_FALSE(menu.mnuStampa.enabled);
}

TEST_F(MenuStateTest, ActiveDocumentInSlot9IsPrintedButNotSaved)
{
    Open(ViewKind::ProgramFile, 9);
    DropMenu(menu.mnuFile);
    EXPECT_TRUE(menu.mnuStampa.enabled);
    EXPECT_FALSE(menu.mnuSalva.enabled);
    EXPECT_FALSE(menu.mnuSalvaAs.enabled);
}

TEST_F(MenuStateTest, TheKindsThatCanBeSavedAre14And18To23)
{
    for (int kind = 0; kind <= 40; ++kind) {
        PlainChild &window = Open(kind, 3);
        DropMenu(menu.mnuFile);
        const bool document = kind == 14 || (kind >= 18 && kind <= 23);
        EXPECT_TRUE(menu.mnuChiudi.enabled) << kind;
        EXPECT_EQ(menu.mnuSalva.enabled, document) << kind;
        EXPECT_EQ(menu.mnuSalvaAs.enabled, document) << kind;
        EXPECT_EQ(menu.mnuStampa.enabled, document) << kind;
        run.Close(window);
    }
}

TEST_F(MenuStateTest, AnActivatedChildEnablesEditWindowAndCloseAndDisablesPrint)
{
    menu.mnuStampa.enabled = true;
    Open(ViewKind::ProgramFile, 1);
    EXPECT_TRUE(menu.mnuModifica.enabled);
    EXPECT_TRUE(menu.mnuWindow.enabled);
    EXPECT_TRUE(menu.mnuChiudi.enabled);
    EXPECT_FALSE(menu.mnuStampa.enabled);
}

TEST_F(MenuStateTest, AllChildrenClosed)
{
    PlainChild &first = Open(ViewKind::ProgramFile, 1);
    PlainChild &second = Open(ViewKind::ProgramFile, 2);
    run.Close(first);
    EXPECT_TRUE(menu.mnuModifica.enabled);
    EXPECT_TRUE(menu.mnuWindow.enabled);
    run.Close(second);
    EXPECT_FALSE(menu.mnuModifica.enabled);
    EXPECT_FALSE(menu.mnuWindow.enabled);
    // Close goes off when the File menu drops the next time.
    EXPECT_TRUE(menu.mnuChiudi.enabled);
    DropMenu(menu.mnuFile);
    EXPECT_FALSE(menu.mnuChiudi.enabled);
}

TEST_F(MenuStateTest, RefreshAfterCloseGoesByTheChildrenThatAreLeft)
{
    app.children.ChildCount = 1;
    menu.mnuModifica.enabled = false;
    menu.mnuWindow.enabled = true;
    RefreshAfterClose(app);
    EXPECT_TRUE(menu.mnuModifica.enabled);
    EXPECT_TRUE(menu.mnuWindow.enabled);
    app.children.ChildCount = 0;
    RefreshAfterClose(app);
    EXPECT_FALSE(menu.mnuModifica.enabled);
    EXPECT_FALSE(menu.mnuWindow.enabled);
}

TEST_F(MenuStateTest, RefreshWindowMenuDoesNotSwitchTheEditMenuOff)
{
    menu.mnuModifica.enabled = true;
    menu.mnuWindow.enabled = true;
    menu.mnuChiudi.enabled = true;
    RefreshWindowMenu(app);
    EXPECT_TRUE(menu.mnuModifica.enabled);
    EXPECT_FALSE(menu.mnuWindow.enabled);
    EXPECT_FALSE(menu.mnuChiudi.enabled);
}

TEST_F(MenuStateTest, RefreshWindowMenuDoesNothingWhileAllIsClosing)
{
    app.children.ClosingAll = true;
    menu.mnuStampa.enabled = true;
    menu.mnuWindow.enabled = true;
    RefreshWindowMenu(app);
    EXPECT_TRUE(menu.mnuStampa.enabled);
    EXPECT_TRUE(menu.mnuWindow.enabled);
}

TEST_F(MenuStateTest, CloseUnloadsTheActiveChild)
{
    PlainChild &first = Open(ViewKind::ProgramFile, 1);
    PlainChild &second = Open(ViewKind::ProgramFile, 2);
    EXPECT_TRUE(run.Choose(menu.mnuChiudi));
    EXPECT_FALSE(app.children.IsOpen(second));
    EXPECT_EQ(app.children.Active(), &first);
}

TEST_F(MenuStateTest, ArrangeCommandsAskForTheirOrder)
{
    PlainChild &first = Open(ViewKind::ProgramFile, 1);
    PlainChild &second = Open(ViewKind::ProgramFile, 2);
    run.Choose(menu.mnuAffiancaOrizz);
    EXPECT_EQ(first.Left(), second.Left());
    run.Choose(menu.mnuAffiancaVert);
    EXPECT_EQ(first.Top(), second.Top());
    run.Choose(menu.mnuSovrapponi);
    EXPECT_NE(first.Left(), second.Left());
    EXPECT_NE(first.Top(), second.Top());
    EXPECT_TRUE(menu.mnuWindow.listsWindows);
}

TEST_F(MenuStateTest, DroppingTheEditMenuOffersNoCommandThatIsNotOffered)
{
    Open(ViewKind::ProgramFile, 1);
    menu.mnuCopia.enabled = true;
    DropMenu(menu.mnuModifica);
    EXPECT_FALSE(menu.mnuTaglia.enabled);
    EXPECT_FALSE(menu.mnuCopia.enabled);
    EXPECT_FALSE(menu.mnuIncolla.enabled);
}

TEST_F(MenuStateTest, TheLanguageEntryThatIsCheckedDoesNothing)
{
    run.Choose(menu.mnuInglese);
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_TRUE(menu.mnuInglese.checked);
}

TEST_F(MenuStateTest, ALanguageChangeAndBackShowsTwoBoxesAndChangesNothingElse)
{
    run.Choose(menu.mnuItaliano);
    EXPECT_EQ(app.settings.Lingua, 1);
    EXPECT_TRUE(menu.mnuItaliano.checked);
    EXPECT_FALSE(menu.mnuInglese.checked);
    run.Choose(menu.mnuInglese);
    EXPECT_EQ(app.settings.Lingua, 2);
    EXPECT_TRUE(menu.mnuInglese.checked);
    EXPECT_FALSE(menu.mnuItaliano.checked);
    EXPECT_EQ(app.messages.LinguaBase, 200);
    EXPECT_EQ(menu.mnuView.caption.Get(), "&View");
    ASSERT_EQ(run.face.boxes.size(), 2U);
    for (const ShownBox &box : run.face.boxes) {
        EXPECT_EQ(box.title, "Change language");
        EXPECT_EQ(box.text, "The change will take place next time you will run the programme");
    }
}

TEST(MenuStateInItalianTest, AChangeToEnglishAndBackShowsTwoBoxesAndLinguaEndsAt1)
{
    TestProgram run;
    ASSERT_TRUE(run.Start(TestProgram::Italian));
    frmMain &menu = run.program.app.frame;
    EXPECT_TRUE(run.Choose(menu.mnuInglese));
    EXPECT_EQ(run.program.app.settings.Lingua, 2);
    EXPECT_TRUE(run.Choose(menu.mnuItaliano));
    EXPECT_EQ(run.program.app.settings.Lingua, 1);
    EXPECT_TRUE(menu.mnuItaliano.checked);
    EXPECT_FALSE(menu.mnuInglese.checked);
    EXPECT_EQ(run.program.app.messages.LinguaBase, 0);
    EXPECT_EQ(menu.mnuView.caption.Get(), "&Visualizza");
    ASSERT_EQ(run.face.boxes.size(), 2U);
    for (const ShownBox &box : run.face.boxes) {
        EXPECT_EQ(box.title, "Cambio lingua");
        EXPECT_EQ(box.text, "Il cambio avr\xC3\xA0 effetto alla prossima esecuzione del programma");
    }
    run.Exit();
    EXPECT_EQ(run.Ini().at(25 - 1), 1);
}

TEST_F(MenuStateTest, TheNewLanguageTakesEffectInTheNextRun)
{
    run.Choose(menu.mnuItaliano);
    run.Exit();
    TestProgram next(run.folder);
    next.Start();
    EXPECT_EQ(next.program.app.frame.mnuView.caption.Get(), "&Visualizza");
    EXPECT_TRUE(next.program.app.frame.mnuItaliano.checked);
}

TEST_F(MenuStateTest, ExitClosesDevicesWritesTheSettingsAndTheFrameGoes)
{
    run.Choose(menu.mnuDevMIDIOut[0]);
    run.Choose(menu.mnuDevMIDIIn[0]);
    run.Choose(menu.mnuMIDIThru);
    run.midi.calls.clear();
    run.midi.thru.clear();
    EXPECT_TRUE(run.Choose(menu.mnuExit));
    EXPECT_EQ(run.face.frame, nullptr);
    EXPECT_EQ(run.midi.calls, (std::vector<std::string>{"midiOutClose 0", "midiInClose 0"}));
    // Thru is let go after both closes.
    ASSERT_EQ(run.midi.thru.size(), 1U);
    EXPECT_EQ(run.midi.thru[0].kind, ThruEvent::Kind::Disconnect);
    EXPECT_EQ(app.CurrentOperation, "Closing MIDI out device");
    EXPECT_EQ(run.Ini().at(20 - 1), 0); // the output device chosen
    EXPECT_TRUE(run.face.boxes.empty());
}

TEST_F(MenuStateTest, ExitWithThruOffHasNothingToLetGo)
{
    run.Choose(menu.mnuDevMIDIOut[0]);
    run.Choose(menu.mnuDevMIDIIn[0]);
    run.midi.thru.clear();
    run.Exit();
    EXPECT_TRUE(run.midi.thru.empty());
}

TEST_F(MenuStateTest, ExitWithoutDevicesClosesNone)
{
    run.midi.calls.clear();
    run.Exit();
    EXPECT_TRUE(run.midi.calls.empty());
    EXPECT_TRUE(run.midi.thru.empty());
}

TEST_F(MenuStateTest, ChildrenUnloadWithClosingAllSet)
{
    PlainChild &window = Open(ViewKind::ProgramFile, 1);
    EXPECT_TRUE(run.Exit());
    EXPECT_TRUE(window.closingAll);
}

TEST_F(MenuStateTest, AChildThatRefusesKeepsTheProgramRunningAndClosingAllSet)
{
    PlainChild &window = Open(ViewKind::ProgramFile, 1);
    window.refuses = true;
    const Bytes before = run.Ini();
    EXPECT_FALSE(run.Exit());
    EXPECT_EQ(run.face.frame, &menu);
    EXPECT_TRUE(app.children.ClosingAll);
    EXPECT_EQ(run.Ini(), before);
    // From here on the window menu is left as it stands.
    menu.mnuWindow.enabled = false;
    RefreshWindowMenu(app);
    EXPECT_FALSE(menu.mnuWindow.enabled);
    window.refuses = false;
    EXPECT_TRUE(run.Exit());
}

TEST_F(MenuStateTest, ClosingAFrameThatIsGoneIsNoSecondEnd)
{
    run.Exit();
    WriteBytes(run.At("Velluto.ini"), {});
    EXPECT_TRUE(run.Exit());
    EXPECT_TRUE(run.Ini().empty());
}
