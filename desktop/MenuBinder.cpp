#include "desktop/MenuBinder.h"

#include "app/ViewKind.h"
#include "desktop/MenuFocus.h"
#include "desktop/QtText.h"
#include "desktop/Tips.h"

#include <QApplication>
#include <QCursor>
#include <QMenuBar>
#include <QShortcut>

#include <algorithm>

namespace velluto {

namespace {

constexpr int kNumberedWindows = 9; // those that a digit can choose

// The caption as the menu shows it, with its shortcut at the right. The keys themselves are not the action's.
QString ShownCaption(const MenuEntry &entry)
{
    QString text = WithAccessKey(entry.caption.Get());
    if (entry.shortcut.ctrlKey != 0) {
        text += QLatin1String("\tCtrl+") + QLatin1Char(entry.shortcut.ctrlKey);
    }
    return text;
}

} // namespace

MenuBinder::MenuBinder(frmMain &frame, ChildWindows &children, EventGate &gate, QMainWindow &window)
    : children_(children), gate_(gate), window_(window)
{
    for (Control *control : frame.controls()) {
        auto *entry = dynamic_cast<MenuEntry *>(control);
        if (entry != nullptr && entry->parent() == nullptr) {
            Build(*entry, nullptr);
        }
    }
    // Keys that people try, beside those that the menus show.
    Bind(frame.mnuTaglia, QKeySequence(static_cast<int>(Qt::CTRL) | Qt::Key_X));
    Bind(frame.mnuExit, QKeySequence(static_cast<int>(Qt::CTRL) | Qt::Key_Q));
    BindGuide(frame.mnuGuida);
    new MenuFocus(*window.menuBar());
}

MenuBinder::~MenuBinder()
{
    for (const Bound &bound : bound_) {
        bound.entry->observer = nullptr;
    }
}

void MenuBinder::Build(MenuEntry &entry, QMenu *parent)
{
    QAction *action = nullptr;
    if (!entry.children().empty()) {
        auto *menu = parent != nullptr ? new QMenu(parent) : new QMenu(&window_);
        action = parent != nullptr ? parent->addMenu(menu) : window_.menuBar()->addMenu(menu);
        BuildMenu(entry, menu);
    } else {
        action = parent != nullptr ? parent->addAction(QString()) : window_.menuBar()->addAction(QString());
        BuildCommand(entry, action);
    }
    action->setObjectName(FromUtf8(entry.FullName()));
    action->setMenuRole(QAction::NoRole);
    Follow(entry, *action);
    entry.observer = [this, &entry, action](Aspect /*aspect*/) { Follow(entry, *action); };
    bound_.push_back({&entry, action});
    BindShortcut(entry);
}

void MenuBinder::BuildMenu(MenuEntry &entry, QMenu *menu)
{
    menu->setObjectName(FromUtf8(entry.FullName()));
    menu->setToolTipsVisible(true);
    for (MenuEntry *child : entry.children()) {
        Build(*child, menu);
    }
    QObject::connect(menu, &QMenu::aboutToShow, &receiver_, [this, &entry, menu] {
        if (!poppingUp_) {
            const EventGate::Pass pass(gate_);
            DropMenu(entry);
        }
        if (entry.listsWindows) {
            ListWindows(*menu);
        }
        for (const MenuEntry *child : entry.children()) {
            ActionOf(*child)->setToolTip(TipOfEntry(*child, children_.All()));
        }
    });
}

void MenuBinder::BuildCommand(MenuEntry &entry, QAction *action)
{
    if (entry.IsSeparator()) {
        action->setSeparator(true);
        return;
    }
    QObject::connect(action, &QAction::triggered, &receiver_, [this, &entry, action] {
        Choose(entry);
        // Qt has flipped the mark of its own accord; the entry knows better.
        Follow(entry, *action);
    });
}

void MenuBinder::BindShortcut(MenuEntry &entry)
{
    if (entry.shortcut.ctrlKey != 0) {
        Bind(entry, QKeySequence(static_cast<int>(Qt::CTRL) | entry.shortcut.ctrlKey));
    }
}

void MenuBinder::Bind(MenuEntry &entry, const QKeySequence &sequence)
{
    auto *keys = new QShortcut(sequence, &window_);
    keys->setAutoRepeat(false);
    QObject::connect(keys, &QShortcut::activated, &receiver_, [this, &entry] { Choose(entry); });
}

// F1 opens the guide, or brings it to the front: its entry is off while it is open.
void MenuBinder::BindGuide(MenuEntry &entry)
{
    auto *keys = new QShortcut(QKeySequence(Qt::Key_F1), &window_);
    keys->setAutoRepeat(false);
    QObject::connect(keys, &QShortcut::activated, &receiver_, [this, &entry] {
        const EventGate::Pass pass(gate_);
        const auto open = std::ranges::find_if(children_.All(), [](const Form *form) { return form->Tag.Kind() == ViewKind::Guide; });
        if (open != children_.All().end()) {
            children_.Show(**open);
        } else {
            ChooseMenu(entry);
        }
    });
}

void MenuBinder::Choose(MenuEntry &entry)
{
    const EventGate::Pass pass(gate_);
    ChooseMenu(entry);
}

void MenuBinder::Follow(const MenuEntry &entry, QAction &action)
{
    action.setText(ShownCaption(entry));
    action.setEnabled(entry.enabled);
    action.setVisible(entry.visible);
    if (IsHeading(entry)) {
        QFont font = QApplication::font("QMenu");
        font.setBold(true);
        action.setFont(font);
    }
    if (action.menu() == nullptr) {
        // Only a checked entry is checkable: Qt would draw an empty box for the others.
        action.setCheckable(entry.checked);
        action.setChecked(entry.checked);
    }
}

void MenuBinder::ListWindows(QMenu &menu)
{
    for (QAction *row : windows_) {
        menu.removeAction(row);
        row->deleteLater();
    }
    windows_.clear();
    if (children_.All().empty()) {
        return;
    }
    windows_.push_back(menu.addSeparator());
    int number = 0;
    for (Form *form : children_.All()) {
        ++number;
        const QString mark = number <= kNumberedWindows ? QLatin1String("&") : QLatin1String();
        QAction *row = menu.addAction(mark + QString::number(number) + QLatin1Char(' ') + WithoutAccessKey(form->caption.Get()));
        row->setCheckable(form == children_.Active());
        row->setChecked(form == children_.Active());
        windows_.push_back(row);
        QObject::connect(row, &QAction::triggered, &receiver_, [this, form] {
            const EventGate::Pass pass(gate_);
            // The list may be older than the windows.
            if (children_.IsOpen(*form)) {
                children_.Show(*form);
            }
        });
    }
}

void MenuBinder::PopUp(const MenuEntry &entry)
{
    QAction *action = ActionOf(entry);
    if (action == nullptr || action->menu() == nullptr) {
        return;
    }
    // A menu asked for by key, with the pointer elsewhere, comes up in the middle of the frame.
    const QRect frame(window_.mapToGlobal(QPoint()), window_.size());
    const QPoint pointer = QCursor::pos();
    poppingUp_ = true;
    action->menu()->popup(frame.contains(pointer) ? pointer : frame.center());
    poppingUp_ = false;
}

QAction *MenuBinder::ActionOf(const MenuEntry &entry) const
{
    const auto found = std::ranges::find(bound_, &entry, &Bound::entry);
    return found != bound_.end() ? found->action : nullptr;
}

} // namespace velluto
