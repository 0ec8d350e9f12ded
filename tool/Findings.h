// What may be wrong in a file of the instrument, as a record and as a sentence. Used by check, and by all commands that say why
// a file is refused.
#pragma once

#include "tool/Words.h"

#include <cstdint>
#include <string>

namespace velluto::tool {

enum class Fault : std::uint8_t {
    TooShort,        // n bytes
    TooLong,         // n bytes
    NoMark,          // "KORF"
    LaterInstrument, // the file is whole, but not for this program
    HeadByte,        // a fixed byte: n is there, m should be
    DirectoryLength, // n bytes are no whole number of entries
    DirectoryBeyond, // n entries reach behind the file's end
    TooManyItems,    // n, where the bank has m
    EndMissing,      // no "KEND": cut off
    BytesBehind,     // n bytes behind the end
    OuterLength,     // n is there, m should be
    Count,           // the last number: n is there, m should be
    IndexByte,       // a fixed byte of the index: n is there, m should be
    BodyOutside,     // item n would begin at m
    BodyGap,         // the first item begins at n and not at m
    BodyOrder,       // item n begins at m, before the one in front of it
    PlaceBeyond,     // item n has place m, the bank has k
    PlaceShared,     // item n has place m, as item k has
    PlaceOrder,      // item n has place m, the one before it place k
    StsMissing,      // item n, place m: a Style without its STS among others that have one
    StsUneven,       // n items, of which one half cannot be the STS of the other
    StsOrder,        // item n has place m, its Style place k
};

// Numbers of items and places count from 1.
struct Finding {
    std::uint64_t offset = 0;
    Fault fault = Fault::TooShort;
    std::uint64_t n = 0;
    std::uint64_t m = 0;
    std::uint64_t k = 0;
    bool operator==(const Finding &) const = default;
};

// The plain words for a finding, without its offset.
[[nodiscard]] std::string Sentence(const Finding &finding, const Speaker &speaker);

} // namespace velluto::tool
