#include "desktop/WindowAccess.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>

#include <algorithm>

namespace velluto {

namespace {

// What it shows is its form, and its menu while that is dropped; the title bar is no child. A window that reaches out of the
// frame is in view all the same.
class ChildWindowAccess : public QAccessibleWidget {
public:
    explicit ChildWindowAccess(QMdiSubWindow &window) : QAccessibleWidget(&window, QAccessible::Window), window_(window) {}

    [[nodiscard]] int childCount() const override { return static_cast<int>(Shown().size()); }
    [[nodiscard]] QAccessibleInterface *child(int index) const override
    {
        return QAccessible::queryAccessibleInterface(Shown().value(index, nullptr));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child != nullptr ? static_cast<int>(Shown().indexOf(child->object())) : -1;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name) {
            return QAccessibleWidget::text(kind);
        }
        return window_.windowTitle().replace(QLatin1String("[*][*]"), QLatin1String("[*]"));
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const QMdiArea *area = window_.mdiArea();
        state.active = area != nullptr && area->activeSubWindow() == &window_ && window_.isActiveWindow();
        state.movable = !window_.isMaximized();
        state.sizeable = state.movable;
        state.offscreen = false;
        return state;
    }

private:
    [[nodiscard]] QObjectList Shown() const
    {
        QObjectList shown;
        if (window_.widget() != nullptr) {
            shown.append(window_.widget());
        }
        if (window_.systemMenu() != nullptr && window_.systemMenu()->isVisible()) {
            shown.append(window_.systemMenu());
        }
        return shown;
    }

    QMdiSubWindow &window_;
};

QAccessibleInterface *MakeWindowAccess(const QString & /*className*/, QObject *object)
{
    if (auto *window = qobject_cast<QMdiSubWindow *>(object)) {
        return new ChildWindowAccess(*window);
    }
    auto *box = dynamic_cast<BorderBox *>(object);
    return box != nullptr ? new QAccessibleWidget(box, QAccessible::Grouping) : nullptr;
}

} // namespace

BorderBox::BorderBox(QWidget *parent) : QFrame(parent)
{
    InstallWindowAccess();
    setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
}

void InstallWindowAccess()
{
    QAccessible::installFactory(MakeWindowAccess);
}

void TellActiveWindow(QMdiSubWindow *window)
{
    if (QAccessible::isActive() && window != nullptr) {
        QAccessible::State changed;
        changed.active = true;
        QAccessibleStateChangeEvent event(window, changed);
        QAccessible::updateAccessibility(&event);
    }
}

void NameCombo(QComboBox &combo, const QString &name)
{
    combo.setAccessibleName(name);
    // Qt looks for the label beside the box.
    const QList<QLabel *> labels = combo.parentWidget()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
    const auto own = std::ranges::find(labels, &combo, &QLabel::buddy);
    QLabel *label = own != labels.end() ? *own : new QLabel(combo.parentWidget());
    label->hide();
    label->setBuddy(&combo);
    label->setText(name);
}

} // namespace velluto
