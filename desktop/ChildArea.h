// The inside of the frame where the child windows live. When a window reaches beyond it scroll bars appear; scrolling
// moves what is seen, and no window's own place. Alt+- opens the active window's menu.
#pragma once

#include <QMdiArea>

namespace velluto {

class ChildArea : public QMdiArea {
public:
    explicit ChildArea(QWidget *parent);

    // How far the windows have been scrolled: a window at p is drawn at p + Offset().
    [[nodiscard]] QPoint Offset() const { return offset_; }
    [[nodiscard]] bool IsScrolling() const { return scrolling_; }
    // Back to where nothing is scrolled away.
    void ScrollHome();

protected:
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent *event) override;

private:
    void TakeBackground();

    QPoint offset_;
    bool scrolling_ = false;
};

} // namespace velluto
