#include "scenarios/Props.h"

#include "driver/Json.h"
#include "unit/support/InstrumentImage.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>

namespace velluto::scenarios {

namespace {

using driver::BadCommand;
using driver::Words;
using Bytes = std::vector<std::uint8_t>;

constexpr int kHighestNumber = std::numeric_limits<int>::max();

Bytes ReadFile(const std::string &name)
{
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        throw BadCommand("no file " + name);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteFile(const std::string &name, const Bytes &bytes)
{
    std::ofstream file(name, std::ios::binary | std::ios::trunc);
    const std::string_view text = driver::AsText(bytes);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    if (!file) {
        throw BadCommand("cannot write " + name);
    }
}

// The bytes of all words from `from` on.
Bytes HexBytes(const Words &words, std::size_t from)
{
    std::string digits;
    for (std::size_t i = from; i < words.size(); ++i) {
        digits += words[i];
    }
    Bytes bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        std::uint8_t byte = 0;
        const auto [end, error] = std::from_chars(&digits[i], &digits[i] + 2, byte, 16);
        if (error != std::errc{} || end != &digits[i] + 2) {
            throw BadCommand("not hexadecimal: " + digits.substr(i, 2));
        }
        bytes.push_back(byte);
    }
    return bytes;
}

struct Item {
    int slot = 0;     // 0-based place in the bank
    std::string name; // at most 16 bytes; padded with blanks
};

Item ItemFrom(const std::string &word)
{
    const std::size_t colon = word.find(':');
    if (colon == std::string::npos) {
        throw BadCommand("an item is SLOT:ITEM: " + word);
    }
    Item item{driver::ToNumber(word.substr(0, colon), "the slot", 0, 255), word.substr(colon + 1)};
    std::ranges::replace(item.name, '_', ' ');
    return item;
}

// Each item's body is made-up bytes, one more of them than the item before has.
Bytes FileOf(const std::vector<Item> &items)
{
    constexpr std::size_t kNameLength = 16;
    constexpr int kFirstBodyLength = 40;
    std::string between;
    for (const Item &item : items) {
        std::string name = item.name;
        name.resize(kNameLength, ' ');
        between += test::DirectoryEntry(name, item.slot, "\1\2\3\4\5\6\7");
    }
    std::vector<std::size_t> offsets;
    for (const Item &item : items) {
        const int length = kFirstBodyLength + static_cast<int>(offsets.size());
        offsets.push_back(test::kInstrumentHead + between.size());
        for (int k = 0; k < length; ++k) {
            between += static_cast<char>(item.slot * 7 + k);
        }
    }
    return test::Framed(between, offsets);
}

void MakeInstrumentFile(const Words &words)
{
    std::vector<Item> items;
    if (words.size() == 4 && words[2] == "full") {
        for (int slot = 0; slot < driver::ToNumber(words[3], "the places", 1, 128); ++slot) {
            items.push_back({slot, "Program " + std::to_string(slot + 1)});
        }
    } else {
        std::transform(words.begin() + 2, words.end(), std::back_inserter(items), ItemFrom);
    }
    WriteFile(words[1], FileOf(items));
}

void Patch(const Words &words)
{
    Bytes bytes = ReadFile(words[1]);
    const Bytes over = HexBytes(words, 3);
    const auto offset = static_cast<std::size_t>(driver::ToNumber(words[2], "the offset", 0, kHighestNumber));
    bytes.resize(std::max(bytes.size(), offset + over.size()));
    std::ranges::copy(over, bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    WriteFile(words[1], bytes);
}

void CompareBytes(const Words &words)
{
    const Bytes bytes = ReadFile(words[1]);
    const Bytes wanted = HexBytes(words, 3);
    const auto offset = static_cast<std::size_t>(driver::ToNumber(words[2], "the offset", 0, static_cast<int>(bytes.size())));
    const std::size_t there = std::min(wanted.size(), bytes.size() - offset);
    const Bytes found(bytes.begin() + static_cast<std::ptrdiff_t>(offset), bytes.begin() + static_cast<std::ptrdiff_t>(offset + there));
    if (found != wanted) {
        throw BadCommand(words[1] + " has " + driver::Hexadecimal(driver::AsText(found)) + " there");
    }
}

void Expect(bool so, const std::string &otherwise)
{
    if (!so) {
        throw BadCommand(otherwise);
    }
}

} // namespace

void UseProps(const Words &words)
{
    const std::string what = words.size() > 1 ? words[0] : "";
    if ((what == "pcg" || what == "sty" || what == "prf") && words.size() > 2) {
        MakeInstrumentFile(words);
    } else if (what == "file") {
        WriteFile(words[1], HexBytes(words, 2));
    } else if (what == "patch" && words.size() > 3) {
        Patch(words);
    } else if (what == "folder") {
        std::filesystem::create_directories(words[1]);
    } else if (what == "copy" && words.size() == 3) {
        WriteFile(words[2], ReadFile(words[1]));
    } else if (what == "remove") {
        Expect(std::filesystem::remove_all(words[1]) > 0, "no " + words[1]);
    } else if (what == "bytes" && words.size() > 3) {
        CompareBytes(words);
    } else if (what == "length" && words.size() == 3) {
        Expect(std::to_string(ReadFile(words[1]).size()) == words[2],
               words[1] + " has " + std::to_string(ReadFile(words[1]).size()) + " bytes");
    } else if (what == "same" && words.size() == 3) {
        Expect(ReadFile(words[1]) == ReadFile(words[2]), words[1] + " and " + words[2] + " differ");
    } else if (what == "missing") {
        Expect(!std::filesystem::exists(words[1]), words[1] + " is there");
    } else {
        throw BadCommand("unknown prop");
    }
}

} // namespace velluto::scenarios
