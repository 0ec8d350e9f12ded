// The strip that finds words in the front window.
#include "desktop/FindStrip.h"
#include "desktop/PlayerDesk.h"

#include <QPlainTextEdit>
#include <QScrollBar>

namespace velluto::test {

namespace {

class FindTest : public Desk {
protected:
    void SetUp() override { Start(); }
    // Ctrl+F over a list of 64 rows; nullptr where no strip came up.
    QLineEdit *Find(const Form &form)
    {
        QTest::keyClick(&Frame(), Qt::Key_F, Qt::ControlModifier);
        const auto *strip = Window(form).widget()->findChild<QFrame *>(QStringLiteral("FindStrip"));
        return strip != nullptr ? strip->findChild<QLineEdit *>() : nullptr;
    }
    StubForm &Stub()
    {
        StubForm &form = NewForm();
        app.children.Show(form);
        Settle();
        return form;
    }
};

TEST_F(FindTest, LettersFrameRowsAndEnterGoesFromOneToTheNextWithoutAnEvent)
{
    StubForm &form = Stub();
    const QImage before = List(form).viewport()->grab().toImage();
    QLineEdit *words = Find(form);
    ASSERT_NE(words, nullptr);
    EXPECT_TRUE(words->hasFocus());
    QTest::keyClicks(words, QStringLiteral("6"));
    EXPECT_NE(List(form).viewport()->grab().toImage(), before);
    form.heard.clear();
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(form.List1.ListIndex(), 5);
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(form.List1.ListIndex(), 15);
    QTest::keyClick(words, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(words, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(form.List1.ListIndex(), 63); // round the ends
    EXPECT_TRUE(SelectedRows(form.List1).empty());
    EXPECT_TRUE(form.TakeHeard().empty());
}

TEST_F(FindTest, EscapeTakesTheFramesAwayAndSpacePressesTheRowThatWasFound)
{
    StubForm &form = Stub();
    QLineEdit *words = Find(form);
    QTest::keyClicks(words, QStringLiteral("33"));
    QTest::keyClick(words, Qt::Key_Return);
    QTest::keyClick(words, Qt::Key_Escape);
    Settle();
    EXPECT_EQ(Window(form).widget()->findChild<QFrame *>(QStringLiteral("FindStrip")), nullptr);
    EXPECT_TRUE(List(form).viewport()->findChildren<QWidget *>().isEmpty());
    EXPECT_TRUE(List(form).hasFocus());
    form.heard.clear();
    QTest::keyClick(&List(form), Qt::Key_Space);
    EXPECT_EQ(SelectedRows(form.List1), std::vector<int>{32});
    EXPECT_THAT(form.TakeHeard(), testing::Contains("Click 32"));
}

TEST_F(FindTest, ARowOutOfSightIsScrolledTo)
{
    StubForm &form = Stub();
    std::vector<std::string> rows(400, "row");
    rows[390] = "There";
    form.List1.SetRows(rows);
    QLineEdit *words = Find(form);
    QTest::keyClicks(words, QStringLiteral("tHERE"));
    QTest::keyClick(words, Qt::Key_Return);
    const QRect row = List(form).visualRect(List(form).model()->index(390, 0));
    EXPECT_TRUE(List(form).viewport()->rect().contains(row));
    const QWidget &strip = *words->parentWidget();
    const QRect there(List(form).viewport()->mapTo(strip.parentWidget(), row.topLeft()), row.size());
    EXPECT_FALSE(strip.geometry().intersects(there));
}

TEST_F(FindTest, TheGuideIsSearchedWithoutMovingTheCaret)
{
    Bytes text;
    for (int line = 0; line < 300; ++line) {
        const std::string words = line == 250 ? "the Piano\r\n" : "a line\r\n";
        text.insert(text.end(), words.begin(), words.end());
    }
    WriteBytes(folder->At("Velluto-UserGuide.txt"), text);
    ChooseMenu(app.frame.mnuGuida);
    Settle();
    const Form &guide = *app.children.Active();
    QLineEdit *words = Find(guide);
    ASSERT_NE(words, nullptr);
    QTest::keyClicks(words, QStringLiteral("piano"));
    QTest::keyClick(words, Qt::Key_Return);
    auto &edit = Widget<QPlainTextEdit>(guide, "Text1");
    EXPECT_GT(edit.verticalScrollBar()->value(), 200);
    EXPECT_EQ(edit.textCursor().position(), 0);
    EXPECT_EQ(edit.extraSelections().size(), 1);
    QTest::keyClick(words, Qt::Key_Escape);
    EXPECT_TRUE(edit.extraSelections().isEmpty());
}

TEST_F(FindTest, AWindowWithoutRowsHasNoStrip)
{
    QTest::keyClick(&Frame(), Qt::Key_F, Qt::ControlModifier); // no window at all
    ChooseMenu(app.frame.mnuBloccoNote);
    Settle();
    EXPECT_EQ(Find(*app.children.Active()), nullptr);
}

} // namespace

} // namespace velluto::test
