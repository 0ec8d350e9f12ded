// Writing. The reading is in PlainTablesRead.cpp.
#include "tool/PlainTables.h"

#include "app/Characters.h"

#include <algorithm>

namespace velluto::tool {

namespace {

constexpr TwoTexts kProgramsHead{
    "# I Program della tastiera. \"velluto-tool tables make\" ne fa la tabella del programma.\n"
    "# Una riga per suono: BANCA, NOME, MSB, LSB, PROGRAM; il nome ha al massimo 13 lettere, i numeri vanno da 0 a 127.\n",
    "# The Programs of the instrument. \"velluto-tool tables make\" makes the program's table of them.\n"
    "# A line for each sound: BANK, NAME, MSB, LSB, PROGRAM; a name has at most 13 letters, the numbers go from 0 to 127.\n"};
constexpr TwoTexts kStylesHead{"# Gli Style della tastiera. \"velluto-tool tables make\" ne fa la tabella del programma.\n"
                               "# Una riga per Style: BANCA, NOME; sedici per pagina, il nome ha al massimo 15 lettere.\n",
                               "# The Styles of the instrument. \"velluto-tool tables make\" makes the program's table of them.\n"
                               "# A line for each Style: BANK, NAME; sixteen on a page, a name has at most 15 letters.\n"};
constexpr TwoTexts kPlaces{"posti: %1", "%1 places"};

constexpr std::size_t kNameColumn = 15; // a name with its comma
constexpr std::size_t kProgramColumn = 4;

std::string Quoted(std::string_view bytes)
{
    std::u32string characters = CharactersOfBytes(bytes);
    std::ranges::replace_if(
        characters, [](char32_t c) { return c < U' '; }, U'?'); // a line has to stay one
    std::string text = Utf8Of(characters);
    if (text.find_first_of(",#\"") == std::string::npos && !text.starts_with(' ')) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted += '"';
}

// Blanks up to so many characters; the bytes that continue one do not count.
std::string Padded(std::string text, std::size_t width)
{
    const auto letters = static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return !IsContinuationByte(c); }));
    return text.append(width - std::min(letters, width), ' ');
}

// Places at the end of a group that no line is needed for: no name, and the first sound's numbers.
int LastToTell(const RecordTable &table, const SoundGroup &group)
{
    const SoundAddress first = AddressOf(table.Record(group.sounds.first));
    int last = group.sounds.last;
    while (last > group.sounds.first && NameIn(table.Record(last), PcgField::Name).empty() &&
           (!HasAddress(table.Record(last)) || AddressOf(table.Record(last)) == first)) {
        --last;
    }
    return last;
}

} // namespace

std::string PlainPrograms(const RecordTable &table, const Speaker &speaker)
{
    std::string text = speaker.Say(kProgramsHead);
    for (const SoundGroup &group : SoundGroups()) {
        const int places = group.sounds.last - group.sounds.first + 1;
        text += std::string("\ngroup ") + group.bank + ", " + Quoted(NameIn(table.Record(group.heading), PcgField::Heading)) + "  # " +
                speaker.Say(kPlaces, {std::to_string(places)}) + "\n";
        for (int record = group.sounds.first; record <= LastToTell(table, group); ++record) {
            const std::string_view sound = table.Record(record);
            const SoundAddress address = AddressOf(sound);
            const std::string program = std::to_string(address.program);
            text += std::string(1, group.bank) + ", " + Padded(Quoted(NameIn(sound, PcgField::Name)) + ",", kNameColumn) +
                    std::to_string(address.msb) + ", " + std::to_string(address.lsb) + "," +
                    std::string(kProgramColumn - program.size(), ' ') + program + "\n";
        }
    }
    return text;
}

std::string PlainStyles(const RecordTable &table, const Speaker &speaker)
{
    std::string text = speaker.Say(kStylesHead);
    for (int page = 0; page < kStylePages; ++page) {
        const int heading = StyleHeading(page);
        const std::string bank = StylePageName(page);
        text += "\ngroup " + bank + ", " + Quoted(NameIn(table.Record(heading), StyField::Heading)) + "\n";
        for (int style = 1; style <= kStylesOnPage; ++style) {
            text += bank + ", " + Quoted(NameIn(table.Record(heading + style), StyField::Name)) + "\n";
        }
    }
    return text;
}

} // namespace velluto::tool
