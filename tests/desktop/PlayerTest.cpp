// A real mouse and real keys on the buttons of the player's window, and what the window looks like.
#include "desktop/PlayerDesk.h"

#include <QGroupBox>
#include <QPushButton>

#include <algorithm>

namespace velluto::test {

namespace {

using testing::ElementsAre;

class PlayerTest : public PlayerDesk {
protected:
    // The colour low in the middle of a button, where the lamp of one that is on is.
    QColor LampOf(const Button &button)
    {
        const QImage drawn = Of(button).grab().toImage();
        return drawn.pixelColor(drawn.width() / 2, drawn.height() - 7);
    }
    bool LooksOn(const Button &button) { return LampOf(button) == QColor(0, 255, 0) && Of<QAbstractButton>(button).isChecked(); }
    bool LooksOff(const Button &button) { return LampOf(button) != QColor(0, 255, 0) && !Of<QAbstractButton>(button).isChecked(); }
    // The controls that the Tab key visits, from the first button on.
    QStringList TabChain()
    {
        QStringList names;
        QWidget *start = &Of(Form().MCIPuls[0]);
        QWidget *at = start;
        do {
            if ((at->focusPolicy() & Qt::TabFocus) != 0 && at->isVisible() && at->isEnabled() && at != &Window(Form()) &&
                Window(Form()).isAncestorOf(at)) {
                names.append(at->objectName());
            }
            at = at->nextInFocusChain();
        } while (at != start);
        return names;
    }
    // What is wider than its place.
    std::vector<std::string> Cut()
    {
        std::vector<std::string> cut;
        for (const QLabel *label : Window(Form()).findChildren<QLabel *>()) {
            if (label->fontMetrics().horizontalAdvance(label->text()) > label->contentsRect().width() ||
                label->fontMetrics().height() > label->height()) {
                cut.push_back(ToUtf8(label->objectName()));
            }
        }
        for (const QPushButton *button : Window(Form()).findChildren<QPushButton *>()) {
            constexpr int kEdges = 8;
            if (button->fontMetrics().horizontalAdvance(button->text()) > button->width() - kEdges) {
                cut.push_back(ToUtf8(button->objectName()));
            }
        }
        for (const QGroupBox *box : Window(Form()).findChildren<QGroupBox *>()) {
            if (box->fontMetrics().horizontalAdvance(box->title()) > box->width()) {
                cut.push_back(ToUtf8(box->objectName()));
            }
        }
        return cut;
    }
};

// ---- transport

TEST_F(PlayerTest, PlayPauseAndStop)
{
    Open();
    ClickRow(Form().ListMidiSel, 1);
    Transport(2);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(sequencer.FileName(), In("b.mid"));
    Transport(3);
    EXPECT_EQ(Mode(), SequencerMode::kPaused);
    Transport(3);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    Transport(3);
    Transport(2);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    Transport(6);
    EXPECT_EQ(Mode(), SequencerMode::kStopped);
}

TEST_F(PlayerTest, ForwardAndBackAreSteps)
{
    Open();
    ClickRow(Form().ListMidiSel, 0);
    Transport(2);
    sequencer.Advance(std::chrono::seconds(5)); // 50 units
    Transport(5);
    EXPECT_EQ(sequencer.Position(), 60);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    Transport(4);
    EXPECT_LE(sequencer.Position(), 50);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
}

TEST_F(PlayerTest, NextAndPreviousPlayTheNeighboursRoundTheEnds)
{
    Open();
    ClickRow(Form().ListMidiSel, 2);
    Transport(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Mode() == SequencerMode::kPlaying; }));
    EXPECT_EQ(sequencer.FileName(), In("a.mid"));
    EXPECT_THAT(SelectedRows(Form().ListMidiSel), ElementsAre(0));
    Transport(0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return sequencer.FileName() == In("c.mid"); }));
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(Window(Form()).windowTitle(), QStringLiteral("MIDI PLAYER - c.mid"));
}

TEST_F(PlayerTest, WhatCannotBePressedLooksSo)
{
    Open();
    ClickRow(Form().ListMidiSel, 0);
    const auto enabled = [this] {
        std::string row;
        for (const Button &button : Form().MCIPuls) {
            row += Of(button).isEnabled() ? '1' : '0';
        }
        return row;
    };
    EXPECT_EQ(enabled(), "1110000");
    Transport(6);
    EXPECT_EQ(sequencer.Command(), "open");
    Transport(2);
    EXPECT_EQ(enabled(), "1101111");
    Transport(3);
    EXPECT_EQ(enabled(), "1111111");
}

TEST_F(PlayerTest, ATransportButtonHandsTheKeyboardToTheFilesOfTheCompilation)
{
    Open();
    ClickRow(Form().ListMidiSel, 0);
    Transport(2);
    EXPECT_EQ(Window(Form()).focusWidget(), &Of(Form().ListMidiCorr));
}

TEST_F(PlayerTest, TheSpaceBarPressesTheButtonThatHasTheKeyboard)
{
    Open();
    PressIn(Form().ListMidiSel, Qt::Key_Down);
    PressIn(Form().MCIPuls[2], Qt::Key_Space);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    PressIn(Form().CommRep, Qt::Key_Space);
    EXPECT_TRUE(LooksOn(Form().CommRep));
}

TEST_F(PlayerTest, TheTabKeyVisitsEachControlOnceFromTheTopLeftOn)
{
    Open();
    ClickRow(Form().ListMidiSel, 0);
    const QStringList wanted{
        QStringLiteral("MCIPuls(0)"),  QStringLiteral("MCIPuls(1)"), QStringLiteral("MCIPuls(2)"),   QStringLiteral("CommRep"),
        QStringLiteral("CommPlayAll"), QStringLiteral("CommSel"),    QStringLiteral("HScrollStart"), QStringLiteral("HScrollStop"),
        QStringLiteral("ListComp"),    QStringLiteral("Text2"),      QStringLiteral("CommNuovo"),    QStringLiteral("ListMidiCorr"),
        QStringLiteral("CommAdd"),     QStringLiteral("CommAddAll"), QStringLiteral("DriveMidiSel"), QStringLiteral("DirMidiSel"),
        QStringLiteral("ListMidiSel"),
    };
    EXPECT_EQ(TabChain(), wanted);
    Of(Form().MCIPuls[2]).setFocus();
    QTest::keyClick(Window(Form()).focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Window(Form()).focusWidget(), &Of(Form().CommRep));
}

// ---- what buttons look like

TEST_F(PlayerTest, EachTransportButtonHasAPictureOfItsOwnANameAndATip)
{
    Open();
    std::vector<QImage> pictures;
    for (const Button &button : Form().MCIPuls) {
        auto &widget = Of<QAbstractButton>(button);
        widget.setEnabled(true);
        pictures.push_back(widget.grab().toImage());
        EXPECT_FALSE(widget.toolTip().isEmpty());
        EXPECT_EQ(widget.toolTip(), widget.accessibleName());
    }
    EXPECT_EQ(Of(Form().MCIPuls[2]).toolTip(), QStringLiteral("Play"));
    EXPECT_EQ(Of(Form().MCIPuls[6]).toolTip(), QStringLiteral("Stop"));
    for (auto picture = pictures.begin(); picture != pictures.end(); ++picture) {
        EXPECT_EQ(std::count(pictures.begin(), pictures.end(), *picture), 1);
    }
    // A square in the text's colour.
    const QPoint middle = pictures[6].rect().center();
    EXPECT_EQ(pictures[6].pixelColor(middle), Of(Form().MCIPuls[6]).palette().color(QPalette::ButtonText));
}

TEST_F(PlayerTest, AToggleThatIsOnIsLitAndDown)
{
    Open();
    EXPECT_TRUE(LooksOn(Form().CommSel));
    EXPECT_TRUE(LooksOff(Form().CommRep));
    Click(Form().CommRep);
    EXPECT_TRUE(LooksOn(Form().CommRep));
    Click(Form().CommRep);
    EXPECT_TRUE(LooksOff(Form().CommRep));
}

TEST_F(PlayerTest, RepeatAndPlayAllPutEachOtherOut)
{
    Open();
    ClickRow(Form().ListMidiSel, 0);
    Click(Form().CommPlayAll);
    EXPECT_TRUE(LooksOn(Form().CommPlayAll));
    Click(Form().CommRep);
    EXPECT_TRUE(LooksOn(Form().CommRep));
    EXPECT_TRUE(LooksOff(Form().CommPlayAll));
    Click(Form().CommPlayAll);
    EXPECT_TRUE(LooksOff(Form().CommRep));
    EXPECT_TRUE(LooksOn(Form().CommPlayAll));
}

// ---- what the window looks like

TEST_F(PlayerTest, TheElapsedTimeIsReadFromAfar)
{
    Open();
    const auto &time = Of<QLabel>(Form().Label1);
    const auto &position = Of<QLabel>(Form().LabTrackPosition);
    EXPECT_EQ(time.text(), QStringLiteral("0:00"));
    EXPECT_GE(time.fontMetrics().height(), 2 * position.fontMetrics().height());
    EXPECT_TRUE(time.font().bold());
}

TEST_F(PlayerTest, TheElapsedTimeIsAsLargeAsItsPlaceAllowsAndNotLargerThanMeant)
{
    Open();
    const auto &time = Of<QLabel>(Form().Label1);
    const int meant = time.font().pointSize();
    Place place = Form().Label1.place;
    const int height = place.height;
    place.height = height / 2;
    Form().Label1.place = place;
    EXPECT_LE(time.fontMetrics().height(), time.height());
    QFont larger = time.font();
    larger.setPointSize(larger.pointSize() + 1);
    EXPECT_GT(QFontMetrics(larger).height(), time.height());
    EXPECT_TRUE(time.font().bold());
    place.height = 4 * height;
    Form().Label1.place = place;
    EXPECT_EQ(time.font().pointSize(), Form().Label1.points);
    place.height = height;
    Form().Label1.place = place;
    EXPECT_EQ(time.font().pointSize(), meant);
}

TEST_F(PlayerTest, NothingWrittenIsCutInEnglish)
{
    Open();
    Form().LabTrackLenght.caption = std::string("30000");
    Form().LabTrackPosition.caption = std::string("30000 (100%)");
    Form().LabStart.caption = std::string("30000");
    Form().LabStop.caption = std::string("30000");
    Form().Label1.caption = std::string("999:59");
    EXPECT_THAT(Cut(), ElementsAre());
}

TEST_F(PlayerTest, NothingWrittenIsCutInItalian)
{
    language = TestProgram::Italian;
    Open();
    EXPECT_EQ(Of<QPushButton>(Form().CommRim).text(), FromUtf8(Form().CommRim.caption.Get()));
    EXPECT_THAT(Cut(), ElementsAre());
    EXPECT_EQ(Of(Form().MCIPuls[2]).toolTip(), QStringLiteral("Riproduci"));
}

TEST_F(PlayerTest, NoControlCoversAnother)
{
    Open();
    for (const Control *control : Form().controls()) {
        for (const Control *other : Form().controls()) {
            const bool drawn = control->visible && other->visible && control->place.Get().width > 0 && other->place.Get().width > 0;
            if (control != other && drawn && control->container == other->container) {
                EXPECT_FALSE(Of(*control).geometry().intersects(Of(*other).geometry())) << control->FullName() << " " << other->FullName();
            }
        }
    }
}

TEST_F(PlayerTest, ThePanelOpensToTheRightAndClosesAgain)
{
    Open(false);
    const QSize narrow = Window(Form()).size();
    EXPECT_FALSE(Of(Form().Frame4).isVisible());
    Click(Form().CommSel);
    EXPECT_TRUE(LooksOn(Form().CommSel));
    EXPECT_TRUE(Of(Form().Frame4).isVisible());
    EXPECT_GT(Window(Form()).width(), narrow.width());
    EXPECT_GE(Of(Form().Frame4).x(), Of(Form().Frame1).geometry().right());
    EXPECT_LE(Of(Form().Frame4).geometry().right(), Window(Form()).contentsRect().width());
    EXPECT_EQ(Form().ListMidiSel.ListCount(), 3);
    Click(Form().CommSel);
    EXPECT_TRUE(LooksOff(Form().CommSel));
    EXPECT_FALSE(Of(Form().Frame4).isVisible());
    EXPECT_EQ(Window(Form()).size(), narrow);
}

TEST_F(PlayerTest, AHandMakesTheWindowHigherButNotWider)
{
    Open(false);
    const QSize natural = Window(Form()).size();
    const int list = Of(Form().ListMidiCorr).height();
    Window(Form()).resize(natural + QSize(200, 60));
    Settle();
    EXPECT_EQ(Window(Form()).size(), natural + QSize(0, 60));
    EXPECT_EQ(Of(Form().ListMidiCorr).height(), list + 60);
    Window(Form()).resize(100, 100);
    Settle();
    EXPECT_EQ(Window(Form()).size(), natural);
}

TEST_F(PlayerTest, TheRightButtonPopsUpTheEditMenuOnTheWindowAndOnEachFrame)
{
    Open();
    QWidget *window = Of(Form().Frame1).parentWidget();
    for (QWidget *place : {window, &Of(Form().Frame1), &Of(Form().Frame2), &Of(Form().Frame3), &Of(Form().Frame4)}) {
        QTest::mouseClick(place, Qt::RightButton, {}, QPoint(place->width() / 2, place->height() - 2));
        QWidget *menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr) << ToUtf8(place->objectName());
        menu->close();
        Settle();
    }
}

TEST_F(PlayerTest, ClosedInTheMiddleOfAPlayNothingSoundsOn)
{
    Open();
    DoubleClickRow(Form().ListMidiSel, 0);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    Window(Form()).close();
    Settle();
    EXPECT_EQ(program.player.window, nullptr);
    EXPECT_EQ(sequencer.Mode(), SequencerMode::kStopped);
    EXPECT_TRUE(app.frame.mnuMidiPlayer.enabled);
    ChooseMenu(app.frame.mnuMidiPlayer);
    Settle();
    EXPECT_EQ(Mode(), SequencerMode::kNotReady);
}

} // namespace

} // namespace velluto::test
