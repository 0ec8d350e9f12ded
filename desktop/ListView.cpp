#include "desktop/ListView.h"

#include "app/FixedText.h"
#include "desktop/Fonts.h"
#include "desktop/Keys.h"

#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <limits>

namespace velluto {

namespace {

// Between two columns the background shows, so that selected rows of neighbouring columns stay apart.
constexpr int kColumnGap = 2;

bool IsListKey(int code)
{
    return (code >= Key::PageUp && code <= Key::Down) || code == Key::Delete;
}

} // namespace

ListView::ListView(ListBox &list, EventGate &gate, QWidget *parent)
    : QListView(parent), list_(&list), gate_(gate), model_(new ListModel(list, this))
{
    setModel(model_);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(list.multiSelect ? ExtendedSelection : SingleSelection);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFont(ToQFont(list.font));
    rowHeight_ = RowHeight(font());
    baseline_ = RowBaseline(font());
    if (ScrollsDown()) { // an ordinary list of the machine
        constexpr int kAir = 2;
        rowHeight_ = QFontMetrics(font()).height() + 2 * kAir;
        baseline_ = QFontMetrics(font()).ascent() + kAir;
    }
    SelectionChanged();
}

void ListView::Detach()
{
    model_->Detach();
    list_ = nullptr;
    dragging_ = false;
}

void ListView::RowsChanged()
{
    longestRow_ = 0;
    for (const std::string &row : list_->Rows()) {
        longestRow_ = std::max(longestRow_, static_cast<int>(RightTrimmed(row).size()));
    }
    model_->Refresh();
    updateGeometries();
    SelectionChanged();
}

void ListView::SelectionChanged()
{
    if (list_ == nullptr) {
        return;
    }
    QItemSelection selection;
    for (int row = 0; row < list_->ListCount(); ++row) {
        const int first = row;
        while (list_->Selected(row)) {
            ++row;
        }
        if (row > first) {
            selection.select(model_->index(first), model_->index(row - 1));
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    CurrentChanged();
}

void ListView::CurrentChanged()
{
    if (list_ != nullptr) {
        selectionModel()->setCurrentIndex(model_->index(list_->ListIndex()), QItemSelectionModel::NoUpdate);
        viewport()->update();
    }
}

void ListView::LeadTo(int row)
{
    if (list_ != nullptr && row >= 0 && row < list_->ListCount()) {
        list_->SetListIndex(row);
        viewport()->update();
    }
}

// ---- where rows lie

void ListView::doItemsLayout()
{
    QAbstractItemView::doItemsLayout();
    updateGeometries();
}

void ListView::resizeEvent(QResizeEvent *event)
{
    QAbstractItemView::resizeEvent(event);
    updateGeometries();
}

// Names of items are one byte a character and one width: their columns are never so narrow that a row is cut.
int ListView::NarrowestColumn() const
{
    if (list_->encoding != ListBox::Encoding::Windows1252) {
        return 1;
    }
    const double letter = QFontMetricsF(font()).horizontalAdvance(QLatin1Char('A'));
    return static_cast<int>(std::ceil(longestRow_ * letter)) + kTextInset + kColumnGap;
}

void ListView::updateGeometries()
{
    if (list_ == nullptr) {
        return;
    }
    if (ScrollsDown()) {
        LayOutDown();
    } else {
        LayOutColumns();
    }
}

// All rows lie in one column, which may be longer than the view.
void ListView::LayOutDown()
{
    const int rows = list_->ListCount();
    const int visible = std::max(contentsRect().height() / rowHeight_, 1);
    const Qt::ScrollBarPolicy policy = rows > visible ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
    if (verticalScrollBarPolicy() != policy) {
        setVerticalScrollBarPolicy(policy);
    }
    rowsPerColumn_ = std::max(rows, 1);
    columnWidth_ = std::max(viewport()->width(), 1);
    topInset_ = 0;
    list_->rowsPerColumn = visible;
    verticalScrollBar()->setSingleStep(rowHeight_);
    verticalScrollBar()->setPageStep(visible * rowHeight_);
    verticalScrollBar()->setRange(0, std::max((rows - visible) * rowHeight_, 0));
}

void ListView::LayOutColumns()
{
    const int columns = std::max(list_->columns, 1);
    const int rows = list_->ListCount();
    const auto columnsFor = [rows](int perColumn) { return (rows + perColumn - 1) / perColumn; };
    const int whole = contentsRect().height();
    const int most = list_->longestColumn > 0 ? list_->longestColumn : std::numeric_limits<int>::max();
    const auto rowsIn = [this, most](int height) { return std::clamp(height / rowHeight_, 1, most); };
    const int perColumnWithoutBar = rowsIn(whole);
    columnWidth_ = std::max({viewport()->width() / columns, NarrowestColumn(), 1});
    const bool bar = columnsFor(perColumnWithoutBar) > columns || columnsFor(perColumnWithoutBar) * columnWidth_ > viewport()->width();
    const Qt::ScrollBarPolicy policy = bar ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
    if (horizontalScrollBarPolicy() != policy) {
        setHorizontalScrollBarPolicy(policy);
    }
    const int height = viewport()->height();
    rowsPerColumn_ = rowsIn(height);
    // What is left over of the height is shared above and below, but the rows of a tall list begin at its top.
    topInset_ = std::clamp((height - rowsPerColumn_ * rowHeight_) / 2, 0, rowHeight_ / 2);
    list_->rowsPerColumn = rowsPerColumn_;
    const int width = columnsFor(rowsPerColumn_) * columnWidth_;
    horizontalScrollBar()->setSingleStep(columnWidth_);
    horizontalScrollBar()->setPageStep(viewport()->width());
    // Whole columns stand at the left edge; of one that is wider than the view the end can be seen too.
    const int room = viewport()->width();
    const int seen = columnWidth_ > room ? room : room / columnWidth_ * columnWidth_;
    horizontalScrollBar()->setRange(0, bar ? std::max(width - seen, 0) : 0);
}

// Qt would move the rows that its own layout knows of, and it knows of none.
void ListView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    viewport()->update();
}

int ListView::horizontalOffset() const
{
    return horizontalScrollBar()->value();
}

int ListView::verticalOffset() const
{
    return verticalScrollBar()->value();
}

QRect ListView::RowRect(int row) const
{
    const int column = row / rowsPerColumn_;
    return {column * columnWidth_ - horizontalOffset(), topInset_ + row % rowsPerColumn_ * rowHeight_ - verticalOffset(),
            columnWidth_ - (list_ != nullptr && ScrollsDown() ? 0 : kColumnGap), rowHeight_};
}

QRect ListView::visualRect(const QModelIndex &index) const
{
    return index.isValid() ? RowRect(index.row()) : QRect();
}

int ListView::RowAt(const QPoint &point) const
{
    const int y = point.y() + verticalOffset();
    if (list_ == nullptr || point.x() < 0 || y < topInset_ || y >= topInset_ + rowsPerColumn_ * rowHeight_) {
        return -1;
    }
    const int row = (point.x() + horizontalOffset()) / columnWidth_ * rowsPerColumn_ + (y - topInset_) / rowHeight_;
    return row < list_->ListCount() ? row : -1;
}

int ListView::RowNearest(const QPoint &point) const
{
    const QPoint inside(std::clamp(point.x(), 0, std::max(viewport()->width() - 1, 0)),
                        std::clamp(point.y(), topInset_, std::min(topInset_ + rowsPerColumn_ * rowHeight_, viewport()->height()) - 1));
    const int row = RowAt(inside);
    return row >= 0 ? row : list_->ListCount() - 1;
}

QModelIndex ListView::indexAt(const QPoint &point) const
{
    const int row = RowAt(point);
    return row >= 0 ? model_->index(row) : QModelIndex();
}

void ListView::scrollTo(const QModelIndex &index, ScrollHint /*hint*/)
{
    if (!index.isValid()) {
        return;
    }
    const QRect rect = RowRect(index.row());
    QScrollBar *down = verticalScrollBar();
    if (rect.top() < 0) {
        down->setValue(down->value() + rect.top());
    } else if (rect.bottom() >= viewport()->height()) {
        down->setValue(down->value() + rect.bottom() - viewport()->height() + 1);
    }
    QScrollBar *bar = horizontalScrollBar();
    if (rect.left() < 0) {
        bar->setValue(bar->value() + rect.left());
    } else if (rect.right() >= viewport()->width()) {
        bar->setValue(bar->value() + rect.right() - viewport()->width() + 1);
    }
    viewport()->update();
}

// ---- hands

void ListView::PressRow(const QMouseEvent &event, bool second)
{
    const EventGate::Pass pass(gate_);
    const int row = RowAt(event.position().toPoint());
    Raise(list_->MouseDown, ButtonCode(event.button()));
    // The handler may have closed the window.
    if (list_ == nullptr || event.button() != Qt::LeftButton) {
        return;
    }
    const Modifier modifier = ToModifier(event.modifiers());
    dragging_ = row >= 0;
    if (second && modifier == Modifier::None) {
        ListGesture::DoubleClickRow(*list_, row);
    } else {
        ListGesture::ClickRow(*list_, row, modifier);
    }
}

void ListView::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (list_ != nullptr) {
        PressRow(*event, false);
    }
}

void ListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
    if (list_ != nullptr) {
        PressRow(*event, true);
    }
}

void ListView::mouseMoveEvent(QMouseEvent *event)
{
    dragging_ = dragging_ && event->buttons().testFlag(Qt::LeftButton);
    if (list_ != nullptr && dragging_ && list_->ListCount() > 0) {
        const EventGate::Pass pass(gate_);
        ListGesture::DragTo(*list_, RowNearest(event->position().toPoint()));
    }
}

void ListView::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    dragging_ = false;
}

void ListView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    // The mouse has told of itself at the press; the keyboard's menu key stands for it.
    if (list_ != nullptr && event->reason() == QContextMenuEvent::Keyboard) {
        const EventGate::Pass pass(gate_);
        Raise(list_->MouseDown, MouseButton::Right);
    }
}

void ListView::keyPressEvent(QKeyEvent *event)
{
    const int code = KeyCode(*event);
    const bool opens = code == Key::Return && list_ != nullptr && list_->DblClick && list_->ListIndex() >= 0;
    const bool presses = event->key() == Qt::Key_Space && list_ != nullptr && list_->ListIndex() >= 0;
    event->setAccepted(IsListKey(code) || opens || presses);
    // Held down a moment too long, Delete would come again: to a row that is empty by now, and a Cut that finds no item
    // leaves the file with none.
    if (code == Key::Delete && (event->isAutoRepeat() || event->timestamp() == releasedAt_)) {
        return;
    }
    if (list_ != nullptr && code != 0) {
        const EventGate::Pass pass(gate_);
        PressKey(*list_, code, ToModifier(event->modifiers()));
        if (presses && list_ != nullptr && !event->isAutoRepeat()) { // the keyboard's click on the row that it has been led to
            ListGesture::ClickRow(*list_, list_->ListIndex(), ToModifier(event->modifiers()));
        }
    }
}

void ListView::keyReleaseEvent(QKeyEvent *event)
{
    // A display tells of a key that repeats as released and pressed at one moment, and Qt does not always see the two as one.
    releasedAt_ = event->timestamp();
    QListView::keyReleaseEvent(event);
}

void ListView::wheelEvent(QWheelEvent *event)
{
    if (list_ != nullptr && ScrollsDown()) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    if (horizontalScrollBar()->maximum() == 0) {
        event->ignore();
        return;
    }
    const QPoint turned = event->angleDelta();
    const int steps = turned.y() != 0 ? turned.y() : turned.x();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - (steps > 0 ? columnWidth_ : -columnWidth_));
    event->accept();
}

void ListView::focusInEvent(QFocusEvent *event)
{
    // Qt would make the first row current here.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void ListView::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

} // namespace velluto
