// Child windows, boxes and combo boxes as a screen reader meets them, where Qt's own word on them is wrong or missing.
#pragma once

#include <QComboBox>
#include <QFrame>
#include <QMdiSubWindow>

namespace velluto {

// A frame around other controls: to Qt each QFrame is the border of a window.
class BorderBox : public QFrame {
public:
    explicit BorderBox(QWidget *parent);
};

// Makes child windows and boxes known to Qt's accessibility; more than once is as good as once.
void InstallWindowAccess();
// Another child window is the active one; null where none is.
void TellActiveWindow(QMdiSubWindow *window);
// On Linux a combo box gives its choice for its name. What says the name is a label, which nobody sees.
void NameCombo(QComboBox &combo, const QString &name);

} // namespace velluto
