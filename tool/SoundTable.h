// The tables of the factory sounds as records that can be written, and the groups of the panel in them. Used by all that
// imports, exports and makes tables.
#pragma once

#include "banks/BankLayout.h"

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velluto::tool {

// Records of one length, counted from 1. What lies behind the last one is kept.
class RecordTable {
public:
    // The bytes of a file; blanks where they end too soon.
    RecordTable(std::string bytes, int records, int length);

    [[nodiscard]] std::string_view Record(int number) const;
    // Fills the field, from the left and with blanks; what is longer is cut.
    void Put(int number, RecordField field, std::string_view text);
    void PutNumber(int number, RecordField field, int value); // from the right
    [[nodiscard]] const std::string &Bytes() const { return bytes_; }

private:
    std::string bytes_;
    std::size_t length_;
};

[[nodiscard]] RecordTable ProgramTable(std::string bytes);
[[nodiscard]] RecordTable StyleTable(std::string bytes);
// Tables that hold the numbers of their records and their line ends, and nothing else.
[[nodiscard]] RecordTable EmptyProgramTable();
[[nodiscard]] RecordTable EmptyStyleTable();

// The numbers that select a sound, 0 to 127 each.
struct SoundAddress {
    int msb = 0;
    int lsb = 0;
    int program = 0;
    auto operator<=>(const SoundAddress &) const = default; // NOLINT(modernize-use-nullptr): what it is made of is the compiler's
};

// Of the lowest seven bits, as recall sends them.
[[nodiscard]] SoundAddress AddressOf(std::string_view record);
[[nodiscard]] bool HasAddress(std::string_view record); // any digit where its numbers belong
void PutAddress(RecordTable &table, int record, const SoundAddress &address);
[[nodiscard]] std::string_view NameIn(std::string_view record, RecordField field); // without the blanks behind it

// A group of the panel: the record with its heading, and the records of its sounds.
struct SoundGroup {
    char bank = 'A';
    int heading = 0;
    RecordRange sounds;
};

// All seventeen, in their order.
[[nodiscard]] const std::vector<SoundGroup> &SoundGroups();
// The 0-based group that a sound's General MIDI family belongs to. Kits of drums have a place of their own.
[[nodiscard]] std::size_t GroupOf(const SoundAddress &address, bool isKit);

// Pages of sixteen Styles: a heading, and sixteen items behind it. The eighth is in both lists, as banks 8 and 9.
inline constexpr int kStylePages = 15;
inline constexpr int kStyleBanks = 16;
[[nodiscard]] std::string StylePageName(int page);  // from 0: "1", ... "8/9", ... "16"
[[nodiscard]] int StyleHeading(int page);           // its record
[[nodiscard]] int StyleRecord(int bank, int style); // both from 0

} // namespace velluto::tool
