// One faint line in a frame without windows: how to open a file, where the sounds are, where the guide is. Used by ChildArea.
#pragma once

#include <QMdiArea>

namespace velluto {

class EmptyHint : public QWidget {
public:
    // The area owns it.
    explicit EmptyHint(QMdiArea &area);
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QMdiArea &area_;
};

} // namespace velluto
