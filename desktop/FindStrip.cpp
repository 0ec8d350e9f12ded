#include "desktop/FindStrip.h"

#include "desktop/QtText.h"
#include "view/Control.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPainter>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>

namespace velluto {

namespace {

// Logical pixels.
constexpr int kStripMargin = 4;
constexpr int kWordsWidth = 160;
constexpr int kCountWidth = 56;
constexpr int kLinesAbove = 3; // so many lines of a text stand above what is found

QTextEdit::ExtraSelection MarkOf(const QPlainTextEdit &edit, int position, int length, bool current)
{
    const QPalette::ColorGroup group = current ? QPalette::Active : QPalette::Inactive;
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(edit.document());
    mark.cursor.setPosition(position);
    mark.cursor.setPosition(position + length, QTextCursor::KeepAnchor);
    mark.format.setBackground(edit.palette().color(group, QPalette::Highlight));
    mark.format.setForeground(edit.palette().color(group, QPalette::HighlightedText));
    return mark;
}

} // namespace

void InstallFind(QWidget &frame, QMdiArea &area, EventGate &gate)
{
    auto *keys = new QShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | Qt::Key_F), &frame);
    QObject::connect(keys, &QShortcut::activated, &area, [&area, &gate] {
        const QMdiSubWindow *active = area.activeSubWindow();
        if (active != nullptr && active->widget() != nullptr && !active->isMinimized()) {
            FindStrip::Open(*active->widget(), gate);
        }
    });
}

// ---- the frames

FindMarks::FindMarks(ListView &view) : QWidget(view.viewport()), view_(view)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view.viewport()->installEventFilter(this);
    setGeometry(view.viewport()->rect());
    show();
}

bool FindMarks::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        setGeometry(view_.viewport()->rect());
    }
    return false;
}

void FindMarks::Show(const QString &words, int current)
{
    words_ = words;
    current_ = current;
    update();
}

bool FindMarks::Matches(int row) const
{
    return !words_.isEmpty() && view_.model()->index(row, 0).data().toString().contains(words_, Qt::CaseInsensitive);
}

void FindMarks::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    for (int row = 0; row < view_.model()->rowCount(); ++row) {
        const QRect rect = view_.visualRect(view_.model()->index(row, 0));
        if (rect.intersects(event->rect()) && Matches(row)) {
            const double width = row == current_ ? 2 : 1;
            painter.setPen(QPen(palette().color(QPalette::Active, QPalette::Link), width));
            painter.drawRect(QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2));
        }
    }
}

// ---- the strip

FindStrip *FindStrip::Open(QWidget &surface, EventGate &gate)
{
    auto *strip = dynamic_cast<FindStrip *>(surface.findChild<QFrame *>(QStringLiteral("FindStrip"), Qt::FindDirectChildrenOnly));
    if (strip == nullptr) {
        strip = new FindStrip(surface, gate);
        if (strip->marks_.empty() && strip->text_.isNull()) {
            delete strip;
            return nullptr;
        }
    }
    strip->PlaceItself();
    strip->show();
    strip->raise();
    strip->words_->setFocus(Qt::ShortcutFocusReason);
    strip->words_->selectAll();
    return strip;
}

FindStrip::FindStrip(QWidget &surface, EventGate &gate)
    : QFrame(&surface), surface_(surface), gate_(gate), words_(new QLineEdit(this)), count_(new QLabel(this))
{
    setObjectName(QStringLiteral("FindStrip"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_NoMousePropagation);
    for (QListView *list : surface.findChildren<QListView *>()) {
        auto *view = dynamic_cast<ListView *>(list);
        if (view != nullptr && view->isVisible()) {
            marks_.emplace_back(new FindMarks(*view));
        }
    }
    auto *edit = surface.findChild<QPlainTextEdit *>(QStringLiteral("Text1"), Qt::FindDirectChildrenOnly);
    if (marks_.empty() && edit != nullptr && edit->isReadOnly()) {
        text_ = edit;
    }
    const QString name = QCoreApplication::translate("FindStrip", "Find");
    words_->setPlaceholderText(name);
    words_->setAccessibleName(name);
    words_->setFixedWidth(kWordsWidth);
    count_->setFixedWidth(kCountWidth);
    count_->setAlignment(Qt::AlignCenter);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(kStripMargin, kStripMargin, kStripMargin, kStripMargin);
    layout->addWidget(words_);
    layout->addWidget(count_);
    words_->installEventFilter(this);
    surface.installEventFilter(this);
    connect(words_, &QLineEdit::textChanged, this, [this] { Look(); });
}

FindStrip::~FindStrip()
{
    for (const QPointer<FindMarks> &marks : marks_) {
        delete marks.data();
    }
}

bool FindStrip::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &surface_ && event->type() == QEvent::Resize) {
        PlaceItself();
    }
    if (watched != words_ || event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (key.key() == Qt::Key_Escape) {
        Close();
        return true;
    }
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        Next(key.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
        return true;
    }
    return false;
}

// What the field leaves over is nobody's: the window's own keys are for the window.
void FindStrip::keyPressEvent(QKeyEvent *event)
{
    event->accept();
}

void FindStrip::Look()
{
    const QString words = words_->text();
    hits_.clear();
    current_ = -1;
    for (std::size_t list = 0; list < marks_.size(); ++list) {
        if (FindMarks *marks = marks_[list].data()) {
            marks->Show(words, -1);
            for (int row = 0; row < marks->View().model()->rowCount(); ++row) {
                if (marks->Matches(row)) {
                    hits_.push_back({list, row});
                }
            }
        }
    }
    if (text_ != nullptr && !words.isEmpty()) {
        const QString text = text_->toPlainText();
        for (qsizetype at = text.indexOf(words, 0, Qt::CaseInsensitive); at >= 0;
             at = text.indexOf(words, at + words.size(), Qt::CaseInsensitive)) {
            hits_.push_back({0, static_cast<int>(at)});
        }
    }
    ShowInText();
    count_->setText(words.isEmpty() ? QString() : QString::number(hits_.size()));
}

void FindStrip::Next(int step)
{
    const int before = current_;
    Look(); // the rows may be others by now
    if (hits_.empty()) {
        return;
    }
    const int count = static_cast<int>(hits_.size());
    current_ = before < 0 ? (step > 0 ? 0 : count - 1) : (before + step + count) % count;
    count_->setText(QStringLiteral("%1 / %2").arg(current_ + 1).arg(count));
    Reveal();
    PlaceItself();
}

void FindStrip::Reveal()
{
    const Hit hit = hits_[static_cast<std::size_t>(current_)];
    if (text_ != nullptr) {
        ShowInText();
        const QTextBlock block = text_->document()->findBlock(hit.at);
        text_->verticalScrollBar()->setValue(block.firstLineNumber() - kLinesAbove);
        return;
    }
    FindMarks *marks = marks_[hit.list].data();
    if (marks != nullptr) {
        marks->Show(words_->text(), hit.at);
        marks->View().scrollTo(marks->View().model()->index(hit.at, 0), QAbstractItemView::EnsureVisible);
        MakeCurrent(marks->View(), hit.at);
    }
}

// The keyboard's place in the list, as Ctrl and an arrow key lead there: nothing is selected and no handler hears of it.
void FindStrip::MakeCurrent(ListView &view, int row)
{
    const EventGate::Pass pass(gate_);
    view.LeadTo(row);
}

void FindStrip::ShowInText()
{
    if (text_ == nullptr) {
        return;
    }
    QList<QTextEdit::ExtraSelection> marks;
    for (std::size_t i = 0; i < hits_.size(); ++i) {
        marks.append(MarkOf(*text_, hits_[i].at, static_cast<int>(words_->text().size()), static_cast<int>(i) == current_));
    }
    text_->setExtraSelections(marks);
}

QRect FindStrip::CurrentRect() const
{
    if (current_ < 0 || text_ != nullptr) {
        return {};
    }
    const Hit hit = hits_[static_cast<std::size_t>(current_)];
    const FindMarks *marks = marks_[hit.list].data();
    if (marks == nullptr) {
        return {};
    }
    const QRect rect = marks->View().visualRect(marks->View().model()->index(hit.at, 0));
    return {marks->View().viewport()->mapTo(&surface_, rect.topLeft()), rect.size()};
}

// At the lower right, and at the upper right where it would hide what it has found.
void FindStrip::PlaceItself()
{
    adjustSize();
    QRect place(QPoint(), size());
    place.moveBottomRight(surface_.rect().bottomRight() - QPoint(kStripMargin, kStripMargin));
    if (place.intersects(CurrentRect())) {
        place.moveTop(kStripMargin);
    }
    setGeometry(place);
}

void FindStrip::Close()
{
    QWidget *back = text_.data();
    if (!marks_.empty()) {
        const std::size_t list = current_ >= 0 ? hits_[static_cast<std::size_t>(current_)].list : 0;
        back = marks_[list] != nullptr ? &marks_[list]->View() : nullptr;
    }
    hits_.clear();
    ShowInText();
    if (back != nullptr) {
        back->setFocus(Qt::OtherFocusReason);
    }
    hide();
    setObjectName(QString()); // the next one is a new one
    for (const QPointer<FindMarks> &marks : marks_) {
        delete marks.data();
    }
    deleteLater();
}

} // namespace velluto
