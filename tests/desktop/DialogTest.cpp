// Message boxes, the file dialog, the language question.
#include "desktop/Desk.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace velluto::test {

namespace {

class DialogTest : public Desk {
protected:
    // The text of the box that comes up, answered by the button.
    struct Seen {
        QString title;
        QString text;
        QStringList buttons;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
    };
    Seen seen;
    void Answer(QMessageBox::StandardButton button)
    {
        WhenModal([this, button](QWidget &modal) {
            auto &box = dynamic_cast<QMessageBox &>(modal);
            seen = {box.windowTitle(), box.text(), {}, box.icon()};
            for (const QMessageBox::StandardButton each : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
                if (box.button(each) != nullptr) {
                    seen.buttons.append(box.button(each)->text());
                }
            }
            if (button == QMessageBox::NoButton) {
                QTest::keyClick(&box, Qt::Key_Escape);
            } else {
                QTest::mouseClick(box.button(button), Qt::LeftButton);
            }
        });
    }
};

TEST_F(DialogTest, ANoticeHasItsTitleTheExclamationIconAndOneButton)
{
    Start();
    Answer(QMessageBox::Ok);
    EXPECT_EQ(face.MessageBox("Opening a.pcg", "Error <b>5</b> & more", Box::kNotice), Box::kOk);
    EXPECT_EQ(seen.title, QStringLiteral("Opening a.pcg"));
    EXPECT_EQ(seen.text, QStringLiteral("Error <b>5</b> & more"));
    EXPECT_EQ(seen.icon, QMessageBox::Warning);
    EXPECT_EQ(seen.buttons.size(), 1);
}

TEST_F(DialogTest, ABoxHasRoomForItsWholeTitle)
{
    Start();
    const std::string title = "Closing /home/somebody/music/A rather long name of a Program file of the summer.pcg";
    QFont bold = QApplication::font();
    bold.setBold(true);
    int width = 0;
    for (const int style : {Box::kNotice, Box::kYesNoCancel}) {
        WhenModal([&width](QWidget &modal) {
            width = modal.width();
            QTest::keyClick(&modal, Qt::Key_Escape);
        });
        face.MessageBox(title, "q", style);
        EXPECT_GT(width, QFontMetrics(bold).horizontalAdvance(FromUtf8(title)));
    }
    WhenModal([&width](QWidget &modal) {
        width = modal.width();
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    face.MessageBox(std::string(4000, 'w'), "q", Box::kNotice);
    EXPECT_LE(width, Frame().screen()->availableSize().width());
}

TEST_F(DialogTest, TheSaveQuestionHasThreeButtonsWithTheirNumbers)
{
    Start();
    Answer(QMessageBox::Yes);
    EXPECT_EQ(face.MessageBox("File Program - a.pcg (1)", "The file has changed\r\nSave changes ?", Box::kYesNoCancel), 6);
    EXPECT_EQ(seen.text, QStringLiteral("The file has changed\nSave changes ?"));
    EXPECT_EQ(seen.buttons, (QStringList{QStringLiteral("&Yes"), QStringLiteral("&No"), QStringLiteral("Cancel")}));
    Answer(QMessageBox::No);
    EXPECT_EQ(face.MessageBox("t", "q", Box::kYesNoCancel), 7);
    Answer(QMessageBox::Cancel);
    EXPECT_EQ(face.MessageBox("t", "q", Box::kYesNoCancel), 2);
}

TEST_F(DialogTest, EscapeCancelsTheQuestionAndConfirmsTheNotice)
{
    Start();
    Answer(QMessageBox::NoButton);
    EXPECT_EQ(face.MessageBox("t", "q", Box::kYesNoCancel), 2);
    Answer(QMessageBox::NoButton);
    EXPECT_EQ(face.MessageBox("t", "q", Box::kNotice), 1);
}

TEST_F(DialogTest, AnItalianRunHasItalianButtons)
{
    language = TestProgram::Italian;
    Start();
    Answer(QMessageBox::Cancel);
    EXPECT_EQ(face.MessageBox("t", "q", Box::kYesNoCancel), 2);
    EXPECT_EQ(seen.buttons, (QStringList{QString::fromUtf8("&Sì"), QStringLiteral("&No"), QStringLiteral("Annulla")}));
}

TEST_F(DialogTest, AWindowClosedWhileItsHandlerWaitsInABoxLivesUntilTheHandlerEnds)
{
    Start();
    auto owned = std::make_unique<StubForm>();
    StubForm *form = owned.get();
    app.children.Show(*form);
    bool stillThere = false;
    form->Push.Click = [this, form, &owned, &stillThere] {
        app.children.Unload(*form);
        app.children.Bury(std::move(owned));
        Answer(QMessageBox::Ok);
        face.MessageBox("t", "q", Box::kNotice);
        stillThere = form->Push.enabled; // read after the box's own event loop
    };
    QTest::mouseClick(&Widget<QPushButton>(*form, "Push"), Qt::LeftButton);
    EXPECT_TRUE(stillThere);
    Settle();
}

FileDialog OpenDialog(const std::string &folder)
{
    FileDialog dialog;
    dialog.title = "Velluto v 1.1- Open File";
    dialog.folder = folder;
    dialog.filter = "Program (*.pcg)|*.pcg|Style (*.sty)|*.sty|Performance (*.prf)|*.prf|All files (*.*)|*.*|";
    dialog.filterIndex = 2;
    return dialog;
}

// Types the name as the user does and confirms.
void TypeName(QWidget &modal, const QString &name)
{
    auto *line = modal.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    line->setText(name);
    dynamic_cast<QDialog &>(modal).show();
    QTest::keyClick(line, Qt::Key_Return);
}

TEST_F(DialogTest, TheOpenDialogBeginsAsAskedAndGivesPathAndFilter)
{
    Start();
    WriteBytes(folder->At("a.sty"), {1});
    QString title;
    QString directory;
    QString filter;
    WhenModal([&](QWidget &modal) {
        auto &dialog = dynamic_cast<QFileDialog &>(modal);
        title = dialog.windowTitle();
        directory = dialog.directory().path();
        filter = dialog.selectedNameFilter();
        TypeName(modal, QStringLiteral("a.sty"));
    });
    const FileChoice choice = face.ShowFileDialog(OpenDialog(folder->Path()));
    EXPECT_EQ(title, QStringLiteral("Velluto v 1.1- Open File"));
    EXPECT_EQ(directory, QDir::fromNativeSeparators(FromUtf8(folder->Path())));
    EXPECT_EQ(filter, QStringLiteral("Style (*.sty)"));
    EXPECT_FALSE(choice.cancelled);
    EXPECT_EQ(choice.path, folder->At("a.sty"));
    EXPECT_EQ(choice.filterIndex, 2);
}

TEST_F(DialogTest, AFolderThatIsTypedIsGoneIntoAndLeavesNoName)
{
    Start();
    QDir(FromUtf8(folder->Path())).mkdir(QStringLiteral("sets"));
    WriteBytes(folder->At("sets/a.sty"), {1});
    QString left;
    WhenModal([&left](QWidget &modal) {
        TypeName(modal, QStringLiteral("sets/"));
        left = modal.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text();
        Settle(); // the list shows the folder
        TypeName(modal, left + QStringLiteral("a.sty"));
    });
    EXPECT_EQ(face.ShowFileDialog(OpenDialog(folder->Path())).path, folder->At("sets/a.sty"));
    EXPECT_EQ(left, QString());
}

// What the dialog's list says of the day of its only file. Closes the dialog.
QString DayIn(QWidget &modal)
{
    constexpr int kDayColumn = 3;
    struct Opened : QStyledItemDelegate {
        using QStyledItemDelegate::initStyleOption;
    };
    const auto *list = modal.findChild<QTreeView *>(QStringLiteral("treeView"));
    const auto *delegate = dynamic_cast<const QStyledItemDelegate *>(list->itemDelegateForColumn(kDayColumn));
    QStyleOptionViewItem option;
    // The folder is read by a thread of Qt's own.
    if (delegate != nullptr && QTest::qWaitFor([list] { return list->model()->rowCount(list->rootIndex()) > 0; })) {
        (delegate->*&Opened::initStyleOption)(&option, list->model()->index(0, kDayColumn, list->rootIndex()));
    }
    QTest::keyClick(&modal, Qt::Key_Escape);
    return option.text;
}

class DialogDates : public DialogTest {
protected:
    const QDateTime moment{QDate(2026, 11, 5), QTime(21, 30)};
    QString Day()
    {
        Start();
        WriteBytes(folder->At("a.sty"), {1});
        QFile file(FromUtf8(folder->At("a.sty")));
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(file.setFileTime(moment, QFileDevice::FileModificationTime));
        file.close();
        QString told;
        WhenModal([&told](QWidget &modal) { told = DayIn(modal); });
        face.ShowFileDialog(OpenDialog(folder->Path()));
        return told;
    }
};

TEST_F(DialogDates, AreWrittenAsInItalyInAnItalianRun)
{
    language = TestProgram::Italian;
    EXPECT_EQ(Day(), QStringLiteral("05/11/26 21:30"));
}

TEST_F(DialogDates, AreWrittenAsInEnglishInAnEnglishOne)
{
    const QLocale own = QLocale::system(); // the system's knows better, where it speaks English
    EXPECT_EQ(Day(), own.language() == QLocale::English ? own.toString(moment, QLocale::ShortFormat) : QStringLiteral("05/11/2026 21:30"));
}

TEST_F(DialogTest, TheSideBarNamesTheSamplesAndTheHomeFolder)
{
    Start();
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir(FromUtf8(folder->Path())).mkdir(QStringLiteral("samples")));
    QDir::setCurrent(FromUtf8(folder->Path()));
    QList<QUrl> places;
    WhenModal([&places](QWidget &modal) {
        places = dynamic_cast<QFileDialog &>(modal).sidebarUrls();
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    face.ShowFileDialog(OpenDialog(folder->Path()));
    EXPECT_TRUE(places.contains(QUrl::fromLocalFile(QDir::current().filePath(QStringLiteral("samples")))));
    EXPECT_TRUE(places.contains(QUrl::fromLocalFile(QDir::homePath())));
    QDir::setCurrent(before);
}

TEST_F(DialogTest, TheSideBarForgetsFoldersThatAreGoneButNoMedium)
{
    Start();
    const QUrl gone = QUrl::fromLocalFile(FromUtf8(folder->At("gone")));
    const QUrl medium = QUrl::fromLocalFile(QStringLiteral("/media/anna/STICK"));
    const QUrl computer(QStringLiteral("file:"));
    {
        QFileDialog other; // of any program: it remembers its places for all as it goes
        other.setSidebarUrls({computer, gone, medium});
    }
    QList<QUrl> places;
    WhenModal([&places](QWidget &modal) {
        places = dynamic_cast<QFileDialog &>(modal).sidebarUrls();
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    face.ShowFileDialog(OpenDialog(folder->Path()));
    EXPECT_FALSE(places.contains(gone));
    EXPECT_TRUE(places.contains(medium));
    EXPECT_TRUE(places.contains(computer));
}

TEST(MediumPlace, IsWhereSystemsPutWhatIsPluggedIn)
{
    for (const char *place : {"/media/anna/STICK", "/run/media/anna/STICK", "/mnt", "/mnt/card"}) {
        EXPECT_TRUE(IsMediumPlace(QString::fromLatin1(place))) << place;
    }
    for (const char *place : {"/", "/home", "/run", "/run/user/1000", "/mntx", "/boot/efi"}) {
        EXPECT_FALSE(IsMediumPlace(QString::fromLatin1(place))) << place;
    }
}

TEST_F(DialogTest, AFileThatIsNotThereCanBeNamedAndTheProgramSaysSo)
{
    Start();
    WhenModal([](QWidget &modal) { TypeName(modal, QStringLiteral("missing.pcg")); });
    const FileChoice choice = face.ShowFileDialog(OpenDialog(folder->Path()));
    EXPECT_FALSE(choice.cancelled);
    EXPECT_EQ(choice.path, folder->At("missing.pcg"));
}

TEST_F(DialogTest, ACancelledDialogSaysSo)
{
    Start();
    WhenModal([](QWidget &modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    EXPECT_TRUE(face.ShowFileDialog(OpenDialog(folder->Path())).cancelled);
}

FileDialog SaveDialogOf(const std::string &folder)
{
    FileDialog dialog = OpenDialog(folder);
    dialog.mode = FileDialog::Mode::Save;
    dialog.filterIndex = 1;
    dialog.proposed = "Untitled.pcg";
    dialog.extension = "pcg";
    return dialog;
}

TEST_F(DialogTest, TheSaveDialogProposesItsNameAndAddsTheExtension)
{
    Start();
    QString proposed;
    WhenModal([&proposed](QWidget &modal) {
        proposed = modal.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text();
        TypeName(modal, QStringLiteral("mine"));
    });
    const FileChoice choice = face.ShowFileDialog(SaveDialogOf(folder->Path()));
    EXPECT_EQ(proposed, QStringLiteral("Untitled.pcg"));
    EXPECT_EQ(choice.path, folder->At("mine.pcg"));
    EXPECT_EQ(choice.filterIndex, 1);
}

TEST_F(DialogTest, AFolderThatIsTypedInTheSaveDialogLeavesTheProposedName)
{
    Start();
    QDir(FromUtf8(folder->Path())).mkdir(QStringLiteral("sets"));
    WhenModal([](QWidget &modal) {
        TypeName(modal, QStringLiteral("sets/"));
        Settle();
        QTest::keyClick(modal.findChild<QLineEdit *>(QStringLiteral("fileNameEdit")), Qt::Key_Return);
    });
    EXPECT_EQ(face.ShowFileDialog(SaveDialogOf(folder->Path())).path, folder->At("sets/Untitled.pcg"));
}

TEST_F(DialogTest, SavingOverAFileAsksFirst)
{
    Start();
    WriteBytes(folder->At("mine.pcg"), {1, 2, 3});
    bool asked = false;
    WhenModal([&asked](QWidget &modal) {
        WhenModal([&asked](QWidget &question) {
            auto &box = dynamic_cast<QMessageBox &>(question);
            asked = true;
            QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
            QTimer::singleShot(0, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        });
        TypeName(modal, QStringLiteral("mine.pcg"));
    });
    EXPECT_TRUE(face.ShowFileDialog(SaveDialogOf(folder->Path())).cancelled);
    EXPECT_TRUE(asked);
}

TEST_F(DialogTest, AFolderThatIsNotThereIsToldInTheLanguageOfTheRun)
{
    Start();
    QString told;
    WhenModal([&told](QWidget &modal) {
        WhenModal([&told](QWidget &notice) {
            told = dynamic_cast<QMessageBox &>(notice).text();
            QTest::keyClick(&notice, Qt::Key_Escape);
            QTimer::singleShot(0, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        });
        TypeName(modal, QDir::rootPath() + QStringLiteral("no/such/folder/mine.pcg"));
    });
    EXPECT_TRUE(face.ShowFileDialog(SaveDialogOf(folder->Path())).cancelled);
    EXPECT_EQ(told, QStringLiteral("Path not found"));
}

TEST_F(DialogTest, TheFirstRunAsksForTheLanguage)
{
    Attach();
    QString title;
    bool italianFirst = false;
    WhenModal([&](QWidget &modal) {
        title = modal.windowTitle();
        italianFirst = modal.findChild<QRadioButton *>(QStringLiteral("Option1(0)"))->isChecked();
        QTest::mouseClick(modal.findChild<QRadioButton *>(QStringLiteral("Option1(1)")), Qt::LeftButton, {}, QPoint(8, 10));
        QTest::mouseClick(modal.findChild<QPushButton *>(QStringLiteral("CommOK")), Qt::LeftButton);
    });
    EXPECT_TRUE(StartUp(program));
    EXPECT_EQ(title, QStringLiteral("Velluto v 1.1"));
    EXPECT_TRUE(italianFirst);
    EXPECT_EQ(app.messages.LinguaBase, 200);
    EXPECT_TRUE(Frame().isMaximized());
}

TEST_F(DialogTest, AFirstRunThatIsNotAnsweredEnds)
{
    Attach();
    WhenModal([](QWidget &modal) { modal.close(); });
    EXPECT_FALSE(StartUp(program));
    EXPECT_TRUE(app.StartAborted);
    EXPECT_EQ(face.Window(), nullptr);
}

} // namespace

} // namespace velluto::test
