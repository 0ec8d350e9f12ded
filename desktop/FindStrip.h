// The strip that finds words in the front window: in its lists, or in the guide. It frames what matches and scrolls there; it selects
// nothing and sends nothing. Used by MainWindow.
#pragma once

#include "desktop/EventGate.h"
#include "desktop/ListView.h"
#include "view/Form.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QPointer>

#include <vector>

namespace velluto {

// Ctrl+F opens the strip over the active window of the area.
void InstallFind(QWidget &frame, QMdiArea &area, EventGate &gate);

// The frames around the rows of one list that match.
class FindMarks : public QWidget {
public:
    explicit FindMarks(ListView &view);
    void Show(const QString &words, int current); // no words: no frames; current: the row found last, -1 for none
    [[nodiscard]] bool Matches(int row) const;
    [[nodiscard]] ListView &View() const { return view_; }
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ListView &view_;
    QString words_;
    int current_ = -1;
};

class FindStrip : public QFrame {
public:
    // Over the surface of a form that has lists or a text to look through.
    FindStrip(QWidget &surface, EventGate &gate);
    ~FindStrip() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    // Null where the window has nothing to look through. The strip that is there comes forward.
    static FindStrip *Open(QWidget &surface, EventGate &gate);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Hit {
        std::size_t list; // of marks_; in a text 0
        int at;           // a row, or a position in the text
    };
    void Look();
    void Next(int step);
    void Reveal();
    void MakeCurrent(ListView &view, int row);
    void ShowInText();
    void PlaceItself();
    void Close();
    [[nodiscard]] QRect CurrentRect() const;

    QWidget &surface_;
    EventGate &gate_;
    std::vector<QPointer<FindMarks>> marks_;
    QPointer<QPlainTextEdit> text_;
    QLineEdit *words_;
    QLabel *count_;
    std::vector<Hit> hits_;
    int current_ = -1; // of hits_
};

} // namespace velluto
