#include "desktop/Twips.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace velluto {

namespace {

constexpr double kTwipsPerInch = 1440.0;
constexpr double kUsualDotsPerInch = 96.0;

double TwipsPerPixel()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double dots = screen != nullptr ? screen->logicalDotsPerInch() : kUsualDotsPerInch;
    return kTwipsPerInch / (dots > 0 ? dots : kUsualDotsPerInch);
}

} // namespace

int ToPixels(int twips)
{
    return static_cast<int>(std::lround(twips / TwipsPerPixel()));
}

int ToTwips(int pixels)
{
    return static_cast<int>(std::lround(pixels * TwipsPerPixel()));
}

int ToTwipsRoundedUp(double pixels)
{
    return static_cast<int>(std::ceil(pixels * TwipsPerPixel()));
}

QRect ToPixels(const Place &place)
{
    const int left = ToPixels(place.left);
    const int top = ToPixels(place.top);
    return {left, top, ToPixels(place.left + place.width) - left, ToPixels(place.top + place.height) - top};
}

QSize ToPixels(const Size &size)
{
    return {ToPixels(size.width), ToPixels(size.height)};
}

} // namespace velluto
