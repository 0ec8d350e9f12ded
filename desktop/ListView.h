// The list that flows in snaking columns: top to bottom, then on to the right, as many columns as the control says in
// the width it has; or a list in one column that scrolls down. It draws the selection that the control holds and hands
// every press and key to the program's own list gestures; Qt's selection only follows, so that a screen reader sees the
// same.
#pragma once

#include "desktop/EventGate.h"
#include "desktop/ListModel.h"
#include "view/Gestures.h"

#include <QListView>

#include <optional>

namespace velluto {

class ListView : public QListView {
public:
    ListView(ListBox &list, EventGate &gate, QWidget *parent);

    void RowsChanged();
    void SelectionChanged();
    void CurrentChanged();
    // The control is about to go: the view draws nothing and hears nothing from then on.
    void Detach();

    // Makes the row the one where the keyboard is, as Ctrl and an arrow key do: nothing is selected and no handler hears of it.
    void LeadTo(int row);
    // The row at a point of the viewport, or -1.
    [[nodiscard]] int RowAt(const QPoint &point) const;
    [[nodiscard]] QRect visualRect(const QModelIndex &index) const override;
    [[nodiscard]] QModelIndex indexAt(const QPoint &point) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint) override;
    void doItemsLayout() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    [[nodiscard]] int horizontalOffset() const override;
    [[nodiscard]] int verticalOffset() const override;

private:
    static constexpr int kTextInset = 2; // logical pixels from a row's left edge to its first character

    [[nodiscard]] bool ScrollsDown() const { return list_->columns == 0; }
    void LayOutColumns();
    void LayOutDown();
    [[nodiscard]] QRect RowRect(int row) const;
    [[nodiscard]] int NarrowestColumn() const;
    [[nodiscard]] int RowNearest(const QPoint &point) const;
    void DrawRow(QPainter &painter, int row) const;
    void PressRow(const QMouseEvent &event, bool second);

    ListBox *list_;
    EventGate &gate_;
    ListModel *model_;
    int rowHeight_ = 1;
    int baseline_ = 1;
    int rowsPerColumn_ = 1;
    int columnWidth_ = 1;
    int longestRow_ = 0; // characters, without blanks at the end
    int topInset_ = 0;
    bool dragging_ = false;
    std::optional<quint64> releasedAt_; // when a key was let go of last: the display's milliseconds
};

} // namespace velluto
