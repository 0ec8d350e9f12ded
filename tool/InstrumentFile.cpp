#include "tool/InstrumentFile.h"

#include "app/Paths.h"

#include <algorithm>
#include <array>

namespace velluto::tool {

namespace {

constexpr std::string_view kMark = "KORF";
constexpr std::uint8_t kDirectoryType = 0x05;
constexpr std::uint8_t kLaterEntries = 0x01; // behind the type, where this instrument has a zero

} // namespace

Kind KindOf(std::string_view path)
{
    const std::string extension = ExtensionOf(path);
    if (extension == "pcg") {
        return Kind::Program;
    }
    if (extension == "sty") {
        return Kind::Style;
    }
    return extension == "prf" ? Kind::Performance : Kind::None;
}

std::string_view NameOf(Kind kind)
{
    constexpr std::array<std::string_view, 4> kNames{"", "Program", "Style", "Performance"};
    return kNames.at(static_cast<std::size_t>(kind));
}

RuntimeError ReadInstrument(FileStore &files, const std::string &path, SharedBytes &bytes, std::uint64_t &length)
{
    std::unique_ptr<RandomAccessFile> file;
    if (const RuntimeError error = files.OpenToRead(path, file); error.Failed()) {
        return error;
    }
    if (const RuntimeError error = file->Length(length); error.Failed()) {
        return error;
    }
    SharedBytes read(static_cast<std::size_t>(length > kLongestFile ? Korf::kHeadLength : length));
    std::size_t got = 0;
    if (const RuntimeError error = file->Read(0, read.Writable(), got); error.Failed()) {
        return error;
    }
    bytes = got == read.size() ? std::move(read) : SharedBytes(read.View().first(got));
    return {};
}

bool IsOfLaterInstrument(ImageBlock image)
{
    const auto directory = static_cast<std::size_t>(Korf::kDirectoryChunk);
    return image.size() > directory + 1 && image[directory] == kDirectoryType && image[directory + 1] == kLaterEntries &&
           std::ranges::equal(image.subspan(Korf::kMark, kMark.size()), kMark);
}

} // namespace velluto::tool
