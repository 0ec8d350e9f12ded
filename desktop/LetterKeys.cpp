#include "desktop/LetterKeys.h"

#include <QTimerEvent>

#include <algorithm>
#include <array>
#include <span>

namespace velluto {

namespace {

constexpr int kFirstOfLowerRow = 24; // piano keys
constexpr int kFirstOfUpperRow = 36;

// What X11 and Wayland tell is the kernel's code of the key and 8; what Windows tells is what the first PC's keyboard said, from which
// the kernel has its codes.
#ifdef Q_OS_WIN
constexpr quint32 kDisplayOffset = 0;
#else
constexpr quint32 kDisplayOffset = 8;
#endif

// The codes of the keys from C on, one for each semitone, as they lie on every keyboard: on an English one
// Z S X D C V G B H N J M , L . ; / and Q 2 W 3 E R 5 T 6 Y 7 U I 9 O 0 P [ = ].
constexpr auto kLowerRow = std::to_array<quint32>({44, 31, 45, 32, 46, 47, 34, 48, 35, 49, 36, 50, 51, 38, 52, 39, 53});
constexpr auto kUpperRow = std::to_array<quint32>({16, 3, 17, 4, 18, 19, 6, 20, 7, 21, 8, 22, 23, 10, 24, 11, 25, 26, 13, 27});

std::optional<int> PlaceIn(std::span<const quint32> row, quint32 code)
{
    const auto found = std::ranges::find(row, code);
    return found == row.end() ? std::nullopt : std::optional(static_cast<int>(found - row.begin()));
}

} // namespace

std::optional<int> PianoKeyOf(const QKeyEvent &event)
{
    const quint32 code = event.nativeScanCode();
    if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0 || code <= kDisplayOffset) {
        return std::nullopt;
    }
    if (const std::optional<int> place = PlaceIn(kLowerRow, code - kDisplayOffset)) {
        return kFirstOfLowerRow + *place;
    }
    const std::optional<int> place = PlaceIn(kUpperRow, code - kDisplayOffset);
    return place ? std::optional(kFirstOfUpperRow + *place) : std::nullopt;
}

std::vector<LetterKeys::Held>::iterator LetterKeys::Find(quint32 scanCode)
{
    return std::ranges::find(held_, scanCode, &Held::scanCode);
}

bool LetterKeys::Holds(int number) const
{
    return std::ranges::find(held_, number, &Held::number) != held_.end();
}

void LetterKeys::Forget()
{
    doubt_.stop();
    held_.clear();
}

bool LetterKeys::Press(const QKeyEvent &event)
{
    const std::optional<int> number = PianoKeyOf(event);
    if (!number) {
        return false;
    }
    const quint32 scanCode = event.nativeScanCode();
    const auto before = Find(scanCode);
    if (before != held_.end()) {
        if (!before->releasedAt || *before->releasedAt == event.timestamp()) {
            before->releasedAt.reset(); // it repeats: held all the while
            return true;
        }
        End(scanCode);
    }
    if (!event.isAutoRepeat()) {
        const bool sounds = Holds(*number); // two keys of the computer lie on some of the piano's
        held_.push_back({scanCode, *number, std::nullopt});
        if (!sounds) {
            hands_.press(*number);
        }
    }
    return true;
}

bool LetterKeys::Release(const QKeyEvent &event)
{
    const auto found = Find(event.nativeScanCode());
    if (found == held_.end()) {
        return PianoKeyOf(event).has_value();
    }
    if (!event.isAutoRepeat()) {
        // A display tells of a key that repeats as released and pressed at one moment, and Qt does not always see the two as one.
        found->releasedAt = event.timestamp();
        doubt_.start(kReleaseDoubt, Qt::PreciseTimer, this);
    }
    return true;
}

void LetterKeys::End(quint32 scanCode)
{
    const auto found = Find(scanCode);
    if (found == held_.end()) {
        return;
    }
    const int number = found->number;
    held_.erase(found);
    if (!Holds(number)) {
        hands_.release(number, held_.empty() ? -1 : held_.back().number);
    }
}

void LetterKeys::EndDoubtful()
{
    doubt_.stop();
    for (auto next = held_.begin(); next != held_.end();) {
        if (next->releasedAt) {
            End(next->scanCode); // a handler may have let all go
            next = held_.begin();
        } else {
            ++next;
        }
    }
}

void LetterKeys::LetAllGo()
{
    doubt_.stop();
    while (!held_.empty()) {
        End(held_.back().scanCode);
    }
}

void LetterKeys::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == doubt_.timerId()) {
        EndDoubtful();
    }
}

} // namespace velluto
