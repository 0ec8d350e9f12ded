// Makes the Program files of data/samples: valid containers with invented names and made-up bodies. It shares no code
// with the program on purpose, so that the samples check the program's reading and not only themselves.
//
//     make-samples FOLDER            writes the files there
//     make-samples --check FOLDER    says which files there differ from what it would write
//
// The same numbers come out on every machine: the engine is the standard's, and only its raw output is used.
#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kNameLength = 16;
constexpr std::uint64_t kShortestBody = 100;
constexpr std::uint64_t kLongestBody = 800;

// Names are a colour of ours and a voice of ours; none is taken from an instrument.
constexpr std::array<std::string_view, 16> kColours = {"Amber", "Basalt",  "Cinder", "Dune",    "Ember",  "Fennel", "Gable",   "Hazel",
                                                       "Ivory", "Juniper", "Kelp",   "Lantern", "Meadow", "Nettle", "Opaline", "Pebble"};
constexpr std::array<std::string_view, 8> kVoices = {"Keys", "Reeds", "Chimes", "Choir", "Bow", "Horns", "Pluck", "Drone"};

// Windows-1252 bytes beyond ASCII, as an owner's own names have them.
constexpr std::array<std::string_view, 6> kAccentedNames = {"Caf\xE9 Musette",
                                                            "Sch\xF6ner Klang",
                                                            "Ni\xF1o Flauta",
                                                            "Perch\xE9 No \x80",
                                                            "\x93Quoted\x94",
                                                            "Na\xEFve \x8C"
                                                            "uvre"};

enum class Padding { Blanks, Zeros, Mixed };
enum class Filling { Full, Sparse, Empty };

struct Sample {
    std::string_view file;
    unsigned places; // 64 or 128
    Filling filling;
    Padding padding;
    bool accented; // some names hold Windows-1252 bytes
};

constexpr std::array<Sample, 6> kSamples = {{
    {"Full-64.pcg", 64, Filling::Full, Padding::Zeros, false},
    {"Sparse-64.pcg", 64, Filling::Sparse, Padding::Blanks, false},
    {"Full-128.pcg", 128, Filling::Full, Padding::Blanks, false},
    {"Sparse-128.pcg", 128, Filling::Sparse, Padding::Zeros, false},
    {"Accents-64.pcg", 64, Filling::Sparse, Padding::Mixed, true},
    {"Empty.pcg", 64, Filling::Empty, Padding::Zeros, false},
}};

using Bytes = std::vector<std::uint8_t>;

struct Item {
    std::string name; // kNameLength bytes, padded
    std::uint8_t place = 0;
    std::array<std::uint8_t, 7> kept{}; // four bytes before the place and three behind it, which nobody reads
    Bytes body;
};

// One stream of numbers for each file, seeded by its name: a new sample leaves the others as they are.
class Numbers {
public:
    explicit Numbers(std::string_view file)
    {
        constexpr std::uint64_t kBasis = 14695981039346656037U;
        constexpr std::uint64_t kPrime = 1099511628211U;
        std::uint64_t seed = kBasis;
        for (const char c : file) {
            seed = (seed ^ static_cast<unsigned char>(c)) * kPrime;
        }
        engine_.seed(seed);
    }
    std::uint64_t Below(std::uint64_t limit) { return engine_() % limit; }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(Below(256)); }

private:
    std::mt19937_64 engine_; // NOLINT(cert-msc51-cpp): the same bytes each time are the point
};

std::string ItemName(const Sample &sample, unsigned place, std::size_t order)
{
    if (sample.accented && order < kAccentedNames.size()) {
        return std::string(kAccentedNames[order]);
    }
    // Steps that share no factor with the tables' sizes, so that 128 places get 128 names.
    const std::string_view colour = kColours[(place * 5U) % kColours.size()];
    const std::string_view voice = kVoices[(place / kColours.size() * 3U + place) % kVoices.size()];
    return std::string(colour) + ' ' + std::string(voice);
}

std::string Padded(std::string name, Padding padding, std::size_t order)
{
    const bool blanks = padding == Padding::Blanks || (padding == Padding::Mixed && order % 2 == 0);
    name.resize(kNameLength, blanks ? ' ' : '\0');
    return name;
}

// About one place in four, and always the fifth and the last: the last one says how many places there are.
bool Occupied(const Sample &sample, unsigned place, Numbers &numbers)
{
    constexpr unsigned kFifth = 4;
    switch (sample.filling) {
    case Filling::Full:
        return true;
    case Filling::Sparse:
        return numbers.Below(4) == 0 || place == kFifth || place + 1 == sample.places;
    case Filling::Empty:
        break;
    }
    return false;
}

std::vector<Item> MakeItems(const Sample &sample)
{
    Numbers numbers(sample.file);
    std::vector<Item> items;
    for (unsigned place = 0; place < sample.places; ++place) {
        if (!Occupied(sample, place, numbers)) {
            continue;
        }
        Item item;
        item.name = Padded(ItemName(sample, place, items.size()), sample.padding, items.size());
        item.place = static_cast<std::uint8_t>(place);
        std::generate(item.kept.begin(), item.kept.end(), [&numbers] { return numbers.Byte(); });
        item.body.resize(kShortestBody + numbers.Below(kLongestBody - kShortestBody + 1));
        std::generate(item.body.begin(), item.body.end(), [&numbers] { return numbers.Byte(); });
        items.push_back(std::move(item));
    }
    return items;
}

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
    for (const Sample &sample : kSamples) {
        const std::filesystem::path path = folder / sample.file;
        const Bytes bytes = MakeFile(MakeItems(sample));
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
