// The frame: its place and state, the status bar, its end.
#include "desktop/Desk.h"

#include <QLabel>
#include <QScreen>

namespace velluto::test {

namespace {

class FrameTest : public Desk {
protected:
    void SetUp() override { Start(); }
    QWidget &Strip() { return *Frame().findChild<QWidget *>(QStringLiteral("Picture1")); }
    // The frame takes a move or a resize for the user's only after the window manager has had its say.
    void WaitUntilSettled()
    {
        // A place of its own for each try: what comes before the frame has settled is not stored. Between the tries there
        // is time for one to be taken.
        int turn = 0;
        ASSERT_TRUE(QTest::qWaitFor([this, &turn] {
            if (turn % 30 == 0) {
                Frame().move(30 + turn / 30, 40);
            }
            ++turn;
            return app.frame.Top() == ToTwips(40);
        }));
    }
};

TEST_F(FrameTest, ComesUpWhereItWasLeft)
{
    EXPECT_EQ(Frame().size(), QSize(1000, 700));
    EXPECT_EQ(Frame().pos(), QPoint(20, 20));
    EXPECT_EQ(app.frame.place, (Place{300, 300, 15000, 10500}));
    EXPECT_EQ(Frame().windowTitle(), QStringLiteral("Velluto v 1.1 - Velluto"));
}

TEST_F(FrameTest, AMoveAndAResizeByHandAreStored)
{
    WaitUntilSettled();
    Frame().resize(900, 640);
    EXPECT_TRUE(QTest::qWaitFor([this] { return app.frame.Width() == ToTwips(900); }));
    EXPECT_EQ(app.frame.Height(), ToTwips(640));
}

TEST_F(FrameTest, MaximisedItKeepsItsNormalRectangle)
{
    WaitUntilSettled();
    const Place normal = app.frame.place;
    Frame().showMaximized();
    Settle();
    EXPECT_EQ(app.frame.windowState, WindowState::Maximised);
    EXPECT_EQ(app.frame.place, normal);
    app.frame.windowState = WindowState::Normal;
    EXPECT_FALSE(Frame().isMaximized());
}

TEST_F(FrameTest, AStoredPlaceOffEveryScreenIsShownOnOneAndStaysStored)
{
    app.frame.place = Place{-30000, -30000, 9000, 6000};
    Settle();
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(QRect(Frame().pos(), Frame().size())));
    EXPECT_EQ(app.frame.place, (Place{-30000, -30000, 9000, 6000}));
}

TEST_F(FrameTest, AStoredPlaceLargerThanTheScreenIsShownWholeAndStaysStored)
{
    const Place stored{1500, 1500, ToTwips(3840), ToTwips(2100)};
    app.frame.place = stored;
    Settle();
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_TRUE(room.contains(Frame().frameGeometry()));
    EXPECT_GT(Frame().width(), room.width() * 9 / 10);
    EXPECT_GT(Frame().height(), room.height() * 9 / 10);
    EXPECT_EQ(app.frame.place, stored);

    WaitUntilSettled(); // by hand it is moved only
    EXPECT_EQ((Size{app.frame.Width(), app.frame.Height()}), (Size{stored.width, stored.height}));
    Frame().resize(900, 640);
    EXPECT_TRUE(QTest::qWaitFor([this] { return app.frame.Width() == ToTwips(900); }));
    EXPECT_EQ(app.frame.Height(), ToTwips(640));
}

TEST_F(FrameTest, AStoredPlaceThatHangsOffTheScreensIsMovedOntoTheOneThatShowsMost)
{
    app.frame.place = Place{ToTwips(4000 - 900), ToTwips(900), ToTwips(1000), ToTwips(700)};
    Settle();
    EXPECT_EQ(Frame().size(), QSize(1000, 700));
    EXPECT_TRUE(QGuiApplication::screens().last()->availableGeometry().contains(Frame().frameGeometry()));
}

#ifndef _WIN32 // where the tests have one screen
TEST_F(FrameTest, AStoredPlaceAcrossTwoScreensStays)
{
    app.frame.place = Place{ToTwips(2200), ToTwips(100), ToTwips(1000), ToTwips(700)};
    Settle();
    EXPECT_EQ(Frame().pos(), QPoint(2200, 100));
    EXPECT_EQ(Frame().size(), QSize(1000, 700));
}
#endif

TEST_F(FrameTest, TheStatusBarIsLaidOutForTheWidthThatIsThere)
{
    Frame().resize(820, 600);
    Settle();
    EXPECT_EQ(app.frame.shownWidth, ToTwips(820));
    auto *time = Frame().findChild<QLabel *>(QStringLiteral("LabelTime"));
    auto *date = Frame().findChild<QLabel *>(QStringLiteral("LabelData"));
    auto *name = Frame().findChild<QLabel *>(QStringLiteral("LabelNomeAppl"));
    EXPECT_NEAR(time->geometry().right(), 820 - ToPixels(40), 1);
    EXPECT_LE(name->geometry().right(), date->geometry().left());
    EXPECT_TRUE(Strip().rect().contains(time->geometry()));
    EXPECT_EQ(time->text(), QStringLiteral("12:00:00"));
}

TEST_F(FrameTest, TheStatusBarHidesWithItsMenuEntry)
{
    ASSERT_TRUE(Strip().isVisible());
    ChooseMenu(app.frame.mnuVisBarraStato);
    EXPECT_FALSE(Strip().isVisible());
    ChooseMenu(app.frame.mnuVisBarraStato);
    EXPECT_TRUE(Strip().isVisible());
}

TEST_F(FrameTest, ClosingItEndsTheProgramWithItsSettings)
{
    const auto before = ReadBytes(folder->At("Velluto.ini"));
    app.settings.LastDir = "/somewhere/else";
    Frame().close();
    EXPECT_FALSE(Frame().isVisible());
    EXPECT_FALSE(app.frame.IsLoaded());
    EXPECT_NE(ReadBytes(folder->At("Velluto.ini")), before);
}

TEST_F(FrameTest, ItStaysWhileAChildRefuses)
{
    StubForm &form = NewForm();
    app.children.Show(form);
    form.refuses = true;
    Frame().close();
    EXPECT_TRUE(Frame().isVisible());
    EXPECT_TRUE(app.frame.IsLoaded());
    form.refuses = false;
}

TEST_F(FrameTest, TheExitEntryClosesItToo)
{
    auto *exit = Frame().findChild<QAction *>(QStringLiteral("mnuExit"));
    exit->trigger();
    EXPECT_FALSE(Frame().isVisible());
    EXPECT_FALSE(app.frame.IsLoaded());
}

TEST_F(FrameTest, TheActiveChildHearsThatTheFrameHasLostTheScreen)
{
    StubForm &form = NewForm();
    app.children.Show(form);
    form.heard.clear();
    QEvent gone(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&Frame(), &gone);
    EXPECT_THAT(form.TakeHeard(), testing::ElementsAre("Form_LostFocus"));
}

} // namespace

} // namespace velluto::test
