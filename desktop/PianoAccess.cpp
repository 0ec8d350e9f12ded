#include "desktop/PianoAccess.h"

#include "desktop/PianoKeys.h"
#include "desktop/QtText.h"

#include <QAccessibleWidget>
#include <QWindow>

#include <algorithm>
#include <array>

namespace velluto {

namespace {

class KeyAccess : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    KeyAccess(PianoKeys &piano, int number) : piano_(piano), number_(number) {}

    [[nodiscard]] bool isValid() const override { return number_ < piano_.KeyCount(); }
    [[nodiscard]] QObject *object() const override { return nullptr; }
    [[nodiscard]] QWindow *window() const override { return piano_.window()->windowHandle(); }
    [[nodiscard]] QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(&piano_); }
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && isValid() ? FromUtf8(piano_.KeyOf(number_).accessibleName) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}
    [[nodiscard]] QRect rect() const override
    {
        const QRect inside = isValid() ? piano_.RectOf(number_).toAlignedRect() : QRect();
        return {piano_.mapToGlobal(inside.topLeft()), inside.size()};
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.invalid = !isValid();
        state.invisible = !piano_.isVisible();
        state.pressed = isValid() && piano_.KeyOf(number_).dot;
        state.focused = piano_.hasFocus() && piano_.Cursor() == number_;
        return state;
    }
    void *interface_cast(QAccessible::InterfaceType kind) override
    {
        return kind == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction()) {
            piano_.PressAndRelease(number_);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }

private:
    PianoKeys &piano_;
    int number_;
};

class PianoAccess : public QAccessibleWidget {
public:
    explicit PianoAccess(PianoKeys &piano) : QAccessibleWidget(&piano, QAccessible::Grouping), piano_(piano) {}
    ~PianoAccess() override
    {
        for (const QAccessible::Id id : keys_) {
            if (id != 0) {
                QAccessible::deleteAccessibleInterface(id);
            }
        }
    }
    PianoAccess(const PianoAccess &) = delete;
    PianoAccess &operator=(const PianoAccess &) = delete;

    [[nodiscard]] int childCount() const override { return piano_.KeyCount(); }
    [[nodiscard]] QAccessibleInterface *child(int index) const override
    {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        const auto at = static_cast<std::size_t>(index);
        keys_.resize(std::max(keys_.size(), at + 1), 0);
        if (keys_[at] == 0) {
            keys_[at] = QAccessible::registerAccessibleInterface(new KeyAccess(piano_, index));
        }
        return QAccessible::accessibleInterface(keys_[at]);
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const QAccessible::Id id = QAccessible::uniqueId(const_cast<QAccessibleInterface *>(child)); // NOLINT: Qt asks for it
        const auto found = std::ranges::find(keys_, id);
        return found != keys_.end() ? static_cast<int>(found - keys_.begin()) : -1;
    }
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override
    {
        return child(piano_.KeyAt(piano_.mapFromGlobal(QPointF(x, y))));
    }
    [[nodiscard]] QAccessibleInterface *focusChild() const override { return piano_.hasFocus() ? child(piano_.Cursor()) : nullptr; }

private:
    PianoKeys &piano_;
    mutable std::vector<QAccessible::Id> keys_; // 0 for a key that nobody has asked for
};

QAccessibleInterface *MakePianoAccess(const QString & /*className*/, QObject *object)
{
    auto *piano = dynamic_cast<PianoKeys *>(object);
    return piano != nullptr ? new PianoAccess(*piano) : nullptr;
}

} // namespace

void InstallPianoAccess()
{
    QAccessible::installFactory(MakePianoAccess);
}

void ForgetPianoAccess(PianoKeys &piano)
{
    if (QAccessibleInterface *known = QAccessible::queryAccessibleInterface(&piano)) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
    }
}

void TellPianoAccess(PianoKeys &piano, int number)
{
    if (QAccessible::isActive()) {
        QAccessible::State changed;
        changed.pressed = true;
        QAccessibleStateChangeEvent event(QAccessible::queryAccessibleInterface(&piano)->child(number), changed);
        QAccessible::updateAccessibility(&event);
    }
}

void TellPianoCursor(PianoKeys &piano)
{
    if (QAccessible::isActive() && piano.Cursor() < piano.KeyCount()) {
        QAccessibleEvent event(QAccessible::queryAccessibleInterface(&piano)->child(piano.Cursor()), QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace velluto
