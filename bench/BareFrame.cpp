// The least that a program of this shape can be: a frame as large as the screen with an icon, a menu bar with as many entries, an area for
// windows, and a status bar with as many words, by the toolkit alone. What the start of the real one is measured against.
#include <QApplication>
#include <QDateTime>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QPixmap>
#include <QStatusBar>

namespace {

// Of one colour: no drawing, but the display and its window manager get as much of a picture.
QIcon PlainIcon()
{
    QIcon icon;
    for (const int side : {16, 32, 48, 128}) {
        QPixmap picture(side, side);
        picture.fill(Qt::darkRed);
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace

int main(int argc, char **argv)
{
    constexpr int kMenus = 8;
    constexpr int kEntries = 18;
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(PlainIcon());
    QMainWindow frame;
    frame.setWindowTitle(QStringLiteral("Bare frame"));
    frame.setCentralWidget(new QMdiArea);
    for (int menu = 0; menu < kMenus; ++menu) {
        QMenu *entries = frame.menuBar()->addMenu(QStringLiteral("Menu %1").arg(menu));
        for (int entry = 0; entry < kEntries; ++entry) {
            entries->addAction(QStringLiteral("Entry %1").arg(entry));
        }
    }
    const QDateTime now = QDateTime::currentDateTime();
    frame.statusBar()->addWidget(new QLabel(QStringLiteral("What the program is, what it is for, and of which version and year")), 1);
    frame.statusBar()->addWidget(new QLabel(QLocale().toString(now.date(), QLocale::LongFormat)));
    frame.statusBar()->addWidget(new QLabel(QLocale().toString(now.time(), QLocale::ShortFormat)));
    frame.showMaximized();
    return QApplication::exec();
}
