#include "desktop/MonitorWords.h"

#include "desktop/ElidedLabel.h"
#include "desktop/QtText.h"
#include "desktop/WidgetEvents.h"
#include "midi/MessageWords.h"
#include "midi/frmMsgEx.h"

#include <QPlainTextEdit>

namespace velluto {

namespace {

constexpr int kWordsMargin = 6; // logical pixels

// The bytes of the last line that has any.
std::vector<std::uint8_t> LastBytes(const QString &shown)
{
    std::vector<std::uint8_t> bytes;
    const QStringList lines = shown.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (!lines.isEmpty()) {
        for (const QString &byte : lines.back().simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            bytes.push_back(static_cast<std::uint8_t>(byte.toUInt(nullptr, 16)));
        }
    }
    return bytes;
}

} // namespace

void AddMonitorWords(const Form &form, QWidget &surface)
{
    const auto *monitor = dynamic_cast<const frmMsgEx *>(&form);
    auto *edit = monitor != nullptr ? surface.findChild<QPlainTextEdit *>(QStringLiteral("Text1")) : nullptr;
    if (edit == nullptr) {
        return;
    }
    auto *label = new ElidedLabel(&surface);
    label->setObjectName(QStringLiteral("MonitorWords"));
    label->setTextFormat(Qt::PlainText);
    const auto follow = [label, edit, &surface] {
        const int top = edit->geometry().bottom() + 1;
        label->setGeometry(kWordsMargin, top, std::max(surface.width() - 2 * kWordsMargin, 0), std::max(surface.height() - top, 0));
    };
    const auto look = [follow](const QEvent &event) {
        if (event.type() == QEvent::Resize) {
            follow();
        }
        return false;
    };
    new WidgetEvents(edit, look);
    new WidgetEvents(&surface, look);
    const int linguaBase = monitor->app.messages.LinguaBase;
    QObject::connect(edit->document(), &QTextDocument::contentsChanged, label,
                     [label, edit, linguaBase] { label->setText(FromUtf8(MessagesInWords(LastBytes(edit->toPlainText()), linguaBase))); });
    follow();
}

} // namespace velluto
