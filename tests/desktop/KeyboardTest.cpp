// A real mouse, a real wheel and real keys on the keyboard's window.
#include "desktop/Desk.h"
#include "desktop/Piano.h"
#include "keyboard/frmTastiera.h"
#include "unit/support/MidiMessages.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QSlider>

namespace velluto::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeyboardTest : public Desk {
protected:
    void SetUp() override
    {
        Start();
        mnuDevMIDIOut_Click(program.midi, 0);
    }
    frmTastiera &Open(bool click = true, bool hold = false)
    {
        app.settings.KeyboardRecord[1] = click ? 1 : 0;
        app.settings.KeyboardRecord[2] = hold ? 1 : 0;
        ChooseMenu(app.frame.mnuTastiera);
        Settle();
        midi.sent.clear();
        return Form();
    }
    frmTastiera &Form() { return *program.keyboard.window; }
    Piano &Keys() { return *dynamic_cast<Piano *>(Window(Form()).findChild<QWidget *>(QStringLiteral("Piano"))); }
    Sent Taken()
    {
        Sent taken;
        taken.swap(midi.sent);
        return taken;
    }
    // A point on the key's own part, so many twips below its upper edge.
    QPointF On(int key, int y = 200)
    {
        const QRectF rect = Keys().RectOf(key);
        // Beside the black keys the white ones are free at their middle only where two are apart; below all are.
        const double x = Form().Key[key].black || y > 972 ? rect.center().x() : FreeX(key);
        return {x, rect.top() + rect.height() * (y + 0.5) / (Form().Key[key].black ? 972 : 1404)};
    }
    double FreeX(int key)
    {
        const QRectF rect = Keys().RectOf(key);
        for (double x = rect.left() + 0.5; x < rect.right(); x += 0.5) {
            if (Keys().KeyAt({x, 1}) == key) {
                return x;
            }
        }
        return rect.center().x();
    }
    void Send(QEvent::Type type, const QPointF &at, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, at, Keys().mapToGlobal(at), button, held, {});
        QCoreApplication::sendEvent(&Keys(), &event);
    }
    void Down(const QPointF &at, Qt::MouseButton button = Qt::LeftButton) { Send(QEvent::MouseButtonPress, at, button, button); }
    void Up(const QPointF &at, Qt::MouseButton button = Qt::LeftButton) { Send(QEvent::MouseButtonRelease, at, button, {}); }
    void Move(const QPointF &at, Qt::MouseButtons held = {}) { Send(QEvent::MouseMove, at, Qt::NoButton, held); }
    void LeavePiano()
    {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&Keys(), &leave);
    }
    QSlider &Bar(const char *name) { return Widget<QSlider>(Form(), name); }
    void Turn(QWidget &over, int delta, Qt::KeyboardModifiers modifiers = {})
    {
        QWheelEvent turned(QPointF(5, 5), over.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, delta), Qt::NoButton, modifiers, Qt::NoScrollPhase,
                           false);
        QCoreApplication::sendEvent(&over, &turned);
    }
};

// ---- the piano

TEST_F(KeyboardTest, EveryKeyIsFoundWhereItIsDrawnAndBlackKeysFirst)
{
    frmTastiera &form = Open();
    for (const int y : {0, 500, 970}) {
        for (int key = 0; key < 61; ++key) {
            EXPECT_EQ(Keys().KeyAt(On(key, y)), key) << key << " at " << y;
        }
    }
    for (int key = 0; key < 61; ++key) {
        const QRectF rect = Keys().RectOf(key);
        if (form.Key[key].black) {
            EXPECT_EQ(Keys().KeyAt(rect.topLeft()), key);
            EXPECT_NE(Keys().KeyAt(rect.bottomLeft()), key); // below it lies a white one
        } else {
            EXPECT_EQ(Keys().KeyAt(QPointF(rect.left(), rect.bottom() - 0.25)), key);
        }
    }
    EXPECT_EQ(Keys().KeyAt(QPointF(-1, 5)), -1);
    EXPECT_EQ(Keys().KeyAt(QPointF(5, Keys().height())), -1);
    EXPECT_EQ(Keys().KeyAt(QPointF(Keys().width(), 5)), -1);
}

TEST_F(KeyboardTest, APressOfTheMousePlaysAndItsReleaseEnds)
{
    Open();
    QTest::mousePress(&Keys(), Qt::LeftButton, {}, On(24).toPoint());
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
    EXPECT_TRUE(Form().Key[24].dot);
    QTest::mouseRelease(&Keys(), Qt::LeftButton, {}, On(24).toPoint());
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(60)));
}

TEST_F(KeyboardTest, APressReleasedElsewhereEndsThePressedKey)
{
    Open();
    Down(On(24));
    Move(On(40), Qt::LeftButton);
    Move(QPointF(-300, 900), Qt::LeftButton);
    Up(QPointF(-300, 900));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(KeyboardTest, ASecondPressOfADoubleClickPlaysToo)
{
    Open();
    Down(On(24));
    Up(On(24));
    Send(QEvent::MouseButtonDblClick, On(24), Qt::LeftButton, Qt::LeftButton);
    Up(On(24));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60), NoteOn(60), NoteOff(60)));
}

TEST_F(KeyboardTest, ARightPressPlaysAndPopsUpNoMenu)
{
    Open();
    QTest::mouseClick(&Keys(), Qt::RightButton, {}, On(0).toPoint());
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36)));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(KeyboardTest, WhileOneButtonHoldsAKeyTheOthersSayNothing)
{
    Open();
    Down(On(24));
    Send(QEvent::MouseButtonPress, On(30), Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    Send(QEvent::MouseButtonRelease, On(30), Qt::RightButton, Qt::LeftButton);
    Up(On(24));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(KeyboardTest, APressWhoseReleaseGotLostEndsAtTheNextMove)
{
    Open();
    Down(On(24));
    Move(On(26));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(KeyboardTest, AHiddenWindowLeavesNoKeyHanging)
{
    Open();
    Down(On(24));
    app.children.Minimise(Form());
    Settle();
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(KeyboardTest, ABoxThatComesUpLeavesNoKeyHanging)
{
    Open();
    Down(On(24));
    Taken();
    WhenModal([](QWidget &box) { box.close(); });
    face.MessageBox("Velluto", "a box from elsewhere", Box::kNotice);
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(60)));
    Up(On(24));
    EXPECT_THAT(Taken(), IsEmpty());
}

TEST_F(KeyboardTest, APressWhoseSendFailsIsOverOnceTheBoxIsClosed)
{
    Open();
    midi.outs[0].codes.send = 5;
    WhenModal([](QWidget &box) { box.close(); });
    Down(On(24));
    EXPECT_FALSE(Form().Key[24].dot);
    EXPECT_EQ(Form().Text1.text.Get(), "");
    Up(On(24));
    EXPECT_EQ(midi.sent.size(), 1U); // the one that failed
}

TEST_F(KeyboardTest, AGlideOverTenKeysGivesTenPairsInOrder)
{
    Open(false);
    for (int key = 0; key < 10; ++key) {
        Move(On(key));
    }
    LeavePiano();
    std::vector<testing::Matcher<std::uint32_t>> pairs;
    for (std::uint32_t note = 36; note < 46; ++note) {
        pairs.emplace_back(NoteOn(note));
        pairs.emplace_back(NoteOff(note));
    }
    EXPECT_THAT(Taken(), testing::ElementsAreArray(pairs));
}

TEST_F(KeyboardTest, AGlideTooFastToBeSeenOnEveryKeyStillPlaysEachKeyOnTheWay)
{
    Open(false);
    Move(On(0, 1200));
    Move(On(12, 1200));
    // Below the black keys: the white ones of an octave.
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36), NoteOn(38), NoteOff(38), NoteOn(40), NoteOff(40), NoteOn(41), NoteOff(41),
                                     NoteOn(43), NoteOff(43), NoteOn(45), NoteOff(45), NoteOn(47), NoteOff(47), NoteOn(48)));
    Move(On(11, 10));
    Taken();
    Move(On(0, 10));
    // At their upper end: all of them.
    Sent down;
    for (std::uint32_t note = 47; note > 36; --note) {
        down.push_back(NoteOff(note));
        down.push_back(NoteOn(note - 1));
    }
    EXPECT_EQ(Taken(), down);
}

TEST_F(KeyboardTest, WhereThePointerComesBackElsewhereNothingLiesBetween)
{
    Open(false);
    Move(On(0));
    LeavePiano();
    Taken();
    Move(On(24));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
}

TEST_F(KeyboardTest, AGlideWithAButtonHeldPlaysTheKeyUnderThePointer)
{
    Open(false);
    Move(On(0));
    Down(On(0));
    Move(On(2), Qt::LeftButton);
    Up(On(2));
    // Outside the piano, with the button held, no leaving is told.
    Down(On(2));
    Move(QPointF(On(2).x(), -40), Qt::LeftButton);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36), NoteOn(37), NoteOff(37), NoteOn(38), NoteOff(38)));
}

TEST_F(KeyboardTest, TheHeightOfThePointerIsHandedOnInTheKeysOwnTwips)
{
    Open(false);
    Move(On(0, 1300));
    Move(On(0, 1355));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36)));
    Move(On(0, 1385));
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(36)));
    Move(On(1, 900));
    Move(On(1, 925));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(37)));
    Move(On(1, 950));
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(37)));
}

TEST_F(KeyboardTest, OverTheFrameOrTheWindowAGlideEnds)
{
    Open(false);
    auto &frame = Widget<QFrame>(Form(), "Frame1");
    for (QWidget *around : {static_cast<QWidget *>(&frame), frame.parentWidget()}) {
        Form().Key[24].MouseMove(10);
        EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
        QMouseEvent over(QEvent::MouseMove, QPointF(1, 1), around->mapToGlobal(QPointF(1, 1)), Qt::NoButton, {}, {});
        QCoreApplication::sendEvent(around, &over);
        EXPECT_THAT(Taken(), ElementsAre(NoteOff(60)));
    }
}

TEST_F(KeyboardTest, AGlideEndsWhereTheWindowIsHidden)
{
    Open(false);
    Move(On(24));
    app.children.Minimise(Form());
    Settle();
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(KeyboardTest, ClosedInTheMiddleOfAPressTheKeyIsSilencedOnce)
{
    Open();
    Down(On(24));
    Piano &keys = Keys();
    ASSERT_TRUE(app.children.Unload(Form()));
    EXPECT_EQ(keys.KeyCount(), 0);
    QMouseEvent up(QEvent::MouseButtonRelease, QPointF(5, 5), keys.mapToGlobal(QPointF(5, 5)), Qt::LeftButton, {}, {});
    QCoreApplication::sendEvent(&keys, &up);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), AllNotesOff()));
}

TEST_F(KeyboardTest, ADotIsDrawnOnASoundingKeyBlackOnWhiteAndGreenOnBlack)
{
    Open(true, true);
    const auto colourAt = [this](int key) {
        const QRectF rect = Keys().RectOf(key);
        const QImage drawn = Keys().grab().toImage();
        const double dots = drawn.devicePixelRatio();
        const double y = rect.bottom() - rect.width() * 0.73;
        return drawn.pixelColor(static_cast<int>(rect.center().x() * dots), static_cast<int>(y * dots));
    };
    EXPECT_EQ(colourAt(0), QColor(Qt::white));
    const QColor plainBlack = colourAt(1);
    Down(On(0));
    Up(On(0));
    Down(On(1));
    Up(On(1));
    EXPECT_EQ(colourAt(0), QColor(Qt::black));
    EXPECT_EQ(colourAt(1), QColor(0, 255, 0));
    Down(On(0));
    Up(On(0));
    Down(On(1));
    EXPECT_EQ(colourAt(0), QColor(Qt::white));
    EXPECT_EQ(colourAt(1), plainBlack);
}

TEST_F(KeyboardTest, ThePianoIsPlayedFromTheComputersKeys)
{
    Open();
    Keys().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Keys(), Qt::Key_Right);
    QTest::keyClick(&Keys(), Qt::Key_Right);
    QTest::keyClick(&Keys(), Qt::Key_Left);
    QTest::keyPress(&Keys(), Qt::Key_Space);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(37)));
    QTest::keyRelease(&Keys(), Qt::Key_Space);
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(37)));
    QTest::keyClick(&Keys(), Qt::Key_End);
    QTest::keyClick(&Keys(), Qt::Key_Return);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(96), NoteOff(96)));
    QTest::keyClick(&Keys(), Qt::Key_Home);
    QTest::keyPress(&Keys(), Qt::Key_Space);
    Bar("VScroll(0)").setFocus();
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36)));
}

TEST_F(KeyboardTest, InGlideModeTheArrowKeysGlide)
{
    Open(false);
    Keys().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Keys(), Qt::Key_Right);
    QTest::keyClick(&Keys(), Qt::Key_Right);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(37), NoteOff(37), NoteOn(38)));
    Bar("VScroll(0)").setFocus();
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(38)));
}

TEST_F(KeyboardTest, AScreenReaderMeetsSixtyOneNamedButtons)
{
    Open(true, true);
    QAccessibleInterface *piano = QAccessible::queryAccessibleInterface(&Keys());
    ASSERT_NE(piano, nullptr);
    EXPECT_EQ(piano->text(QAccessible::Name), QStringLiteral("Keyboard"));
    ASSERT_EQ(piano->childCount(), 61);
    QAccessibleInterface *key = piano->child(24);
    EXPECT_EQ(key->role(), QAccessible::Button);
    EXPECT_EQ(key->text(QAccessible::Name), QStringLiteral("C/Do (60)"));
    EXPECT_EQ(piano->indexOfChild(key), 24);
    EXPECT_EQ(key->parent(), piano);
    const QRect place = key->rect();
    EXPECT_EQ(piano->childAt(place.center().x(), place.bottom() - 2), key);
    EXPECT_FALSE(key->state().pressed);
    key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
    EXPECT_TRUE(key->state().pressed);
    Form().HScroll1.value = 3;
    EXPECT_EQ(key->text(QAccessible::Name), QStringLiteral("C/Do (72)"));
    EXPECT_EQ(piano->child(61), nullptr);
    EXPECT_EQ(piano->child(-1), nullptr);
}

TEST_F(KeyboardTest, TheTabKeyReachesThePianoOnceAndEverySlider)
{
    Open();
    std::vector<QString> reached;
    QWidget *start = &Keys();
    start->setFocus();
    for (QWidget *at = start; reached.empty() || at != start; at = at->nextInFocusChain()) {
        if ((at->focusPolicy() & Qt::TabFocus) != 0 && at->isVisible() && Window(Form()).isAncestorOf(at)) {
            reached.push_back(at->objectName());
        }
    }
    for (const char *name : {"Piano", "Combo1", "HScroll1", "CheckClickKey", "CheckHoldNote", "CommHoldChord", "CommAllNoteOff",
                             "VScroll(0)", "VScroll(10)", "CommClose"}) {
        EXPECT_EQ(std::ranges::count(reached, QString::fromLatin1(name)), 1) << name;
    }
    EXPECT_FALSE(std::ranges::count(reached, QStringLiteral("VScroll1"))); // hidden
}

// ---- the sliders

TEST_F(KeyboardTest, ASliderHas127AtItsTop)
{
    Open();
    QSlider &bar = Bar("VScroll(0)");
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_EQ(bar.maximum(), 127);
    EXPECT_EQ(bar.value(), 100);
    EXPECT_FALSE(bar.invertedAppearance());
    EXPECT_EQ(bar.orientation(), Qt::Vertical);
    EXPECT_EQ(bar.accessibleName(), QStringLiteral("Volume"));
    EXPECT_EQ(Bar("HScroll1").orientation(), Qt::Horizontal);
    EXPECT_FALSE(Bar("HScroll1").invertedAppearance());
}

TEST_F(KeyboardTest, KeysMoveASliderBySmallAndLargeSteps)
{
    Open();
    QSlider &bar = Bar("VScroll(0)");
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_Up);
    QTest::keyClick(&bar, Qt::Key_PageDown);
    QTest::keyClick(&bar, Qt::Key_Home);
    QTest::keyClick(&bar, Qt::Key_Down);
    EXPECT_THAT(Taken(), ElementsAre(Controller(7, 101), Controller(7, 91), Controller(7, 0)));
}

TEST_F(KeyboardTest, TheWheelMovesASliderBySmallStepsAndWithCtrlByLargeOnes)
{
    Open();
    QSlider &bar = Bar("VScroll(0)");
    Turn(bar, 120);
    Turn(bar, -240);
    Turn(bar, -120, Qt::ControlModifier);
    Turn(bar, 120, Qt::ShiftModifier);
    EXPECT_THAT(Taken(), ElementsAre(Controller(7, 101), Controller(7, 99), Controller(7, 89), Controller(7, 99)));
    Turn(bar, 50);
    Turn(bar, 50);
    EXPECT_THAT(Taken(), IsEmpty());
    Turn(bar, 50);
    EXPECT_THAT(Taken(), ElementsAre(Controller(7, 100)));
}

TEST_F(KeyboardTest, ADraggedSliderIsHeardAllTheWayAndOnceMoreWhenItIsLetGo)
{
    Open();
    QSlider &bar = Bar("VScroll(0)");
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Vertical;
    option.minimum = 0;
    option.maximum = 127;
    option.sliderPosition = 100;
    option.sliderValue = 100;
    option.upsideDown = true;
    option.subControls = QStyle::SC_All;
    const QPoint grip = bar.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &bar).center();
    const auto send = [&bar](QEvent::Type type, const QPoint &at, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, at, bar.mapToGlobal(QPointF(at)), button, held, {});
        QCoreApplication::sendEvent(&bar, &event);
    };
    send(QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, grip + QPoint(0, 20), Qt::NoButton, Qt::LeftButton);
    const int first = bar.value();
    send(QEvent::MouseMove, grip + QPoint(0, 40), Qt::NoButton, Qt::LeftButton);
    const int second = bar.value();
    EXPECT_LT(second, first);
    EXPECT_LT(first, 100);
    send(QEvent::MouseButtonRelease, grip + QPoint(0, 40), Qt::LeftButton, {});
    const auto value = [](int of) { return static_cast<std::uint32_t>(of); };
    EXPECT_THAT(Taken(), ElementsAre(Controller(7, value(first)), Controller(7, value(second)), Controller(7, value(second))));
}

TEST_F(KeyboardTest, WhatTheProgramSetsIsShownAndNotSentBack)
{
    Open();
    Form().VScroll[1].value = 10;
    EXPECT_EQ(Bar("VScroll(1)").value(), 10);
    EXPECT_EQ(Widget<QLabel>(Form(), "Label3(1)").text(), QStringLiteral("-54"));
    EXPECT_THAT(Taken(), ElementsAre(Controller(10, 10)));
}

TEST_F(KeyboardTest, ADoubleClickOnATitleGoesBackToTheFirstRunsValue)
{
    Open();
    Form().VScroll[6].value = 0;
    Taken();
    auto &title = Widget<QLabel>(Form(), "Label2(6)");
    QTest::mouseClick(&title, Qt::LeftButton);
    QTest::mouseDClick(&title, Qt::LeftButton);
    EXPECT_THAT(Taken(), ElementsAre(PitchBend(64)));
    EXPECT_EQ(Bar("VScroll(6)").value(), 64);
}

TEST_F(KeyboardTest, TheOctaveSliderShiftsTheCaptions)
{
    Open();
    QSlider &octave = Bar("HScroll1");
    octave.setFocus();
    QTest::keyClick(&octave, Qt::Key_Right);
    EXPECT_EQ(Widget<QLabel>(Form(), "Label1(1)").text(), QStringLiteral("C4"));
    QTest::keyClick(&octave, Qt::Key_PageDown);
    EXPECT_EQ(Widget<QLabel>(Form(), "Label1(1)").text(), QStringLiteral("C1"));
}

// ---- boxes

TEST_F(KeyboardTest, ABoxThatTheProgramClearsAgainLooksCleared)
{
    Open(true, true);
    Down(On(24));
    Up(On(24));
    Press(Form().CommHoldChord);
    auto &click = Widget<QCheckBox>(Form(), "CheckClickKey");
    QTest::mouseClick(&click, Qt::LeftButton, {}, QPoint(8, click.height() / 2));
    EXPECT_FALSE(click.isChecked());
    EXPECT_FALSE(Widget<QCheckBox>(Form(), "CheckHoldNote").isChecked());
}

TEST_F(KeyboardTest, TheWindowKeepsItsSize)
{
    Open();
    const QSize natural = Window(Form()).size();
    Window(Form()).resize(300, 600);
    Settle();
    EXPECT_EQ(Window(Form()).size(), natural);
}

} // namespace

} // namespace velluto::test
