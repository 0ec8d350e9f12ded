// Files that a later start of the program has handed over: they open here, between two events, and the window comes to the front.
// Used by main.
#pragma once

#include "desktop/QtFace.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velluto {

class Inbox {
public:
    // take gives what has come when the descriptor tells (see HandOverInbox), and the desktop's leave to come to the front; one
    // of -1 never does. open is called once for each file, from Begin on, and never while a question waits for its answer.
    using Take = std::function<std::vector<std::string>(std::string &activation)>;
    Inbox(std::intptr_t descriptor, Take take, QtFace &face, std::function<void(const std::string &path)> open);

    void Begin();

private:
    void Receive();
    void Open();

    Take take_;
    QtFace &face_;
    std::function<void(const std::string &path)> open_;
    bool begun_ = false;
    std::vector<std::string> waiting_;
    QTimer later_;
    std::unique_ptr<QObject> notifier_;
};

} // namespace velluto
