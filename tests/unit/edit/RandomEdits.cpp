#include "unit/edit/RandomEdits.h"

#include "unit/files/InstrumentFiles.h"

#include <algorithm>
#include <random>

namespace velluto::test {

namespace {

using Random = std::mt19937;

unsigned Below(Random &random, unsigned bound)
{
    return static_cast<unsigned>(random() % bound);
}

bool OneIn(Random &random, unsigned bound)
{
    return Below(random, bound) == 0;
}

std::uint8_t AnyByte(Random &random)
{
    return static_cast<std::uint8_t>(Below(random, 256));
}

// Letters with a tail of zeros, blanks or nothing; now and then any bytes, or nothing but blanks.
std::string AnyName(Random &random)
{
    std::string name;
    const unsigned length = OneIn(random, 6) ? 16 : Below(random, 17);
    const bool anyBytes = OneIn(random, 8);
    for (unsigned i = 0; i < length; ++i) {
        const unsigned letter = 'A' + Below(random, 26);
        name.push_back(static_cast<char>(anyBytes ? AnyByte(random) : OneIn(random, 12) ? 0 : OneIn(random, 8) ? ' ' : letter));
    }
    if (OneIn(random, 2)) {
        name.resize(16, ' ');
    }
    return name;
}

// Mostly short bodies, often of one length throughout a file, with small numbers among their bytes that look like slots.
Bytes AnyBody(Random &random, unsigned usual)
{
    unsigned length = usual;
    if (OneIn(random, 2)) {
        length = OneIn(random, 4) ? Below(random, 300) : Below(random, 30);
    }
    Bytes body(length);
    for (std::uint8_t &byte : body) {
        byte = OneIn(random, 2) ? static_cast<std::uint8_t>(Below(random, 20)) : AnyByte(random);
    }
    return body;
}

Item AnyItem(Random &random, int slot, unsigned usual)
{
    return {AnyName(random), slot, AnyBody(random, usual)};
}

// Ascending slots below the bound, about `wanted` of them.
std::vector<int> AnySlots(Random &random, unsigned bound, unsigned wanted)
{
    std::vector<int> slots;
    for (unsigned slot = 0; slot < bound; ++slot) {
        if (Below(random, bound) < wanted) {
            slots.push_back(static_cast<int>(slot));
        }
    }
    return slots;
}

// Now and then a slot that is out of order, double, or none of the bank.
void SpoilSlots(Random &random, std::vector<Item> &items)
{
    if (items.empty() || !OneIn(random, 6)) {
        return;
    }
    for (unsigned times = 1 + Below(random, 3); times > 0; --times) {
        Item &item = items[Below(random, static_cast<unsigned>(items.size()))];
        item.slot = OneIn(random, 2) ? items[Below(random, static_cast<unsigned>(items.size()))].slot
                                     : static_cast<int>(OneIn(random, 3) ? Below(random, 256) : Below(random, 20));
    }
}

std::vector<Item> AnyPrograms(Random &random)
{
    const unsigned places = OneIn(random, 3) ? 128 : 64;
    const unsigned wanted = OneIn(random, 5) ? places : Below(random, 14);
    const unsigned usual = Below(random, 40);
    std::vector<Item> items;
    for (const int slot : AnySlots(random, places, wanted)) {
        items.push_back(AnyItem(random, slot, usual));
    }
    return items;
}

std::vector<Item> AnyStyles(Random &random)
{
    const unsigned wanted = OneIn(random, 6) ? 16 : Below(random, 9);
    const std::vector<int> slots = AnySlots(random, 16, wanted);
    const unsigned usual = Below(random, 40);
    const unsigned arrangement = Below(random, 3);
    std::vector<Item> items;
    for (const int slot : slots) {
        items.push_back(AnyItem(random, slot, usual));
        if (arrangement == 1) {
            items.push_back(AnyItem(random, slot, usual));
        }
    }
    if (arrangement == 2) {
        for (const int slot : slots) {
            items.push_back(AnyItem(random, slot, usual));
        }
    }
    if (!items.empty() && OneIn(random, 10)) { // one that lost its partner
        items.erase(items.begin() + Below(random, static_cast<unsigned>(items.size())));
    }
    return items;
}

std::vector<Item> AnyPerformances(Random &random)
{
    const unsigned usual = Below(random, 60);
    std::vector<Item> items;
    for (const int slot : AnySlots(random, 8, OneIn(random, 4) ? 8 : Below(random, 7))) {
        items.push_back(AnyItem(random, slot, usual));
    }
    return items;
}

// Index words, lengths and counts that lie. What is left is still taken for an instrument's file.
void Damage(Random &random, Bytes &file)
{
    const auto size = static_cast<unsigned>(file.size());
    switch (Below(random, 5)) {
    case 0: // the outer length
        file[5] = static_cast<std::uint8_t>(OneIn(random, 4) ? AnyByte(random) : 0);
        file[6] = OneIn(random, 2) ? AnyByte(random) : file[6];
        file[7] = AnyByte(random);
        break;
    case 1: { // the count
        const unsigned n = OneIn(random, 3) ? Below(random, 255) : Below(random, 20);
        file[34] = static_cast<std::uint8_t>(24 * n / 256);
        file[35] = static_cast<std::uint8_t>(24 * n % 256);
        file.back() = static_cast<std::uint8_t>(n + 1);
        break;
    }
    case 2: // bytes of the index, next to the end
        for (unsigned times = 1 + Below(random, 4); times > 0; --times) {
            const unsigned reach = std::min(size - 36, 60U);
            file[size - 2 - Below(random, reach - 1)] = OneIn(random, 3) ? AnyByte(random) : static_cast<std::uint8_t>(Below(random, 3));
        }
        break;
    case 3: // a length that does not fill an entry
        file[35] = static_cast<std::uint8_t>(file[35] + Below(random, 5));
        break;
    default: // a file that ends early
        if (size > 100) {
            const std::uint8_t last = file.back();
            file.resize(36 + Below(random, size - 36));
            file.push_back(last);
        }
    }
    if (CountItems(file) != file.back() - 1) {
        const int n = CountItems(file);
        file[35] = static_cast<std::uint8_t>(file[35] - (n > 254 ? 24 * (n - 254) : 0));
        file.back() = static_cast<std::uint8_t>(CountItems(file) + 1);
    }
}

// Bytes between directory and bodies, as a Cut may leave them. The index and the outer length go along.
void AddGap(Random &random, Bytes &file, std::size_t items)
{
    const Bytes gap = AnyBody(random, 24 * (1 + Below(random, 3)));
    const auto at = static_cast<std::ptrdiff_t>(36 + 24 * items);
    file.insert(file.begin() + at, gap.begin(), gap.end());
    const auto shift = [&](std::size_t offset) {
        const std::size_t value = file[offset] * 65536U + file[offset + 1] * 256U + file[offset + 2] + gap.size();
        file[offset] = static_cast<std::uint8_t>(value >> 16);
        file[offset + 1] = static_cast<std::uint8_t>(value >> 8);
        file[offset + 2] = static_cast<std::uint8_t>(value);
    };
    shift(5);
    for (std::size_t i = 0; i < items; ++i) {
        shift(file.size() - 8 - 4 * items + 4 * i + 1);
    }
}

Bytes AnyFile(Random &random, Origin origin, bool wild)
{
    std::vector<Item> items = origin == Origin::ProgramFile ? AnyPrograms(random)
                              : origin == Origin::StyleFile ? AnyStyles(random)
                                                            : AnyPerformances(random);
    SpoilSlots(random, items);
    Bytes file = InstrumentFile(items);
    if (OneIn(random, 10)) {
        AddGap(random, file, items.size());
    }
    if (OneIn(random, wild ? 2 : 10)) {
        Damage(random, file);
    }
    return file;
}

std::vector<RandomDocument> AnyDocuments(Random &random)
{
    const bool wild = OneIn(random, 6); // files that lie, throughout
    std::vector<RandomDocument> documents;
    // Most of a sequence is about one type, so that its clipboard fits often.
    const auto favourite = static_cast<Origin>(Below(random, 3));
    const unsigned files = 3 + Below(random, 4);
    for (unsigned i = 0; i < files; ++i) {
        RandomDocument document;
        document.origin = OneIn(random, 4) ? static_cast<Origin>(Below(random, 3)) : favourite;
        document.file = AnyFile(random, document.origin, wild);
        const int bank = OneIn(random, 6) ? (OneIn(random, 2) ? 9 : 10) : 0;
        const auto taken = [&](const RandomDocument &other) { return other.origin == document.origin && other.bank == bank; };
        document.bank = std::ranges::any_of(documents, taken) ? 0 : bank;
        documents.push_back(document);
    }
    for (const Origin origin : {Origin::NewProgram64, Origin::NewProgram128, Origin::NewStyle, Origin::NewPerformance}) {
        const bool fits = (favourite == Origin::ProgramFile && origin <= Origin::NewProgram128) ||
                          (favourite == Origin::StyleFile && origin == Origin::NewStyle) ||
                          (favourite == Origin::PerformanceFile && origin == Origin::NewPerformance);
        if (fits ? !OneIn(random, 4) : OneIn(random, 8)) {
            documents.push_back({origin, 0, {}});
        }
    }
    return documents;
}

// Selections that lead somewhere, and a few that do not.
EditStep AnySelection(Random &random, std::size_t document, bool toPaste)
{
    EditStep step{Action::Select, document, toPaste ? Rows::Empty : Rows::Occupied, Below(random, 1000), 1 + Below(random, 5)};
    if (OneIn(random, 8)) {
        step.b = 200;
    }
    if (toPaste && OneIn(random, 3)) {
        step.rows = Rows::EmptyBeforeOccupied;
    }
    if (OneIn(random, 8)) {
        step.rows = static_cast<Rows>(Below(random, 7));
    }
    return step;
}

void AddCommand(Random &random, EditSequence &sequence)
{
    const auto count = static_cast<unsigned>(sequence.documents.size());
    const std::size_t document = Below(random, count);
    const auto add = [&](Action action) { sequence.steps.push_back({action, document, Rows::None, 0, 0}); };
    const unsigned what = Below(random, 100);
    if (what < 40) {
        sequence.steps.push_back(AnySelection(random, document, false));
        const unsigned which = Below(random, 20);
        add(which < 7 ? Action::Copy : which < 13 ? Action::Cut : which < 18 ? Action::Delete : Action::CopyPastMenu);
    } else if (what < 80) {
        if (!OneIn(random, 6)) {
            sequence.steps.push_back(AnySelection(random, document, true));
        }
        add(OneIn(random, 3) ? Action::PastePastMenu : Action::Paste);
    } else if (what < 84) {
        add(Action::Print);
    } else if (what < 88) {
        add(Action::ClickSts);
    } else if (what < 90) {
        add(Action::Close);
    } else if (what < 92) {
        add(Action::Delete);
    } else {
        add(Action::Open);
    }
}

} // namespace

EditSequence RandomSequence(unsigned seed)
{
    Random random(seed);
    EditSequence sequence;
    sequence.documents = AnyDocuments(random);
    for (std::size_t i = 0; i < sequence.documents.size(); ++i) {
        if (!OneIn(random, 5)) {
            sequence.steps.push_back({Action::Open, i, Rows::None, 0, 0});
        }
    }
    for (unsigned commands = 20 + Below(random, 30); commands > 0; --commands) {
        AddCommand(random, sequence);
    }
    return sequence;
}

} // namespace velluto::test
