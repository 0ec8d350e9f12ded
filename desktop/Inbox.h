// Files that a later start of the program has handed over: they open here, between two events, and the window comes to the front.
// Used by main.
#pragma once

#include "desktop/QtFace.h"

#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velluto {

class Inbox {
public:
    // take gives what has come when the descriptor is readable, and the desktop's leave to come to the front; a descriptor
    // of -1 never is. open is called once for each file, from Begin on, and never while a question waits for its answer.
    using Take = std::function<std::vector<std::string>(std::string &activation)>;
    Inbox(int descriptor, Take take, QtFace &face, std::function<void(const std::string &path)> open);

    void Begin();

private:
    void Open();

    Take take_;
    QtFace &face_;
    std::function<void(const std::string &path)> open_;
    bool begun_ = false;
    std::vector<std::string> waiting_;
    QTimer later_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace velluto
