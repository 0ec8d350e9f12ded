// A real mouse and real keys on the lists of the player: files, folders, drives and compilations.
#include "desktop/PlayerDesk.h"

#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>

namespace velluto::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PlayerListsTest : public PlayerDesk {
protected:
    // The compilation "Set" of all files of the folder.
    void Compile()
    {
        Click(Form().CommNuovo);
        QTest::keyClicks(&Of(Form().Text2), QStringLiteral("Set"));
        Click(Form().CommAddAll);
    }
    // What the tool tip says over a row.
    QString TipOver(const ListBox &list, int row)
    {
        QWidget *viewport = View(list).viewport();
        QHelpEvent help(QEvent::ToolTip, On(list, row), viewport->mapToGlobal(On(list, row)));
        QCoreApplication::sendEvent(viewport, &help);
        return QToolTip::text();
    }
    int LastInView(const ListBox &list)
    {
        const ListView &view = View(list);
        return view.RowAt(QPoint(5, view.viewport()->height() - 1));
    }
};

// ---- files

TEST_F(PlayerListsTest, AClickOpensAFileAndLeavesItStopped)
{
    Open();
    ClickRow(Form().ListMidiSel, 2);
    EXPECT_EQ(Mode(), SequencerMode::kStopped);
    EXPECT_EQ(sequencer.FileName(), In("c.mid"));
    EXPECT_EQ(Window(Form()).windowTitle(), QStringLiteral("MIDI PLAYER - c.mid"));
}

TEST_F(PlayerListsTest, ControlAndShiftSelectSeveral)
{
    Song("d.mid");
    Open();
    ClickRow(Form().ListMidiSel, 0);
    ClickRow(Form().ListMidiSel, 2, Qt::ShiftModifier);
    EXPECT_THAT(SelectedRows(Form().ListMidiSel), ElementsAre(0, 1, 2));
    ClickRow(Form().ListMidiSel, 1, Qt::ControlModifier);
    EXPECT_THAT(SelectedRows(Form().ListMidiSel), ElementsAre(0, 2));
    ClickRow(Form().ListMidiSel, 3);
    EXPECT_THAT(SelectedRows(Form().ListMidiSel), ElementsAre(3));
}

TEST_F(PlayerListsTest, UnselectingTheLastSelectedRowClosesTheFile)
{
    Open();
    ClickRow(Form().ListMidiSel, 1);
    ClickRow(Form().ListMidiSel, 1, Qt::ControlModifier);
    EXPECT_EQ(Mode(), SequencerMode::kNotReady);
    EXPECT_EQ(Of<QLabel>(Form().LabTrackLenght).text(), QStringLiteral("0"));
}

TEST_F(PlayerListsTest, ADoubleClickPlays)
{
    Open();
    DoubleClickRow(Form().ListMidiSel, 1);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(sequencer.FileName(), In("b.mid"));
    DoubleClickRow(Form().ListMidiSel, 2);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(sequencer.FileName(), In("c.mid"));
}

TEST_F(PlayerListsTest, ArrowsWalkThroughTheFilesAndReturnPlays)
{
    Open();
    PressIn(Form().ListMidiSel, Qt::Key_Down);
    PressIn(Form().ListMidiSel, Qt::Key_Down);
    EXPECT_EQ(Mode(), SequencerMode::kStopped);
    const std::string opened = sequencer.FileName();
    EXPECT_EQ(opened, JoinPath(folder->At("d"), Form().FileMidiSel.Row(Form().ListMidiSel.ListIndex())));
    PressIn(Form().ListMidiSel, Qt::Key_Return);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(sequencer.FileName(), opened);
}

TEST_F(PlayerListsTest, WhileAFilePlaysClicksOnlySelect)
{
    Open();
    DoubleClickRow(Form().ListMidiSel, 0);
    ClickRow(Form().ListMidiSel, 2);
    EXPECT_THAT(SelectedRows(Form().ListMidiSel), ElementsAre(2));
    EXPECT_EQ(sequencer.FileName(), In("a.mid"));
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
}

TEST_F(PlayerListsTest, AFileThatHasVanishedIsToldAndTheRowsStay)
{
    Open();
    std::filesystem::remove(In("b.mid"));
    sequencer.songs.erase(In("b.mid"));
    QString told;
    WhenModal([&told](QWidget &box) {
        told = dynamic_cast<QMessageBox &>(box).text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    ClickRow(Form().ListMidiSel, 1);
    EXPECT_FALSE(told.isEmpty());
    EXPECT_EQ(Form().ListMidiSel.ListCount(), 3);
    EXPECT_EQ(Mode(), SequencerMode::kNotReady);
    ClickRow(Form().ListMidiSel, 0);
    EXPECT_EQ(Mode(), SequencerMode::kStopped);
}

TEST_F(PlayerListsTest, FiveThousandFilesAreAllThereAndTheEndIsOneKeyAway)
{
    for (int number = 10000; number < 15000; ++number) {
        WriteBytes(In("s" + std::to_string(number) + ".mid"), {});
    }
    Open();
    EXPECT_EQ(Form().ListMidiSel.ListCount(), 5003);
    EXPECT_EQ(View(Form().ListMidiSel).model()->rowCount(), 5003);
    EXPECT_EQ(Form().ListMidiSel.Row(5002), "s14999.mid   (0)");
    Form().state.SelectionGuard = true; // the stand-in does not know these
    PressIn(Form().ListMidiSel, Qt::Key_End);
    EXPECT_THAT(SelectedRows(Form().ListMidiSel), ElementsAre(5002));
    EXPECT_TRUE(View(Form().ListMidiSel).viewport()->rect().contains(On(Form().ListMidiSel, 5002)));
    PressIn(Form().ListMidiSel, Qt::Key_Home);
    EXPECT_TRUE(View(Form().ListMidiSel).viewport()->rect().contains(On(Form().ListMidiSel, 0)));
}

TEST_F(PlayerListsTest, TheWheelScrollsAndALongListBeginsAtItsTop)
{
    for (int number = 100; number < 200; ++number) {
        Song("s" + std::to_string(number) + ".mid");
    }
    Open();
    ListView &view = View(Form().ListMidiSel);
    ASSERT_TRUE(view.verticalScrollBar()->isVisible());
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    const QPointF at(20, 20);
    QWheelEvent down(at, view.viewport()->mapToGlobal(at), {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view.viewport(), &down);
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    EXPECT_GT(view.RowAt({20, 5}), 0);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    EXPECT_TRUE(LastInView(Form().ListMidiSel) == 102 || LastInView(Form().ListMidiSel) == -1);
    EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.model()->index(102, 0))));
}

TEST_F(PlayerListsTest, AListThatHasScrolledShowsTheRowsThatAClickTakes)
{
    for (int number = 100; number < 200; ++number) {
        Song("s" + std::to_string(number) + ".mid");
    }
    Open();
    ListView &view = View(Form().ListMidiSel);
    const QRect rows(view.viewport()->mapTo(&Frame(), QPoint()), view.viewport()->size());
    const auto shown = [&] { return Frame().screen()->grabWindow(Frame().winId()).toImage().copy(rows); };
    Settle();
    const QImage before = shown();
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    Settle();
    EXPECT_NE(shown(), before);
    EXPECT_EQ(shown(), Frame().grab().toImage().convertToFormat(before.format()).copy(rows)); // as if painted once more
}

TEST_F(PlayerListsTest, ANameTooLongForItsListIsWholeInTheTip)
{
    const std::string name = "z" + std::string(80, 'w') + ".mid";
    Song(name);
    Open();
    EXPECT_EQ(TipOver(Form().ListMidiSel, 0), QString());
    EXPECT_EQ(TipOver(Form().ListMidiSel, 3), FromUtf8(name + "   (3)"));
}

TEST_F(PlayerListsTest, AnEmptyListShowsThatItHasTheKeyboard)
{
    Open();
    ListView &view = View(Form().ListMidiCorr);
    const QImage without = view.viewport()->grab().toImage();
    view.setFocus(Qt::TabFocusReason);
    EXPECT_NE(view.viewport()->grab().toImage(), without);
}

// ---- folders and drives

TEST_F(PlayerListsTest, ADoubleClickOrReturnOpensAFolder)
{
    Song("inner/x.mid");
    Open();
    const int inner = Form().DirMidiSel.ListCount() - 1;
    ASSERT_EQ(Form().DirMidiSel.paths.back(), In("inner"));
    DoubleClickRow(Form().DirMidiSel, inner);
    EXPECT_EQ(app.settings.PlayerDir, In("inner"));
    EXPECT_EQ(Form().ListMidiSel.ListCount(), 1);
    // The row above leads out again.
    PressIn(Form().DirMidiSel, Qt::Key_Up);
    EXPECT_EQ(app.settings.PlayerDir, In("inner"));
    PressIn(Form().DirMidiSel, Qt::Key_Return);
    EXPECT_EQ(app.settings.PlayerDir, folder->At("d"));
    EXPECT_EQ(Form().ListMidiSel.ListCount(), 3);
}

TEST_F(PlayerListsTest, AFolderThatHasVanishedChangesNothing)
{
    std::filesystem::create_directory(In("inner"));
    Open();
    std::filesystem::remove(In("inner"));
    DoubleClickRow(Form().DirMidiSel, Form().DirMidiSel.ListCount() - 1);
    EXPECT_EQ(app.settings.PlayerDir, folder->At("d"));
    EXPECT_EQ(Form().ListMidiSel.ListCount(), 3);
}

TEST_F(PlayerListsTest, APanelOnAFolderThatCannotBeReadSaysSo)
{
    Open(false);
    app.settings.PlayerDir = folder->At("gone");
    QString title;
    QString told;
    WhenModal([&](QWidget &box) {
        title = box.windowTitle();
        told = dynamic_cast<QMessageBox &>(box).text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    Click(Form().CommSel);
    EXPECT_TRUE(title.startsWith(FromUtf8(folder->At("gone")))) << ToUtf8(title);
    EXPECT_EQ(told, QStringLiteral("Path not found"));
    EXPECT_TRUE(Of(Form().Frame4).isVisible());
}

#ifdef _WIN32
TEST_F(PlayerListsTest, TheDrivesAreThoseOfTheSystem)
{
    Open();
    auto &drives = Of<QComboBox>(Form().DriveMidiSel);
    const std::vector<std::string> there = folders.Drives();
    ASSERT_GE(there.size(), 2U);
    EXPECT_EQ(drives.count(), static_cast<int>(there.size()));
    EXPECT_EQ(ToUtf8(drives.currentText()), folder->Path().substr(0, 2));
    // Chosen once more it leads to its top.
    const int chosen = drives.currentIndex();
    drives.setFocus();
    QTest::keyClick(&drives, chosen > 0 ? Qt::Key_Up : Qt::Key_Down);
    Settle();
    EXPECT_EQ(app.settings.PlayerDir, there[static_cast<std::size_t>(drives.currentIndex())]);
    QTest::keyClick(&drives, chosen > 0 ? Qt::Key_Down : Qt::Key_Up);
    Settle();
    EXPECT_EQ(drives.currentIndex(), chosen);
    EXPECT_EQ(app.settings.PlayerDir, folder->Path().substr(0, 2));
}
#else
TEST_F(PlayerListsTest, TheDrivesAreTheRootTheHomeFolderAndWhatIsMounted)
{
    qputenv("HOME", folder->Path().c_str());
    Open();
    auto &drives = Of<QComboBox>(Form().DriveMidiSel);
    EXPECT_EQ(drives.itemText(0), QStringLiteral("/"));
    EXPECT_EQ(drives.itemText(1), FromUtf8(folder->Path()));
    EXPECT_EQ(drives.count(), static_cast<int>(folders.Drives().size()));
    EXPECT_EQ(drives.currentIndex(), 1); // the nearest to the open folder
    // Chosen once more it leads to its top.
    drives.setFocus();
    QTest::keyClick(&drives, Qt::Key_Up);
    Settle();
    EXPECT_EQ(app.settings.PlayerDir, "/");
    EXPECT_EQ(Form().DirMidiSel.path, "/");
    QTest::keyClick(&drives, Qt::Key_Down);
    Settle();
    EXPECT_EQ(app.settings.PlayerDir, folder->Path());
    EXPECT_THAT(Form().DirMidiSel.paths, testing::Contains(folder->At("d")));
}
#endif

TEST_F(PlayerListsTest, AWheelTurnedInPassingChoosesNoDrive)
{
    qputenv("HOME", folder->Path().c_str()); // a second drive, where drives have no letters
    Open();
    auto &drives = Of<QComboBox>(Form().DriveMidiSel);
    ASSERT_GE(drives.count(), 2);
    const int chosen = drives.currentIndex();
    View(Form().ListMidiSel).setFocus();
    const QPointF at(5, 5);
    for (const int turn : {120, -120}) {
        QWheelEvent turned(at, drives.mapToGlobal(at), {}, QPoint(0, turn), {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&drives, &turned);
        EXPECT_EQ(drives.currentIndex(), chosen);
        EXPECT_EQ(app.settings.PlayerDir, folder->At("d"));
    }
}

// ---- compilations

TEST_F(PlayerListsTest, ATypedNameIsThatOfTheNewCompilation)
{
    Open();
    Click(Form().CommNuovo);
    EXPECT_EQ(Window(Form()).focusWidget(), &Of(Form().Text2));
    QTest::keyClicks(&Of(Form().Text2), QStringLiteral("Sera"));
    EXPECT_THAT(Form().ListComp.Rows(), ElementsAre("Sera"));
    EXPECT_TRUE(Of(Form().CommNuovo).isEnabled());
}

TEST_F(PlayerListsTest, SelectedFilesAreAddedAndRemoved)
{
    Open();
    Click(Form().CommNuovo);
    QTest::keyClicks(&Of(Form().Text2), QStringLiteral("Set"));
    ClickRow(Form().ListMidiSel, 1);
    ClickRow(Form().ListMidiSel, 2, Qt::ShiftModifier);
    Click(Form().CommAdd);
    EXPECT_THAT(Form().ListMidiCorr.Rows(), ElementsAre("b.mid   (3)", "c.mid   (3)"));
    ClickRow(Form().ListMidiCorr, 0);
    Click(Form().CommRim);
    EXPECT_THAT(Form().ListMidiCorr.Rows(), ElementsAre("c.mid   (3)"));
    Click(Form().CommRimAll);
    EXPECT_THAT(Form().ListMidiCorr.Rows(), IsEmpty());
    EXPECT_FALSE(Of(Form().CommRimAll).isEnabled());
}

TEST_F(PlayerListsTest, AFileOfACompilationIsOpenedByAClickAndPlayedByADoubleClick)
{
    Open();
    Compile();
    ClickRow(Form().ListMidiCorr, 1);
    EXPECT_EQ(Mode(), SequencerMode::kStopped);
    EXPECT_EQ(app.settings.PlayerFile, In("b.mid"));
    DoubleClickRow(Form().ListMidiCorr, 2);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(sequencer.FileName(), In("c.mid"));
}

TEST_F(PlayerListsTest, TheFileOfTheLastRunIsOpenAgain)
{
    Open();
    Compile();
    ClickRow(Form().ListMidiCorr, 1);
    Window(Form()).close();
    Settle();
    ChooseMenu(app.frame.mnuMidiPlayer);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Mode() == SequencerMode::kStopped; }));
    EXPECT_EQ(sequencer.FileName(), In("b.mid"));
    EXPECT_THAT(SelectedRows(Form().ListMidiCorr), ElementsAre(1));
    EXPECT_THAT(SelectedRows(Form().ListComp), ElementsAre(0));
}

TEST_F(PlayerListsTest, ACompilationIsDeletedByItsButton)
{
    Open();
    Compile();
    Window(Form()).close(); // saves it
    Settle();
    ChooseMenu(app.frame.mnuMidiPlayer);
    Settle();
    ASSERT_TRUE(std::filesystem::exists(folder->At("c-Set.cmp")));
    ClickRow(Form().ListComp, 0);
    Click(Form().CommCanc);
    EXPECT_FALSE(std::filesystem::exists(folder->At("c-Set.cmp")));
    EXPECT_THAT(Form().ListComp.Rows(), IsEmpty());
    EXPECT_EQ(Of<QLineEdit>(Form().Text2).text(), QString());
}

} // namespace

} // namespace velluto::test
