// The guide, the notebook and the About box under real keys and a real mouse.
#include "desktop/Desk.h"
#include "notes/frmAbout.h"
#include "notes/frmBloccoNote.h"
#include "notes/frmGuida.h"

#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>

namespace velluto::test {

namespace {

class NotesTest : public Desk {
protected:
    void PutFile(const std::string &name, std::string_view text) { WriteBytes(folder->At(name), Bytes(text.begin(), text.end())); }
    [[nodiscard]] std::string Saved() const
    {
        const Bytes bytes = ReadBytes(folder->At("Velluto-Notebook.txt"));
        return {bytes.begin(), bytes.end()};
    }
    [[nodiscard]] QPlainTextEdit &Text(const Form &form) { return Widget<QPlainTextEdit>(form, "Text1"); }
};

// Contents of three lines, then three chapters of a hundred lines each.
std::string LongGuide()
{
    std::string text = "First chapter\r\nSecond chapter\r\nThird chapter\r\n";
    for (const char *heading : {"First chapter", "Second chapter", "Third chapter"}) {
        text += std::string("\r\n") + heading + "\r\n";
        for (int line = 1; line <= 100; ++line) {
            text += "line " + std::to_string(line) + "\r\n";
        }
    }
    return text;
}

class GuideOnDeskTest : public NotesTest {
protected:
    void SetUp() override
    {
        Start();
        PutFile("Velluto-UserGuide.txt", LongGuide());
        ChooseMenu(app.frame.mnuGuida);
        Settle();
        ASSERT_NE(program.notes.guide, nullptr);
    }
    [[nodiscard]] frmGuida &Guide() { return *program.notes.guide; }
    // Two quick presses on the middle of a line of the text, counted from 0.
    void DoubleClickLine(int line)
    {
        QPlainTextEdit &text = Text(Guide());
        QTextCursor cursor(text.document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 4);
        const QPoint point = text.cursorRect(cursor).center();
        ASSERT_TRUE(text.viewport()->rect().contains(point));
        QTest::mouseClick(text.viewport(), Qt::LeftButton, {}, point);
        QTest::mouseDClick(text.viewport(), Qt::LeftButton, {}, point);
        Settle();
    }
    [[nodiscard]] QString TopLine()
    {
        QPlainTextEdit &text = Text(Guide());
        return text.cursorForPosition(QPoint(8, 8)).block().text();
    }
};

TEST_F(GuideOnDeskTest, ADoubleClickBringsTheHeadingToTheTopOfTheView)
{
    EXPECT_EQ(TopLine(), QStringLiteral("First chapter"));
    DoubleClickLine(1);
    EXPECT_EQ(TopLine(), QStringLiteral("Second chapter"));
    EXPECT_GT(Text(Guide()).verticalScrollBar()->value(), 90);
}

TEST_F(GuideOnDeskTest, AHeadingThatIsInViewAlreadyComesToTheTopToo)
{
    DoubleClickLine(0);
    EXPECT_EQ(TopLine(), QStringLiteral("First chapter"));
    EXPECT_EQ(Text(Guide()).verticalScrollBar()->value(), 4);
}

TEST_F(GuideOnDeskTest, FromTheLastOfItsKindBackToTheTopAndDownAgain)
{
    DoubleClickLine(1);
    DoubleClickLine(105); // the heading itself
    EXPECT_EQ(Text(Guide()).verticalScrollBar()->value(), 0);
    DoubleClickLine(1);
    EXPECT_EQ(TopLine(), QStringLiteral("Second chapter"));
}

TEST_F(GuideOnDeskTest, NearTheEndItShowsAsMuchAsTheTextHas)
{
    PutFile("Velluto-UserGuide.txt", LongGuide() + "Last words\r\n");
    Window(Guide()).close();
    Settle();
    PutFile("Velluto-UserGuide.txt", "Last words\r\n" + LongGuide() + "Last words\r\n");
    ChooseMenu(app.frame.mnuGuida);
    Settle();
    DoubleClickLine(0);
    const QScrollBar &bar = *Text(Guide()).verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    EXPECT_GT(bar.maximum(), 0);
}

TEST_F(GuideOnDeskTest, WhereLinesAreBrokenTheHeadingStillComesToTheTop)
{
    PutFile("Velluto-UserGuide.txt",
            "Heading\r\n" + std::string(400, 'x') + "\r\n" + std::string(900, 'y') + "\r\nHeading\r\n" + LongGuide());
    Window(Guide()).close();
    Settle();
    ChooseMenu(app.frame.mnuGuida);
    Settle();
    Text(Guide()).grab(); // lines are broken as they are drawn
    DoubleClickLine(0);
    EXPECT_EQ(Text(Guide()).cursorForPosition(QPoint(8, 8)).blockNumber(), 3);
}

// As far as there is text below a heading to fill the view.
TEST_F(GuideOnDeskTest, EveryLineOfTheContentsOfBothShippedGuidesBringsItsHeadingToTheTop)
{
    for (const char *file : {"Velluto-UserGuide.txt", "Velluto-GuidaUtente.txt"}) {
        const Bytes shipped = ReadBytes(std::string(VELLUTO_DATA) + "/" + file);
        PutFile("Velluto-UserGuide.txt", {reinterpret_cast<const char *>(shipped.data()), shipped.size()});
        Window(Guide()).close();
        Settle();
        ChooseMenu(app.frame.mnuGuida);
        Settle();
        const QTextDocument &document = *Text(Guide()).document();
        QScrollBar &bar = *Text(Guide()).verticalScrollBar();
        int lines = 0;
        for (int line = 7; !document.findBlockByNumber(line).text().isEmpty(); ++line, ++lines) {
            const QString words = document.findBlockByNumber(line).text();
            bar.setValue(line);
            DoubleClickLine(line);
            const int heading = Text(Guide()).textCursor().blockNumber();
            EXPECT_EQ(document.findBlockByNumber(heading).text(), words);
            EXPECT_EQ(document.findBlockByNumber(heading + 1).text(), QString(words.size(), QLatin1Char('-')));
            EXPECT_EQ(bar.value(), std::min(heading, bar.maximum())) << words.toStdString();
        }
        EXPECT_EQ(lines, 28) << file;
    }
}

TEST_F(GuideOnDeskTest, KeysScrollAndChangeNothing)
{
    QPlainTextEdit &text = Text(Guide());
    text.setFocus();
    const QString before = text.toPlainText();
    QTest::keyClicks(&text, QStringLiteral("abc"));
    QTest::keyClick(&text, Qt::Key_Delete);
    QTest::keyClick(&text, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text.toPlainText(), before);
    QTest::keyClick(&text, Qt::Key_PageDown);
    EXPECT_GT(text.verticalScrollBar()->value(), 5);
    QTest::keyClick(&text, Qt::Key_End);
    EXPECT_EQ(text.verticalScrollBar()->value(), text.verticalScrollBar()->maximum());
    QTest::keyClick(&text, Qt::Key_Home);
    EXPECT_EQ(text.verticalScrollBar()->value(), 0);
}

TEST_F(GuideOnDeskTest, AllWindowsOfTheRoomHaveNamesForAScreenReader)
{
    ChooseMenu(app.frame.mnuBloccoNote);
    ChooseMenu(app.frame.mnuInfo);
    Settle();
    EXPECT_EQ(Text(Guide()).accessibleName(), QStringLiteral("User's Guide"));
    EXPECT_EQ(Text(*program.notes.notebook).accessibleName(), QStringLiteral("Notebook"));
    EXPECT_EQ(Widget<QWidget>(*program.notes.about, "picVelluto").accessibleName(), QStringLiteral("Velluto"));
    EXPECT_EQ(Widget<QLabel>(*program.notes.about, "lblTitolo").text(),
              QStringLiteral("Velluto v 1.1 - KORG PA80 real time control/file manager\nversion 1.1, May 2005"));
}

class NotebookOnDeskTest : public NotesTest {
protected:
    void SetUp() override
    {
        Start();
        // Whatever the menu's commands were, they would be heard of.
        for (MenuEntry *entry : {&app.frame.mnuTaglia, &app.frame.mnuCopia, &app.frame.mnuIncolla, &app.frame.mnuPcgApri}) {
            entry->Click = [this] { ++commands; };
        }
        app.frame.mnuModifica.Drop = [this] {
            for (MenuEntry *entry : {&app.frame.mnuTaglia, &app.frame.mnuCopia, &app.frame.mnuIncolla}) {
                entry->enabled = true;
            }
        };
        ChooseMenu(app.frame.mnuBloccoNote);
        Settle();
        ASSERT_NE(program.notes.notebook, nullptr);
        edit = &Text(Notebook());
    }
    [[nodiscard]] frmBloccoNote &Notebook() { return *program.notes.notebook; }
    void Press(int key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(edit, static_cast<Qt::Key>(key), modifiers); }
    void Keys(const char *text) { QTest::keyClicks(edit, QString::fromUtf8(text)); }
    // As from an input method, which gives characters that no key has.
    void Compose(const char *text)
    {
        QInputMethodEvent event;
        event.setCommitString(QString::fromUtf8(text));
        QCoreApplication::sendEvent(edit, &event);
    }

    QPlainTextEdit *edit = nullptr;
    int commands = 0;
};

TEST_F(NotebookOnDeskTest, TypingBeginsAtOnceWithoutAClick)
{
    ASSERT_EQ(QApplication::focusWidget(), edit);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Notes"));
    EXPECT_EQ(Notebook().Text1.text.Get(), "Notes");
}

TEST_F(NotebookOnDeskTest, CtrlZTakesBackTypingAndRunsNoCommand)
{
    Keys("one");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Notebook().Text1.text.Get(), "");
    EXPECT_EQ(commands, 0);
}

TEST_F(NotebookOnDeskTest, CtrlZRightAfterTheOpeningLeavesTheTextThatWasThere)
{
    Keys("kept");
    Window(Notebook()).close();
    Settle();
    ChooseMenu(app.frame.mnuBloccoNote);
    Settle();
    edit = &Text(Notebook());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Notebook().Text1.text.Get(), "kept");
}

TEST_F(NotebookOnDeskTest, CtrlCAndCtrlVCopyText)
{
    Keys("ab");
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("ab"));
    Press(Qt::Key_End);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Notebook().Text1.text.Get(), "abab");
    EXPECT_EQ(commands, 0);
}

TEST_F(NotebookOnDeskTest, CtrlXCutsText)
{
    Keys("ab");
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Notebook().Text1.text.Get(), "");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("ab"));
    EXPECT_EQ(commands, 0);
}

TEST_F(NotebookOnDeskTest, TheTabKeyWritesATab)
{
    Keys("a");
    Press(Qt::Key_Tab);
    Keys("b");
    EXPECT_EQ(Notebook().Text1.text.Get(), "a\tb");
}

TEST_F(NotebookOnDeskTest, ACharacterThatCannotBeKeptIsNotThereAndTheReasonIs)
{
    Keys("ac");
    Press(Qt::Key_Left);
    Compose("\u2264");
    EXPECT_EQ(edit->toPlainText(), QStringLiteral("ac"));
    EXPECT_EQ(edit->textCursor().position(), 1);
    EXPECT_EQ(Widget<QLabel>(Notebook(), "lblStato").text(), QStringLiteral("The notebook cannot hold the character \"\u2264\""));
    Compose("\u20AC");
    EXPECT_EQ(edit->toPlainText(), QStringLiteral("a\u20ACc"));
    EXPECT_EQ(Widget<QLabel>(Notebook(), "lblStato").text(), QStringLiteral("3 of 32000 characters"));
}

TEST_F(NotebookOnDeskTest, AfterARefusalWhatWasTypedBeforeCanStillBeTakenBack)
{
    Keys("kept");
    Press(Qt::Key_Return);
    Compose("\u266F");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(edit->document()->isUndoAvailable() || edit->toPlainText().isEmpty());
    while (edit->document()->isUndoAvailable()) {
        Press(Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(Notebook().Text1.text.Get(), "");
    EXPECT_EQ(edit->toPlainText(), QString());
}

TEST_F(NotebookOnDeskTest, APieceTooLongIsPastedAsFarAsThereIsRoom)
{
    Keys("end");
    Press(Qt::Key_Home);
    QApplication::clipboard()->setText(QString(32000, QLatin1Char('x')));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Notebook().Text1.text.Get(), std::string(31997, 'x') + "end");
    EXPECT_EQ(edit->toPlainText().size(), 32000);
    EXPECT_EQ(edit->textCursor().position(), 31997);
    Keys("y");
    EXPECT_EQ(edit->toPlainText().size(), 32000);
    Press(Qt::Key_Backspace);
    Keys("y");
    EXPECT_EQ(Notebook().Text1.text.Get(), std::string(31996, 'x') + "yend");
}

TEST_F(NotebookOnDeskTest, BlanksThatDoNotBreakAndLinesComeBackAsTheyWere)
{
    Compose("10\u00A0kg");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Keys("x");
    EXPECT_EQ(Notebook().Text1.text.Get(), "10\u00A0kg\r\n\r\nx");
    Window(Notebook()).close();
    Settle();
    EXPECT_EQ(Saved().substr(0, 11), "10\xA0kg\r\n\r\nx ");
}

TEST_F(NotebookOnDeskTest, TheRightButtonOffersTheUsualEditing)
{
    // Qt's own menu; the program's Edit menu, which is about items, does not pop up.
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20), edit->viewport()->mapToGlobal(QPoint(20, 20)));
    QCoreApplication::sendEvent(edit->viewport(), &event);
    QWidget *popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    EXPECT_GE(popup->actions().size(), 6);
    popup->close();
}

TEST_F(NotebookOnDeskTest, ACloseThatCannotWriteLeavesTheWindowAndItsText)
{
    Keys("precious");
    std::filesystem::remove(folder->At("Velluto-Notebook.txt"));
    std::filesystem::create_directory(folder->At("Velluto-Notebook.txt"));
    WhenModal([](QWidget &box) { QTest::keyClick(&box, Qt::Key_Return); });
    Window(Notebook()).close();
    Settle();
    ASSERT_NE(program.notes.notebook, nullptr);
    EXPECT_TRUE(Window(Notebook()).isVisible());
    EXPECT_EQ(edit->toPlainText(), QStringLiteral("precious"));
    std::filesystem::remove(folder->At("Velluto-Notebook.txt"));
    Window(Notebook()).close();
    Settle();
    EXPECT_EQ(program.notes.notebook, nullptr);
    EXPECT_EQ(Saved().substr(0, 9), "precious ");
}

class AboutOnDeskTest : public NotesTest {
protected:
    void SetUp() override
    {
        Start();
        ChooseMenu(app.frame.mnuInfo);
        Settle();
        ASSERT_NE(program.notes.about, nullptr);
    }
};

TEST_F(AboutOnDeskTest, ReturnEscapeAndAPressOnOkCloseIt)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Enter, Qt::Key_Space}) {
        if (program.notes.about == nullptr) {
            ChooseMenu(app.frame.mnuInfo);
            Settle();
        }
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key);
        Settle();
        EXPECT_EQ(program.notes.about, nullptr) << key;
    }
    ChooseMenu(app.frame.mnuInfo);
    Settle();
    QTest::mouseClick(&Widget<QPushButton>(*program.notes.about, "cmdOK"), Qt::LeftButton);
    Settle();
    EXPECT_EQ(program.notes.about, nullptr);
}

TEST_F(AboutOnDeskTest, ItsPictureIsDrawn)
{
    auto &picture = Widget<QWidget>(*program.notes.about, "picVelluto");
    EXPECT_EQ(picture.size(), QSize(96, 96));
    EXPECT_EQ(picture.focusPolicy(), Qt::NoFocus);
    const QImage drawn = picture.grab().toImage();
    EXPECT_NE(drawn.pixelColor(48, 48), drawn.pixelColor(0, 0));
}

} // namespace

} // namespace velluto::test
