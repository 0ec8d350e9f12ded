// The menu bar, its shortcuts and the pop-up.
#include "desktop/Desk.h"

namespace velluto::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MenuTest : public Desk {
protected:
    void SetUp() override { Start(); }
    QMenu &MenuOf(const MenuEntry &entry) { return *ActionOf(entry)->menu(); }
    // Drops the menu as the menu bar does, and folds it up again.
    void Drop(const MenuEntry &entry)
    {
        MenuOf(entry).popup(Frame().mapToGlobal(QPoint(10, 10)));
        Settle();
    }
    void FoldUp(const MenuEntry &entry)
    {
        MenuOf(entry).hide();
        Settle();
    }
    static QStringList Captions(const QMenu &menu)
    {
        QStringList captions;
        for (const QAction *action : menu.actions()) {
            if (action->isVisible()) {
                captions.append(action->isSeparator() ? QStringLiteral("-") : action->text());
            }
        }
        return captions;
    }
};

TEST_F(MenuTest, TheFileMenuReadsAsTheTreeTells)
{
    EXPECT_EQ(Captions(MenuOf(app.frame.mnuFile)),
              (QStringList{QStringLiteral("New pcg (64)\tCtrl+N"), QStringLiteral("New pcg (128)"), QStringLiteral("New sty"),
                           QStringLiteral("New prf"), QStringLiteral("-"), QStringLiteral("Open &pcg\tCtrl+A"), QStringLiteral("Open &sty"),
                           QStringLiteral("Open p&rf"), QStringLiteral("-"), QStringLiteral("&Close"), QStringLiteral("-"),
                           QStringLiteral("Salva\tCtrl+S"), QStringLiteral("Salva come"), QStringLiteral("-"),
                           QStringLiteral("Stampa\tCtrl+P"), QStringLiteral("-"), QStringLiteral("E&xit")}));
}

TEST_F(MenuTest, DroppingAMenuComputesItsStateBeforeItShows)
{
    app.frame.mnuSalva.enabled = false;
    app.frame.mnuFile.Drop = [this] { app.frame.mnuSalva.enabled = true; };
    Drop(app.frame.mnuFile);
    EXPECT_TRUE(ActionOf(app.frame.mnuSalva)->isEnabled());
    FoldUp(app.frame.mnuFile);
}

TEST_F(MenuTest, AShortcutDropsItsMenuFirstWhateverTheEntryLastLookedLike)
{
    std::vector<std::string> heard;
    app.frame.mnuFile.Drop = [this, &heard] {
        heard.emplace_back("drop");
        app.frame.mnuSalva.enabled = true;
    };
    app.frame.mnuSalva.Click = [&heard] { heard.emplace_back("salva"); };
    app.frame.mnuSalva.enabled = false;
    QTest::keyClick(&Frame(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(heard, ElementsAre("drop", "salva"));
}

TEST_F(MenuTest, AShortcutOfAnEntryThatTheDropDisablesDoesNothing)
{
    std::vector<std::string> heard;
    app.frame.mnuFile.Drop = [this] { app.frame.mnuSalva.enabled = false; };
    app.frame.mnuSalva.Click = [&heard] { heard.emplace_back("salva"); };
    app.frame.mnuSalva.enabled = true;
    QTest::keyClick(&Frame(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(MenuTest, ACommandInTheMenuBarItselfIsChosen)
{
    int chosen = 0;
    app.frame.mnuMidiPlayer.enabled = true;
    app.frame.mnuMidiPlayer.Click = [&chosen] { ++chosen; };
    ActionOf(app.frame.mnuMidiPlayer)->trigger();
    EXPECT_EQ(chosen, 1);
    EXPECT_EQ(ActionOf(app.frame.mnuMidiPlayer)->text(), QStringLiteral("M&IDI PLAYER"));
}

TEST_F(MenuTest, CheckMarksAreTheProgramsOwn)
{
    ASSERT_TRUE(app.frame.mnuVisBarraStato.checked);
    EXPECT_TRUE(ActionOf(app.frame.mnuVisBarraStato)->isChecked());
    ActionOf(app.frame.mnuVisBarraStato)->trigger();
    EXPECT_FALSE(app.frame.mnuVisBarraStato.checked);
    EXPECT_FALSE(ActionOf(app.frame.mnuVisBarraStato)->isChecked());
    // A command that leaves its mark alone leaves it alone on the screen too.
    app.frame.mnuMIDIThru.enabled = true;
    app.frame.mnuMIDIThru.checked = true;
    app.frame.mnuMIDIThru.Click = nullptr;
    ActionOf(app.frame.mnuMIDIThru)->trigger();
    EXPECT_TRUE(ActionOf(app.frame.mnuMIDIThru)->isChecked());
}

TEST_F(MenuTest, HiddenEntriesAreNotThereAndFileNamesKeepTheirMarks)
{
    MenuEntry &recent = app.frame.mnuRecentFile[1];
    EXPECT_FALSE(ActionOf(recent)->isVisible());
    recent.caption = std::string("&1 R&B.pcg");
    recent.visible = true;
    EXPECT_TRUE(ActionOf(recent)->isVisible());
    EXPECT_EQ(ActionOf(recent)->text(), QStringLiteral("&1 R&&B.pcg"));
}

TEST_F(MenuTest, TheWindowMenuListsTheChildrenAndChecksTheActiveOne)
{
    StubForm &first = NewForm();
    StubForm &second = NewForm();
    first.caption = std::string("First & last");
    app.children.Show(first);
    app.children.Show(second);
    app.frame.mnuWindow.enabled = true;
    Drop(app.frame.mnuWindow);
    const QStringList captions = Captions(MenuOf(app.frame.mnuWindow));
    EXPECT_EQ(captions.mid(captions.size() - 3),
              (QStringList{QStringLiteral("-"), QStringLiteral("&1 First && last"), QStringLiteral("&2 Stub")}));
    const QList<QAction *> rows = MenuOf(app.frame.mnuWindow).actions();
    EXPECT_FALSE(rows[rows.size() - 2]->isChecked());
    EXPECT_TRUE(rows.last()->isChecked());
    rows[rows.size() - 2]->trigger();
    EXPECT_EQ(app.children.Active(), &first);
    FoldUp(app.frame.mnuWindow);
    // Dropped again it does not grow.
    Drop(app.frame.mnuWindow);
    EXPECT_EQ(Captions(MenuOf(app.frame.mnuWindow)).size(), captions.size());
    FoldUp(app.frame.mnuWindow);
}

TEST_F(MenuTest, ADeviceThatComesIsInItsMenuWhenThatOpens)
{
    midi.devicesCome = true;
    midi.outs.push_back({"PA80", {}, false, false, {}});
    EXPECT_EQ(Captions(MenuOf(app.frame.mnuMIDIOut)), QStringList{QStringLiteral("Synth out")});
    Drop(app.frame.mnuPreferenze);
    EXPECT_EQ(Captions(MenuOf(app.frame.mnuMIDIOut)), (QStringList{QStringLiteral("Synth out"), QStringLiteral("PA80")}));
    midi.ins.push_back({"Pads", {}, false, false, {}});
    MenuOf(app.frame.mnuPreferenze).setActiveAction(ActionOf(app.frame.mnuMIDIIn));
    QTest::keyClick(&MenuOf(app.frame.mnuPreferenze), Qt::Key_Right);
    EXPECT_TRUE(MenuOf(app.frame.mnuMIDIIn).isVisible());
    EXPECT_EQ(Captions(MenuOf(app.frame.mnuMIDIIn)), (QStringList{QStringLiteral("Keys in"), QStringLiteral("Pads")}));
    ActionOf(app.frame.mnuDevMIDIIn[1])->trigger();
    FoldUp(app.frame.mnuMIDIIn);
    FoldUp(app.frame.mnuPreferenze);
    EXPECT_EQ(app.settings.MidiInDev, 1);
}

TEST_F(MenuTest, TheMenuOfOutputsThatWasOffComesOnWithTheFirstOne)
{
    app.frame.mnuMIDIOut.enabled = false; // as after a start without one
    midi.devicesCome = true;
    Drop(app.frame.mnuPreferenze);
    EXPECT_TRUE(ActionOf(app.frame.mnuMIDIOut)->isEnabled());
    FoldUp(app.frame.mnuPreferenze);
}

TEST_F(MenuTest, ThePopUpIsTheEditMenuWithTheStateItWasGiven)
{
    int drops = 0;
    app.frame.mnuModifica.Drop = [&drops] { ++drops; };
    face.PopUpMenu(app.frame.mnuModifica);
    EXPECT_TRUE(MenuOf(app.frame.mnuModifica).isVisible());
    EXPECT_EQ(drops, 0);
    FoldUp(app.frame.mnuModifica);
}

TEST_F(MenuTest, ADisabledMenuDoesNotDropByItsShortcut)
{
    std::vector<std::string> heard;
    app.frame.mnuModifica.enabled = false;
    app.frame.mnuModifica.Drop = [&heard] { heard.emplace_back("drop"); };
    QTest::keyClick(&Frame(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(MenuTest, KeysThatPeopleTryWorkBesideThoseShown)
{
    int cuts = 0;
    int exits = 0;
    app.frame.mnuModifica.enabled = true;
    app.frame.mnuModifica.Drop = [this] { app.frame.mnuTaglia.enabled = true; };
    app.frame.mnuTaglia.Click = [&cuts] { ++cuts; };
    app.frame.mnuExit.Click = [&exits] { ++exits; };
    QTest::keyClick(&Frame(), Qt::Key_X, Qt::ControlModifier);
    QTest::keyClick(&Frame(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&Frame(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(cuts, 2);
    EXPECT_EQ(exits, 1);
}

TEST_F(MenuTest, F1OpensTheGuideAndBringsAnOpenOneToTheFront)
{
    WriteBytes(folder->At("Velluto-UserGuide.txt"), {'a', '\r', '\n'});
    QTest::keyClick(&Frame(), Qt::Key_F1);
    ASSERT_NE(app.children.Active(), nullptr);
    EXPECT_EQ(app.children.Active()->name(), "frmGuida");
    ChooseMenu(app.frame.mnuMsgEx);
    QTest::keyClick(&Frame(), Qt::Key_F1);
    EXPECT_EQ(app.children.Active()->name(), "frmGuida");
}

} // namespace

} // namespace velluto::test
