#include "desktop/TextBinder.h"

#include "desktop/DropTarget.h"
#include "desktop/Fonts.h"
#include "desktop/Keys.h"
#include "desktop/QtText.h"
#include "desktop/Tips.h"

#include <QContextMenuEvent>
#include <QMetaObject>
#include <QPointer>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextLayout>
#include <QValidator>

#include <algorithm>
#include <iterator>

namespace velluto {

namespace {

constexpr int kTabColumns = 8;

bool IsEditingShortcut(const QKeyEvent &event)
{
    if (event.modifiers() != Qt::ControlModifier) {
        return false;
    }
    return event.key() == Qt::Key_C || event.key() == Qt::Key_V || event.key() == Qt::Key_Z || event.key() == Qt::Key_A ||
           event.key() == Qt::Key_X;
}

// The text as the program is told of it, every character as it was typed: Qt's own plain text makes ordinary blanks of
// those that do not break.
QString TextOf(const QPlainTextEdit &edit)
{
    QString text = edit.document()->toRawText();
    std::ranges::replace_if(
        text, [](QChar c) { return c == QChar::ParagraphSeparator || c == QChar::LineSeparator; }, QLatin1Char('\n'));
    return text;
}

bool FitsFileName(QChar letter)
{
#ifdef Q_OS_WIN
    constexpr QStringView kReserved = u"\\/:*?\"<>|";
#else
    constexpr QStringView kReserved = u"/";
#endif
    return letter.category() != QChar::Other_Control && !kReserved.contains(letter);
}

// Leaves out what a file's name cannot have, whether it is typed or pasted, and refuses what makes the name too long. What the
// program writes itself stays as it is.
class FileNameValidator : public QValidator {
public:
    FileNameValidator(const TextBox &box, QObject *parent) : QValidator(parent), box_(box) {}
    State validate(QString &input, int &position) const override
    {
        const QString before = FromUtf8(box_.text.Get());
        if (input == before) {
            return Acceptable;
        }
        QString kept;
        std::copy_if(input.cbegin(), input.cend(), std::back_inserter(kept), FitsFileName);
        position -= static_cast<int>(input.size() - kept.size()); // what is left out stands before the caret, where it was inserted
        position = std::clamp(position, 0, static_cast<int>(kept.size()));
        input = kept;
        return kept == before || kept.toUtf8().size() > box_.bytesInFileName ? Invalid : Acceptable;
    }

private:
    const TextBox &box_;
};

} // namespace

TextBinder::TextBinder(TextBox &box, EventGate &gate, QWidget *edit, QWidget *area) : Binder(box, gate, edit), box_(box)
{
    edit->setFont(ToQFont(box.font));
    edit->setAttribute(Qt::WA_NoMousePropagation);
    keys_ = new WidgetEvents(edit, [this](QEvent &event) { return LookAtKeys(event); });
    mouse_ = new WidgetEvents(area, [this](QEvent &event) { return LookAtMouse(event); });
}

TextBinder::~TextBinder()
{
    keys_->Stop();
    mouse_->Stop();
}

void TextBinder::TakeText(const QString &text, int position)
{
    const EventGate::Pass pass(gate());
    const QPointer<QObject> alive(receiver());
    const std::string typed = FromEditorText(text);
    const int caret = FromEditorPosition(text, position);
    taking_ = true;
    // The caret first: whoever hears of the new text may ask where it was typed.
    box_.caret = caret;
    box_.text = typed;
    // A handler may have closed the window, or made another text of it.
    if (alive.isNull()) {
        return;
    }
    taking_ = false;
    if (box_.text.Get() != typed) {
        Show(Aspect::Text);
    }
    if (box_.caret != caret) {
        Show(Aspect::Caret);
    }
}

void TextBinder::TakeCaret(const QString &text, int position)
{
    const EventGate::Pass pass(gate());
    taking_ = true;
    box_.caret = FromEditorPosition(text, position);
    taking_ = false;
}

bool TextBinder::LookAtKeys(QEvent &event)
{
    if (event.type() == QEvent::ShortcutOverride && IsEditingShortcut(static_cast<QKeyEvent &>(event))) {
        event.accept();
        return true;
    }
    if (event.type() == QEvent::KeyPress) {
        const auto &key = static_cast<QKeyEvent &>(event);
        const int code = KeyCode(key);
        if (code != 0) {
            const EventGate::Pass pass(gate());
            PressKey(box_, code, ToModifier(key.modifiers()));
        }
    }
    return false;
}

bool TextBinder::LookAtMouse(QEvent &event)
{
    if (BringsFiles(event)) { // for the frame, which opens them
        event.ignore();
        return true;
    }
    // The handler may close the window and this binder with it: nothing of it is touched after a call.
    EventGate &through = gate();
    if (event.type() == QEvent::MouseButtonPress && box_.MouseDown) {
        const int button = ButtonCode(static_cast<QMouseEvent &>(event).button());
        const EventGate::Pass pass(through);
        box_.MouseDown(button);
        return button == MouseButton::Right;
    }
    if (event.type() == QEvent::ContextMenu && box_.MouseDown) {
        if (static_cast<QContextMenuEvent &>(event).reason() == QContextMenuEvent::Keyboard) {
            const EventGate::Pass pass(through);
            box_.MouseDown(MouseButton::Right);
        }
        return true;
    }
    if (event.type() == QEvent::MouseButtonDblClick && box_.DblClick) {
        // The caret is where the first press has put it; Qt's own answer would select a word and move it.
        const EventGate::Pass pass(through);
        box_.DblClick();
        return true;
    }
    return false;
}

LineBinder::LineBinder(TextBox &box, EventGate &gate, QLineEdit *edit) : TextBinder(box, gate, edit, edit), edit_(edit)
{
    edit->setPlaceholderText(PlaceholderOf(box));
    edit->setReadOnly(box.readOnly);
    if (box.bytesInFileName > 0) {
        edit->setValidator(new FileNameValidator(box, edit));
    }
    QObject::connect(edit, &QLineEdit::textEdited, receiver(), [this] { TakeText(edit_->text(), edit_->cursorPosition()); });
    QObject::connect(edit, &QLineEdit::cursorPositionChanged, receiver(), [this] { TakeCaret(edit_->text(), edit_->cursorPosition()); });
}

void LineBinder::Show(Aspect aspect)
{
    if (IsTaking()) {
        return;
    }
    const QSignalBlocker quiet(edit_);
    if (aspect == Aspect::Text) {
        const QString text = FromUtf8(box().text.Get());
        if (edit_->text() != text) {
            edit_->setText(text);
        }
    } else if (aspect == Aspect::Caret) {
        edit_->setCursorPosition(ToEditorPosition(box().text.Get(), box().caret));
    }
}

MultiLineBinder::MultiLineBinder(TextBox &box, EventGate &gate, QPlainTextEdit *edit)
    : TextBinder(box, gate, edit, edit->viewport()), edit_(edit)
{
    edit->setReadOnly(box.readOnly);
    edit->setTabChangesFocus(!box.takesTabs);
    edit->setTabStopDistance(kTabColumns * CellWidth(edit->font()));
    QObject::connect(edit, &QPlainTextEdit::textChanged, receiver(), [this] { TakeText(TextOf(*edit_), edit_->textCursor().position()); });
    QObject::connect(edit, &QPlainTextEdit::cursorPositionChanged, receiver(),
                     [this] { TakeCaret(TextOf(*edit_), edit_->textCursor().position()); });
}

void MultiLineBinder::Show(Aspect aspect)
{
    if (IsTaking()) {
        return;
    }
    if (aspect == Aspect::Text && box().readOnly) {
        // A text that only the program writes is often written several times over within one event. It is drawn once,
        // when the event is over, and holds up nobody.
        if (!stale_) {
            stale_ = true;
            QMetaObject::invokeMethod(
                receiver(), [this] { ShowText(); }, Qt::QueuedConnection);
        }
    } else if (aspect == Aspect::Text) {
        ShowText();
    } else if (aspect == Aspect::Caret && !stale_) {
        const QSignalBlocker quiet(edit_);
        QTextCursor cursor = edit_->textCursor();
        const int position = ToEditorPosition(box().text.Get(), box().caret);
        if (cursor.position() != position) {
            cursor.setPosition(std::min(position, edit_->document()->characterCount() - 1));
            edit_->setTextCursor(cursor);
        }
    } else if (aspect == Aspect::Top && !stale_) {
        ScrollToTop(ToEditorPosition(box().text.Get(), box().AskedAtTop()));
    }
}

void MultiLineBinder::ShowText()
{
    stale_ = false;
    const QString text = ToEditorText(box().text.Get());
    const QString drawn = TextOf(*edit_);
    if (drawn == text) {
        return;
    }
    const QSignalBlocker quiet(edit_);
    if (drawn.isEmpty() || box().readOnly) {
        edit_->setPlainText(text);
    } else {
        Correct(drawn, text);
    }
}

// Changes only what differs, as a part of what the user did last: one Undo takes back both, and the rest of what can be
// undone stays.
void MultiLineBinder::Correct(const QString &drawn, const QString &text)
{
    const auto shorter = static_cast<int>(std::min(drawn.size(), text.size()));
    int same = 0;
    while (same < shorter && drawn[same] == text[same]) {
        ++same;
    }
    int sameAtEnd = 0;
    while (sameAtEnd < shorter - same && drawn[drawn.size() - 1 - sameAtEnd] == text[text.size() - 1 - sameAtEnd]) {
        ++sameAtEnd;
    }
    QTextCursor cursor(edit_->document());
    cursor.setPosition(same);
    cursor.setPosition(static_cast<int>(drawn.size()) - sameAtEnd, QTextCursor::KeepAnchor);
    cursor.joinPreviousEditBlock();
    cursor.insertText(text.mid(same, text.size() - sameAtEnd - same));
    cursor.endEditBlock();
}

// The scroll bar counts lines as they are drawn, so that a long line that is broken counts for several.
void MultiLineBinder::ScrollToTop(int position)
{
    const QTextBlock block = edit_->document()->findBlock(position);
    if (block.isValid()) {
        const int inBlock = block.layout()->lineForTextPosition(position - block.position()).lineNumber();
        edit_->verticalScrollBar()->setValue(block.firstLineNumber() + std::max(inBlock, 0));
    }
}

} // namespace velluto
