// What sounds at the other end of the cable, told from the messages that arrive there. Used by the tests of any sequence.
#pragma once

#include <array>
#include <cstdint>
#include <set>

namespace velluto::test {

struct Recorder {
    std::array<std::set<int>, 16> sounding;

    void Hear(std::uint32_t message)
    {
        const auto channel = static_cast<std::size_t>(message & 15U);
        const int first = static_cast<int>(message >> 8U & 127U);
        const int second = static_cast<int>(message >> 16U & 127U);
        switch (message & 0xF0U) {
        case 0x90:
            if (second > 0) {
                sounding[channel].insert(first);
                break;
            }
            [[fallthrough]];
        case 0x80:
            sounding[channel].erase(first);
            break;
        case 0xB0:
            if (first == 123) {
                sounding[channel].clear();
            }
            break;
        default:
            break;
        }
    }
};

} // namespace velluto::test
