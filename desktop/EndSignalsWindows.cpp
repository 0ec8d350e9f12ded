#include "desktop/EndSignals.h"

#include <QGuiApplication>
#include <QSessionManager>

namespace velluto {

struct EndSignals::Listener : QObject {};

EndSignals::EndSignals(const std::function<bool()> &close) : listener_(std::make_unique<Listener>())
{
    // Windows kills whoever has answered yes, without a further word: all has to be done when this returns.
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, listener_.get(),
        [this, close](QSessionManager &session) {
            session.allowsInteraction();
            if (close()) {
                told_ = true;
                QCoreApplication::exit(0);
            } else {
                session.cancel();
            }
        },
        Qt::DirectConnection);
}

EndSignals::~EndSignals() = default;

} // namespace velluto
