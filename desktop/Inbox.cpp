#include "desktop/Inbox.h"

#include <QApplication>
#ifdef Q_OS_WIN
#include <QWinEventNotifier>
#else
#include <QSocketNotifier>
#endif

#include <utility>

namespace velluto {

namespace {

constexpr int kAskAgain = 200; // ms, while a question is up

#ifdef Q_OS_WIN
using Notifier = QWinEventNotifier;
std::unique_ptr<Notifier> Watch(std::intptr_t event)
{
    return std::make_unique<Notifier>(reinterpret_cast<Qt::HANDLE>(event));
}
#else
using Notifier = QSocketNotifier;
std::unique_ptr<Notifier> Watch(std::intptr_t descriptor)
{
    return std::make_unique<Notifier>(descriptor, QSocketNotifier::Read);
}
#endif

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

Inbox::Inbox(std::intptr_t descriptor, Take take, QtFace &face, std::function<void(const std::string &path)> open)
    : take_(std::move(take)), face_(face), open_(std::move(open))
{
    if (descriptor < 0) {
        return;
    }
    later_.setSingleShot(true);
    later_.setInterval(kAskAgain);
    QObject::connect(&later_, &QTimer::timeout, &later_, [this] { Open(); });
    auto notifier = Watch(descriptor);
    QObject::connect(notifier.get(), &Notifier::activated, notifier.get(), [this] { Receive(); });
    notifier_ = std::move(notifier);
}

void Inbox::Receive()
{
    std::string activation;
    const std::vector<std::string> paths = take_(activation);
    waiting_.insert(waiting_.end(), paths.begin(), paths.end());
    if (!paths.empty() && face_.Window() != nullptr) {
        ComeToTheFront(*face_.Window(), activation);
    }
    Open();
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
