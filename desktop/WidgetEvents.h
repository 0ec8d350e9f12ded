// Lets a binder look at a widget's events before the widget does.
#pragma once

#include <QEvent>
#include <QWidget>

#include <functional>
#include <memory>

namespace velluto {

class WidgetEvents : public QObject {
public:
    // looks answers true for an event that the widget shall not see.
    using Looks = std::function<bool(QEvent &)>;
    WidgetEvents(QWidget *widget, Looks looks) : QObject(widget), looks_(std::make_shared<const Looks>(std::move(looks)))
    {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        // Held while it runs: a handler that it calls may close the window and stop this very filter.
        const std::shared_ptr<const Looks> looks = looks_;
        return looks && (*looks)(*event);
    }
    void Stop() { looks_.reset(); }

private:
    std::shared_ptr<const Looks> looks_;
};

} // namespace velluto
