#include "platform/sequencer/MidiChunks.h"

#include <algorithm>
#include <string_view>

namespace velluto {

namespace {

constexpr std::string_view kHeader = "MThd";
constexpr std::string_view kTrack = "MTrk";

std::string_view AsText(FileBytes bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

bool IsPrintable(std::string_view name)
{
    return std::ranges::all_of(name, [](char letter) { return letter >= ' ' && letter <= '~'; });
}

std::size_t LittleEndian(FileBytes four)
{
    return std::size_t{four[0]} | std::size_t{four[1]} << 8 | std::size_t{four[2]} << 16 | std::size_t{four[3]} << 24;
}

// What the chunk "data" of a RIFF file of the kind RMID holds; nothing where it is no such file.
FileBytes DataOfRmid(FileBytes file)
{
    constexpr std::size_t kRiffHead = 12;
    if (file.size() < kRiffHead || !AsText(file).starts_with("RIFF") || !AsText(file).substr(8).starts_with("RMID")) {
        return {};
    }
    FileBytes rest = file.subspan(kRiffHead);
    while (rest.size() >= ChunkHead::kSize) {
        const bool isData = AsText(rest).starts_with("data");
        const std::size_t length = LittleEndian(rest.subspan(4, 4));
        rest = rest.subspan(ChunkHead::kSize);
        if (isData) {
            return rest.first(length != 0 ? std::min(length, rest.size()) : rest.size());
        }
        rest = rest.subspan(std::min(length + length % 2, rest.size()));
    }
    return {};
}

} // namespace

std::uint32_t BigEndian(FileBytes bytes)
{
    std::uint32_t value = 0;
    for (const std::uint8_t byte : bytes) {
        value = value << 8 | byte;
    }
    return value;
}

FileBytes FromHeader(FileBytes file)
{
    constexpr std::size_t kMostForeign = 8192;
    if (const FileBytes data = DataOfRmid(file); AsText(data).starts_with(kHeader)) {
        return data;
    }
    const std::size_t at = AsText(file).substr(0, kMostForeign + kHeader.size()).find(kHeader);
    return at == std::string_view::npos ? FileBytes{} : file.subspan(at);
}

ChunkHead ChunkAt(FileBytes file, std::size_t at)
{
    ChunkHead head;
    if (file.size() - at < ChunkHead::kSize) {
        return head;
    }
    const std::string_view name = AsText(file).substr(at, 4);
    const std::size_t length = BigEndian(file.subspan(at + 4, 4));
    head.isHeader = name == kHeader;
    head.isTrack = name == kTrack;
    head.begin = at + ChunkHead::kSize;
    head.fits = length <= file.size() - head.begin;
    head.begins = head.isTrack || (head.fits && IsPrintable(name));
    head.end = head.fits ? head.begin + length : file.size();
    return head;
}

bool IsBoundary(FileBytes file, std::size_t at)
{
    return at == file.size() || ChunkAt(file, at).begins;
}

std::size_t NextTrack(FileBytes file, std::size_t from)
{
    return std::min(AsText(file).find(kTrack, from), file.size());
}

} // namespace velluto
