// The least that a program of this shape can be: a frame with a menu bar, an area for windows and a status bar, by the toolkit alone.
// What the start of the real one is measured against.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QStatusBar>

int main(int argc, char **argv)
{
    constexpr int kMenus = 8;
    constexpr int kEntries = 18;
    const QApplication application(argc, argv);
    QMainWindow frame;
    frame.setWindowTitle(QStringLiteral("Bare frame"));
    frame.setCentralWidget(new QMdiArea);
    for (int menu = 0; menu < kMenus; ++menu) {
        QMenu *entries = frame.menuBar()->addMenu(QStringLiteral("Menu %1").arg(menu));
        for (int entry = 0; entry < kEntries; ++entry) {
            entries->addAction(QStringLiteral("Entry %1").arg(entry));
        }
    }
    frame.statusBar()->addWidget(new QLabel(QStringLiteral("What the program is")), 1);
    frame.statusBar()->addWidget(new QLabel(QStringLiteral("What the time is")));
    frame.showMaximized();
    return QApplication::exec();
}
