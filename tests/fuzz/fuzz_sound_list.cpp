// Any bytes as lists of sounds and as plain tables: read, put into tables, written as text and read back. An input whose first byte is
// beyond ASCII picks words of which a text is made, or lines of a true one that are changed.
#include "tool/PlainTables.h"
#include "tool/SoundImport.h"
#include "tool/SourceFault.h"
#include "tool/SourceText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <string_view>
#include <vector>

using namespace velluto;
using namespace velluto::tool;

namespace {

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

// Calls read, which may refuse its text.
template <class Read>
void Try(Read read)
{
    try {
        read();
    } catch (const SourceFault &fault) {
        Expect(!std::string_view(fault.what()).empty());
    }
}

// Tables of the least that can be made: every group has its heading and one sound.
RecordTable StartingPrograms()
{
    RecordTable table = EmptyProgramTable();
    int program = 0;
    for (const SoundGroup &group : SoundGroups()) {
        table.Put(group.heading, PcgField::Heading, "Group");
        table.Put(group.sounds.first, PcgField::Name, "Sound");
        for (int record = group.sounds.first; record <= group.sounds.last; ++record) {
            PutAddress(table, record, {121, 0, program});
        }
        ++program;
    }
    return table;
}

RecordTable StartingStyles()
{
    RecordTable table = EmptyStyleTable();
    for (int page = 0; page < kStylePages; ++page) {
        table.Put(StyleHeading(page), StyField::Heading, "Page");
    }
    return table;
}

// The names in, the text out, and the same tables of it.
void Import(const std::vector<ListedSound> &sounds)
{
    RecordTable programs = StartingPrograms();
    RecordTable styles = StartingStyles();
    const std::size_t length = programs.Bytes().size();
    const ImportResult result = ImportSounds(sounds, programs, styles);
    Expect(programs.Bytes().size() == length && result.homeless.size() <= sounds.size());
    Expect(MakePrograms(PlainPrograms(programs, {}), {}).Bytes() == programs.Bytes());
    Expect(MakeStyles(PlainStyles(styles, {}), {}).Bytes() == styles.Bytes());
}

constexpr std::array<std::string_view, 24> kDefinitionLines{".Patch Names",
                                                            "[Piano]",
                                                            "0=Grand",
                                                            "127=Last",
                                                            "5=A name that is longer than any record",
                                                            "[Other]",
                                                            "120=Other",
                                                            "BasedOn=Piano",
                                                            ".Instrument Definitions",
                                                            "[PA80]",
                                                            "BankSelMethod=2",
                                                            "Patch[15488]=Piano",
                                                            "Patch[*]=Piano",
                                                            "Patch[0]=Other",
                                                            "Patch[15489]=Other",
                                                            "Patch[120]=Piano",
                                                            "Drum[15360,*]=1",
                                                            "Drum[*,*]=1",
                                                            "Drum[0,5]=1",
                                                            "Patch[15360]=Piano",
                                                            "BankSelMethod=1",
                                                            "[Another]",
                                                            "; a remark",
                                                            "Patch[1]=nothing"};
constexpr std::array<std::string_view, 10> kNumbers{"0", "1", "15", "16", "120", "121", "127", "128", "", "8"};
constexpr std::array<std::string_view, 8> kNames{"Piano", "\"a \"\"b\"\"\"", "\"", "", "A name longer than any record", "\xE2\x98\x83", "x",
                                                 " y "};
constexpr std::array<std::string_view, 6> kKinds{"", "style", "program", "other", "STYLE", "\""};
constexpr std::array<std::string_view, 14> kPlainWords{
    "", "\"", "\"\"", "x", "9", "\xE2\x98\x83", "\x01", "ab c", "128", "#", "A", "group B", "group 2", "a name far too long for any"};

template <std::size_t n>
std::string Pick(FuzzedDataProvider &bytes, const std::array<std::string_view, n> &words)
{
    return std::string(words.at(bytes.ConsumeIntegralInRange<std::size_t>(0, n - 1)));
}

// All lines once, or none, and some more behind them.
std::string Definition(FuzzedDataProvider &bytes)
{
    std::string text;
    if (bytes.ConsumeBool()) {
        for (const std::string_view line : kDefinitionLines) {
            text += std::string(line) + '\n';
        }
    }
    for (int left = 60; left > 0 && bytes.remaining_bytes() > 0; --left) {
        text += Pick(bytes, kDefinitionLines) + '\n';
    }
    return text;
}

std::string Csv(FuzzedDataProvider &bytes)
{
    const std::string separator = bytes.PickValueInArray({",", ";", "\t"});
    std::string text =
        bytes.PickValueInArray({"", "", "msb,lsb,program,name,kind\n", "name;program;lsb;msb\n", "program,name\n", "\xEF\xBB\xBF"});
    for (int left = 20; left > 0 && bytes.remaining_bytes() > 0; --left) {
        const std::string msb = Pick(bytes, kNumbers);
        const std::string behind = separator + Pick(bytes, kNumbers) + separator + Pick(bytes, kNames);
        const std::string kind = bytes.ConsumeBool() ? separator + Pick(bytes, kKinds) : std::string();
        const int first = bytes.ConsumeIntegralInRange(0, 17);
        const int last = first + bytes.ConsumeIntegralInRange(0, bytes.ConsumeIntegralInRange(0, 7) == 0 ? 90 : 1);
        for (int lsb = first; lsb <= last; ++lsb) {
            text.append(msb).append(separator).append(std::to_string(lsb)).append(behind).append(kind).append("\n");
        }
    }
    return text;
}

// The line with another word in one of the fields between its commas.
std::string WithWord(const std::string &line, std::size_t field, std::string_view word)
{
    std::size_t from = 0;
    for (; field > 0 && line.find(',', from) != std::string::npos; --field) {
        from = line.find(',', from) + 1;
    }
    const std::size_t to = std::min(line.find(',', from), line.size());
    return line.substr(0, from).append(word).append(line.substr(to));
}

// A true table with some lines left out, said again, or changed in one field.
std::string Changed(FuzzedDataProvider &bytes, const std::string &plain)
{
    std::vector<std::string> lines;
    for (const std::string_view line : LinesOf(plain)) {
        lines.emplace_back(line);
    }
    for (int changes = bytes.ConsumeIntegralInRange(0, 3); changes > 0 && !lines.empty(); --changes) {
        const bool isHead = bytes.ConsumeBool();
        const auto from = lines.begin() + static_cast<std::ptrdiff_t>(bytes.ConsumeIntegralInRange<std::size_t>(0, lines.size() - 1));
        const auto found =
            std::find_if(from, lines.end(), [isHead](const std::string &line) { return !isHead || line.starts_with("group"); });
        const std::ptrdiff_t at = std::min(found - lines.begin(), std::ssize(lines) - 1);
        const std::string line = lines[static_cast<std::size_t>(at)];
        switch (bytes.ConsumeIntegralInRange(0, 3)) {
        case 0:
            lines.erase(lines.begin() + at);
            break;
        case 1:
            lines.insert(lines.begin() + at, bytes.ConsumeIntegralInRange<std::size_t>(1, 70), line);
            break;
        default:
            lines[static_cast<std::size_t>(at)] = WithWord(line, bytes.ConsumeIntegralInRange<std::size_t>(0, 4), Pick(bytes, kPlainWords));
        }
    }
    std::string text;
    for (const std::string &line : lines) {
        text += line + '\n';
    }
    return text;
}

void UseRecipe(FuzzedDataProvider &bytes)
{
    static const std::string programs = PlainPrograms(StartingPrograms(), {});
    static const std::string styles = PlainStyles(StartingStyles(), {});
    const int what = bytes.ConsumeIntegralInRange(0, 3);
    const std::string instrument = bytes.PickValueInArray({"", "pa80", "Nobody"});
    switch (what) {
    case 0:
        Try([&] { Import(ReadDefinition(Definition(bytes), instrument, {})); });
        break;
    case 1:
        Try([&] { Import(ReadCsv(Csv(bytes), {})); });
        break;
    case 2:
        Try([&] { (void)PlainPrograms(MakePrograms(Changed(bytes, programs), {}), {}); });
        break;
    default:
        Try([&] { (void)PlainStyles(MakeStyles(Changed(bytes, styles), {}), {}); });
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size > 0 && data[0] >= 0x80) {
        FuzzedDataProvider bytes(data + 1, size - 1);
        UseRecipe(bytes);
        return 0;
    }
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    Try([text] { Import(ReadDefinition(text, {}, {})); });
    Try([text] { Import(ReadCsv(text, {})); });
    Try([text] { (void)PlainPrograms(MakePrograms(text, {}), {}); });
    Try([text] { (void)PlainStyles(MakeStyles(text, {}), {}); });
    (void)PlainPrograms(ProgramTable(std::string(text)), {});
    (void)PlainStyles(StyleTable(std::string(text)), {});
    return 0;
}
