// The date and the time of this machine, written as the run's language writes them.
#pragma once

#include "platform/Clock.h"

#include <QLocale>

namespace velluto {

class QtClock : public Clock {
public:
    // The run's. It outlives the clock's use; Italian until then.
    void Follow(const int &linguaBase) { linguaBase_ = &linguaBase; }

    std::string LongDate() override;
    std::string ShortDate() override;
    std::string Time() override;

private:
    // The machine's own way of writing where it is of the run's language, else that language's usual one.
    [[nodiscard]] QLocale Locale() const;

    const int *linguaBase_ = nullptr;
};

} // namespace velluto
