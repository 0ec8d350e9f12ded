// Files of the instrument that are made from the fuzzer's bytes: whole ones, ones of any content in a true frame, damaged ones. Used by
// the targets that need more than a random change of a file leaves true.
#pragma once

#include "files/Korf.h"
#include "unit/support/InstrumentImage.h"

#include <algorithm>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <vector>

namespace velluto::fuzz {

// A file without a fault: some items in rising places, of which the copies follow one by one, all together, or not at all, as the STS
// of Styles do.
inline test::Bytes WholeFile(FuzzedDataProvider &bytes, int layout)
{
    constexpr int kLongestBody = 40;
    std::vector<test::Item> items;
    std::vector<test::Item> copies;
    const int count = bytes.ConsumeIntegralInRange(0, 9);
    int slot = bytes.ConsumeIntegralInRange(0, 3);
    for (int i = 0; i < count; ++i, slot += bytes.ConsumeIntegralInRange(1, 3)) {
        const auto length = bytes.ConsumeIntegralInRange<std::size_t>(0, kLongestBody);
        items.push_back({"Item " + std::to_string(i), slot, test::Bytes(length, static_cast<std::uint8_t>(i))});
        if (layout == 1) {
            items.push_back(items.back());
        } else if (layout == 2) {
            copies.push_back(items.back());
        }
    }
    items.insert(items.end(), copies.begin(), copies.end());
    return test::InstrumentFile(items);
}

// A file of a few items, framed as it should be.
inline test::Bytes FramedFile(FuzzedDataProvider &bytes)
{
    const auto count = bytes.ConsumeIntegralInRange<std::size_t>(0, bytes.ConsumeBool() ? 12 : 140);
    std::string between;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string name = bytes.ConsumeBytesAsString(4);
        const std::size_t grouped = count > 1 ? i % (count / 2) : 0;
        const auto slot = bytes.PickValueInArray({i, i / 2, grouped, bytes.ConsumeIntegral<std::size_t>()});
        between += test::DirectoryEntry(name, static_cast<int>(slot));
    }
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < count; ++i) {
        offsets.push_back(test::kInstrumentHead + between.size());
        between.append(bytes.ConsumeIntegralInRange<std::size_t>(0, 40), static_cast<char>(bytes.ConsumeIntegralInRange(0, 20)));
    }
    return test::Framed(between, offsets);
}

// The same with any bytes in any place, or cut short, but with a last byte that makes it pass for an instrument's file.
inline test::Bytes DamagedFile(FuzzedDataProvider &bytes)
{
    test::Bytes file = FramedFile(bytes);
    if (bytes.ConsumeIntegralInRange(0, 3) == 0) {
        file.resize(bytes.ConsumeIntegralInRange<std::size_t>(Korf::kHeadLength, file.size()));
    }
    for (int pokes = bytes.ConsumeIntegralInRange(0, 8); pokes > 0; --pokes) {
        const std::size_t at = bytes.ConsumeBool() ? bytes.ConsumeIntegralInRange<std::size_t>(4, 40)
                                                   : file.size() - bytes.ConsumeIntegralInRange<std::size_t>(1, Korf::kHeadLength);
        if (at < file.size()) {
            file[at] = bytes.ConsumeIntegral<std::uint8_t>();
        }
    }
    file.back() = static_cast<std::uint8_t>(CountItems(file) + 1);
    return file;
}

} // namespace velluto::fuzz
