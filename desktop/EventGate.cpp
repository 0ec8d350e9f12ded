#include "desktop/EventGate.h"

#include <QMetaObject>

namespace velluto {

void EventGate::Leave()
{
    --depth_;
    if (depth_ > 0 || posted_ || !betweenEvents) {
        return;
    }
    posted_ = true;
    QMetaObject::invokeMethod(
        &context_,
        [this] {
            posted_ = false;
            // A handler that began meanwhile posts again when it ends.
            if (depth_ == 0) {
                betweenEvents();
            }
        },
        Qt::QueuedConnection);
}

} // namespace velluto
