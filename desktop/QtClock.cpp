#include "desktop/QtClock.h"

#include "app/Language.h"

#include <QDate>
#include <QTime>

namespace velluto {

QLocale QtClock::Locale() const
{
    const bool italian = linguaBase_ == nullptr || *linguaBase_ == kItalianBase;
    const QLocale system = QLocale::system();
    if (system.language() == (italian ? QLocale::Italian : QLocale::English)) {
        return system;
    }
    return italian ? QLocale(QLocale::Italian, QLocale::Italy) : QLocale(QLocale::English, QLocale::UnitedKingdom);
}

std::string QtClock::LongDate()
{
    return Locale().toString(QDate::currentDate(), QLocale::LongFormat).toStdString();
}

std::string QtClock::ShortDate()
{
    return Locale().toString(QDate::currentDate(), QLocale::ShortFormat).toStdString();
}

std::string QtClock::Time()
{
    // The long form has the seconds, and the name of the time zone, which nobody asked for.
    const QLocale locale = Locale();
    QString format = locale.timeFormat(QLocale::LongFormat);
    format.remove(QLatin1Char('t'));
    return locale.toString(QTime::currentTime(), format.trimmed()).toStdString();
}

} // namespace velluto
