// Takes files that are dropped on the frame, wherever on it. What is none of the program's files is left alone. Used by MainWindow.
#pragma once

#include "desktop/EventGate.h"

#include <QObject>
#include <QWidget>

#include <functional>
#include <string>

class QDropEvent;

namespace velluto {

class DropTarget : public QObject {
public:
    // open is called once for each file, from the event loop and not inside the drop: whoever dropped them is not kept waiting.
    DropTarget(QWidget &window, EventGate &gate, std::function<void(const std::string &path)> open);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Open(const QDropEvent &event);

    EventGate &gate_;
    std::function<void(const std::string &path)> open_;
};

// Something with files is drawn over a widget that takes text only: its frame shall have it.
[[nodiscard]] bool BringsFiles(const QEvent &event);

} // namespace velluto
