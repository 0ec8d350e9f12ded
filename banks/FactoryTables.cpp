#include "banks/FactoryTables.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace velluto {

namespace {

// Fills records 1 to the last one of the table. What the file does not hold, or does not give, reads as blanks.
template <std::size_t N>
void ReadTable(FileStore &files, const std::string &path, std::size_t length, std::array<std::string, N> &table)
{
    std::vector<std::uint8_t> bytes((N - 1) * length, ' ');
    std::unique_ptr<RandomAccessFile> file;
    if (!files.Open(path, file).Failed()) {
        std::size_t got = 0;
        (void)file->Read(0, bytes, got);
    }
    for (std::size_t record = 1; record < N; ++record) {
        const auto first = bytes.begin() + static_cast<std::ptrdiff_t>((record - 1) * length);
        table[record].assign(first, first + static_cast<std::ptrdiff_t>(length));
    }
}

} // namespace

void ReadFactoryTables(FileStore &files, const std::string &pcgTablePath, const std::string &styTablePath, FactoryTables &tables)
{
    ReadTable(files, pcgTablePath, kPcgTableRecordLength, tables.PcgTable);
    ReadTable(files, styTablePath, kStyTableRecordLength, tables.StyTable);
}

} // namespace velluto
