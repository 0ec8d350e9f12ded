#include "Stage.h"

#include "files/Korf.h"
#include "midi/MIDI.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace velluto::bench {

test::Bytes LargeFile(const std::vector<int> &slots)
{
    std::string image;
    BuildHeader(image);
    for (const int slot : slots) {
        std::string entry(Korf::kEntryLength, '\0');
        const std::string name = "Item " + std::to_string(slot);
        entry.replace(0, name.size(), name);
        entry[Korf::kEntrySlot] = static_cast<char>(slot);
        image += entry;
    }
    const std::size_t body = (kFileLength - image.size()) / slots.size();
    ItemTable table{};
    for (std::size_t item = 0; item < slots.size(); ++item) {
        table[item] = static_cast<std::int32_t>(image.size() + 1);
        image.append(body, static_cast<char>(item * 7 + 1));
    }
    BuildDirectory(image, table, static_cast<int>(slots.size()));
    return {image.begin(), image.end()};
}

void ReadPlainly(const std::string &path)
{
    std::FILE *file = std::fopen(path.c_str(), "rb");
    std::fseek(file, 0, SEEK_END);
    const auto length = static_cast<std::size_t>(std::ftell(file));
    std::rewind(file);
    std::setvbuf(file, nullptr, _IONBF, 0);
    const auto buffer = std::make_unique_for_overwrite<std::uint8_t[]>(length);
    benchmark::DoNotOptimize(std::fread(buffer.get(), 1, length, file));
    benchmark::DoNotOptimize(buffer.get());
    std::fclose(file);
}

Stage::Stage()
{
    run.Start(test::TestProgram::English);
    mnuDevMIDIOut_Click(run.program.midi, 0);
}

std::string Stage::Put(const std::string &name, const test::Bytes &bytes)
{
    test::WriteBytes(run.At(name), bytes);
    return run.At(name);
}

} // namespace velluto::bench
