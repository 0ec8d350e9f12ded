#include "Stage.h"
#include "midi/DeviceMenus.h"

#include "files/Korf.h"
#include "midi/MIDI.h"

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
    image += BuildIndex(image, static_cast<std::int64_t>(image.size()), table, static_cast<int>(slots.size()));
    return {image.begin(), image.end()};
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
