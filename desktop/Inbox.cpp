#include "desktop/Inbox.h"

#include <QApplication>

#include <utility>

namespace velluto {

namespace {

constexpr int kAskAgain = 200; // ms, while a question is up

void ComeToTheFront(QWidget &window, const std::string &activation)
{
    if (!activation.empty()) {
        qputenv("XDG_ACTIVATION_TOKEN", activation.c_str()); // where Wayland looks for it
    }
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

Inbox::Inbox(int descriptor, Take take, QtFace &face, std::function<void(const std::string &path)> open)
    : take_(std::move(take)), face_(face), open_(std::move(open))
{
    if (descriptor < 0) {
        return;
    }
    later_.setSingleShot(true);
    later_.setInterval(kAskAgain);
    QObject::connect(&later_, &QTimer::timeout, &later_, [this] { Open(); });
    notifier_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        std::string activation;
        const std::vector<std::string> paths = take_(activation);
        waiting_.insert(waiting_.end(), paths.begin(), paths.end());
        if (!paths.empty() && face_.Window() != nullptr) {
            ComeToTheFront(*face_.Window(), activation);
        }
        Open();
    });
}

void Inbox::Begin()
{
    begun_ = true;
    Open();
}

void Inbox::Open()
{
    if (!begun_ || waiting_.empty()) {
        return;
    }
    if (face_.Gate().Busy() || QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr) {
        later_.start();
        return;
    }
    face_.Post([this, paths = std::exchange(waiting_, {})] {
        for (const std::string &path : paths) {
            open_(path);
        }
    });
}

} // namespace velluto
