#include "tools/SampleItems.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <utility>

namespace samples {

namespace {

constexpr std::size_t kNameLength = 16;

// Shortest and longest body, in bytes.
struct BodyLength {
    std::uint64_t shortest;
    std::uint64_t longest;
};
constexpr BodyLength kProgramBody{100, 800};
constexpr BodyLength kPerformanceBody{300, 900};
constexpr BodyLength kStsBody{200, 700};

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

// Styles and Performances are a place of ours and a step or a time of day of ours.
constexpr std::array<std::string_view, 16> kGrounds = {"Harbour", "Granite", "Orchard", "Copper",   "Saltmill", "Quarry",
                                                       "Ferry",   "Attic",   "Foundry", "Meridian", "Cloister", "Gravel",
                                                       "Tidal",   "Canvas",  "Birch",   "Lowland"};
constexpr std::array<std::string_view, 8> kSteps = {"Shuffle", "Walk", "Glide", "March", "Sway", "Stomp", "Waltz", "Roll"};
constexpr std::array<std::string_view, 8> kHours = {"Dawn", "Matinee", "Noon", "Siesta", "Dusk", "Supper", "Midnight", "Encore"};

enum class Padding { Blanks, Zeros, Mixed };
enum class Filling { Full, Sparse, Empty };

struct ProgramSample {
    std::string_view file;
    unsigned places; // 64 or 128
    Filling filling;
    Padding padding;
    bool accented; // some names hold Windows-1252 bytes
};

constexpr std::array<ProgramSample, 6> kPrograms = {{
    {"Full-64.pcg", 64, Filling::Full, Padding::Zeros, false},
    {"Sparse-64.pcg", 64, Filling::Sparse, Padding::Blanks, false},
    {"Full-128.pcg", 128, Filling::Full, Padding::Blanks, false},
    {"Sparse-128.pcg", 128, Filling::Sparse, Padding::Zeros, false},
    {"Accents-64.pcg", 64, Filling::Sparse, Padding::Mixed, true},
    {"Empty.pcg", 64, Filling::Empty, Padding::Zeros, false},
}};

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

Item MakeItem(std::string name, unsigned place, BodyLength length, Numbers &numbers)
{
    Item item;
    item.name = std::move(name);
    item.place = static_cast<std::uint8_t>(place);
    std::generate(item.kept.begin(), item.kept.end(), [&numbers] { return numbers.Byte(); });
    item.body.resize(length.shortest + numbers.Below(length.longest - length.shortest + 1));
    std::generate(item.body.begin(), item.body.end(), [&numbers] { return numbers.Byte(); });
    return item;
}

std::string ItemName(const ProgramSample &sample, unsigned place, std::size_t order)
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
bool Occupied(const ProgramSample &sample, unsigned place, Numbers &numbers)
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

std::vector<Item> ProgramItems(const ProgramSample &sample)
{
    Numbers numbers(sample.file);
    std::vector<Item> items;
    for (unsigned place = 0; place < sample.places; ++place) {
        if (!Occupied(sample, place, numbers)) {
            continue;
        }
        const std::string name = Padded(ItemName(sample, place, items.size()), sample.padding, items.size());
        items.push_back(MakeItem(name, place, kProgramBody, numbers));
    }
    return items;
}

// How the directory of a Style file is arranged.
enum class Arrangement { StylesOnly, Interleaved, Grouped };

struct StyleSample {
    std::string_view file;
    Arrangement arrangement;
    std::uint32_t places; // a bit for each of the 16 places that hold a Style, the lowest for the first
    BodyLength body;      // of a Style; its STS is shorter
    Padding padding;
};

constexpr std::array<StyleSample, 6> kStyles = {{
    {"Only-16.sty", Arrangement::StylesOnly, 0xFFFF, {1500, 9000}, Padding::Zeros},
    {"Interleaved-16.sty", Arrangement::Interleaved, 0xFFFF, {1500, 9000}, Padding::Blanks},
    {"Grouped-16.sty", Arrangement::Grouped, 0xFFFF, {1500, 9000}, Padding::Zeros},
    {"Sparse-5.sty", Arrangement::Interleaved, 0x8219, {40, 12000}, Padding::Mixed},
    {"Large-3.sty", Arrangement::Grouped, 0x0103, {70000, 160000}, Padding::Blanks},
    {"Single.sty", Arrangement::StylesOnly, 0x0001, {2000, 4000}, Padding::Zeros},
}};

struct PerformanceSample {
    std::string_view file;
    std::uint32_t places; // a bit for each of the 8 places
    Padding padding;
    bool accented;
};

constexpr std::array<PerformanceSample, 4> kPerformances = {{
    {"Full-8.prf", 0xFF, Padding::Zeros, false},
    {"Sparse-8.prf", 0x25, Padding::Blanks, false},
    {"Accents-8.prf", 0x3F, Padding::Mixed, true},
    {"Empty.prf", 0x00, Padding::Zeros, false},
}};

std::vector<unsigned> PlacesOf(std::uint32_t bits)
{
    constexpr unsigned kMost = 16;
    std::vector<unsigned> places;
    for (unsigned place = 0; place < kMost; ++place) {
        if ((bits >> place & 1U) != 0) {
            places.push_back(place);
        }
    }
    return places;
}

std::string TwoWords(std::string_view first, std::string_view second)
{
    return std::string(first) + ' ' + std::string(second);
}

std::vector<Item> StyleItems(const StyleSample &sample)
{
    Numbers numbers(sample.file);
    std::vector<Item> items;
    std::vector<Item> behind; // the STS of a grouped file
    for (const unsigned place : PlacesOf(sample.places)) {
        const std::string name = TwoWords(kGrounds[place], kSteps[place * 3U % kSteps.size()]);
        items.push_back(MakeItem(Padded(name, sample.padding, place), place, sample.body, numbers));
        if (sample.arrangement != Arrangement::StylesOnly) {
            std::vector<Item> &to = sample.arrangement == Arrangement::Interleaved ? items : behind;
            to.push_back(MakeItem(Padded(TwoWords(kGrounds[place], "STS"), sample.padding, place), place, kStsBody, numbers));
        }
    }
    std::move(behind.begin(), behind.end(), std::back_inserter(items));
    return items;
}

std::vector<Item> PerformanceItems(const PerformanceSample &sample)
{
    Numbers numbers(sample.file);
    std::vector<Item> items;
    for (const unsigned place : PlacesOf(sample.places)) {
        const std::string own = TwoWords(kGrounds[place * 2U + 1], kHours[place]);
        const bool accented = sample.accented && items.size() < kAccentedNames.size();
        const std::string name = accented ? std::string(kAccentedNames[items.size()]) : own;
        items.push_back(MakeItem(Padded(name, sample.padding, items.size()), place, kPerformanceBody, numbers));
    }
    return items;
}

} // namespace

std::vector<Sample> MakeSamples()
{
    std::vector<Sample> all;
    all.reserve(kPrograms.size() + kStyles.size() + kPerformances.size());
    for (const ProgramSample &sample : kPrograms) {
        all.push_back({sample.file, ProgramItems(sample)});
    }
    for (const StyleSample &sample : kStyles) {
        all.push_back({sample.file, StyleItems(sample)});
    }
    for (const PerformanceSample &sample : kPerformances) {
        all.push_back({sample.file, PerformanceItems(sample)});
    }
    return all;
}

} // namespace samples
