// Makes the files of data/samples: valid containers of Programs, Styles and Performances with invented names and made-up
// bodies. It shares no code with the program on purpose, so that the samples check the program's reading and not only
// themselves.
//
//     make-samples FOLDER            writes the files there
//     make-samples --check FOLDER    says which files there differ from what it would write
#include "SampleItems.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

using samples::Bytes;
using samples::Item;

void AppendNumber(Bytes &bytes, std::uint64_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<std::uint8_t>(value >> static_cast<unsigned>(shift)));
    }
}

void AppendText(Bytes &bytes, std::string_view text)
{
    std::transform(text.begin(), text.end(), std::back_inserter(bytes), [](char c) { return static_cast<std::uint8_t>(c); });
}

// The eight bytes before every chunk: its type, a version, and the length of what follows, high byte first.
void AppendFrame(Bytes &bytes, std::uint8_t type, std::array<std::uint8_t, 3> version, std::uint64_t length)
{
    bytes.push_back(type);
    bytes.insert(bytes.end(), version.begin(), version.end());
    AppendNumber(bytes, length);
}

Bytes MakeFile(const std::vector<Item> &items)
{
    constexpr std::array<std::uint8_t, 3> kOuterVersion = {0x00, 0x01, 0x14};
    constexpr std::array<std::uint8_t, 3> kInnerVersion = {0x00, 0x00, 0x18};
    constexpr std::uint64_t kFrameLength = 8;
    constexpr std::uint64_t kEntryLength = 24;

    Bytes inside; // all but the outer frame
    const auto offset = [&inside] { return kFrameLength + inside.size(); };

    constexpr std::array<std::uint8_t, 12> kIdentity = {0x0B, 0, 0, 0, 0, 0, 0, 'K', 'O', 'R', 'F', 0};
    AppendFrame(inside, 0x02, kInnerVersion, kIdentity.size());
    inside.insert(inside.end(), kIdentity.begin(), kIdentity.end());

    const std::uint64_t directory = offset();
    AppendFrame(inside, 0x05, kInnerVersion, kEntryLength * items.size());
    for (const Item &item : items) {
        AppendText(inside, item.name);
        inside.insert(inside.end(), item.kept.begin(), item.kept.begin() + 4);
        inside.push_back(item.place);
        inside.insert(inside.end(), item.kept.begin() + 4, item.kept.end());
    }

    std::vector<std::uint64_t> bodies;
    for (const Item &item : items) {
        bodies.push_back(offset());
        inside.insert(inside.end(), item.body.begin(), item.body.end());
    }

    // The index: where the directory begins, where each body begins, and how many pieces that makes.
    AppendFrame(inside, 0xFE, kInnerVersion, 4 * items.size() + 16);
    AppendText(inside, "KBEG");
    AppendNumber(inside, directory);
    for (const std::uint64_t body : bodies) {
        AppendNumber(inside, body);
    }
    AppendText(inside, "KEND");
    AppendNumber(inside, items.size() + 1);

    Bytes file;
    AppendFrame(file, 0x01, kOuterVersion, inside.size());
    file.insert(file.end(), inside.begin(), inside.end());
    return file;
}

bool Write(const std::filesystem::path &path, const Bytes &bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    std::copy(bytes.begin(), bytes.end(), std::ostreambuf_iterator<char>(out));
    out.flush();
    return static_cast<bool>(out);
}

bool SameAs(const std::filesystem::path &path, const Bytes &bytes)
{
    std::ifstream in(path, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    return in && std::equal(content.begin(), content.end(), bytes.begin(), bytes.end(),
                            [](char have, std::uint8_t want) { return static_cast<std::uint8_t>(have) == want; });
}

int Run(const std::filesystem::path &folder, bool check)
{
    int wrong = 0;
    for (const samples::Sample &sample : samples::MakeSamples()) {
        const std::filesystem::path path = folder / sample.file;
        const Bytes bytes = MakeFile(sample.items);
        if (check && !SameAs(path, bytes)) {
            std::cerr << path.string() << ": not what make-samples writes\n";
            ++wrong;
        } else if (!check && !Write(path, bytes)) {
            std::cerr << path.string() << ": cannot be written\n";
            ++wrong;
        }
    }
    return wrong == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool check = !words.empty() && words.front() == "--check";
    if (words.size() != (check ? 2U : 1U)) {
        std::cerr << "usage: make-samples [--check] FOLDER\n";
        return 2;
    }
    return Run(words.back(), check);
}
