#include "platform/rtmidi/WholeFile.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace velluto {

FileReading ReadWholeFile(const std::string &path, std::size_t limit, SharedBytes &bytes)
{
    const std::filesystem::path file(std::u8string(path.begin(), path.end()));
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return FileReading::NotFound;
    }
    if (status.type() != std::filesystem::file_type::regular) {
        return FileReading::NotReadable;
    }
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) {
        return FileReading::NotReadable;
    }
    if (size > limit) {
        return FileReading::TooLarge;
    }
    std::ifstream stream(file, std::ios::binary);
    bytes = SharedBytes(static_cast<std::size_t>(size));
    const std::span<std::uint8_t> room = bytes.Writable();
    // The stream's own view of bytes.
    stream.read(reinterpret_cast<char *>(room.data()), static_cast<std::streamsize>(room.size()));
    return stream ? FileReading::Success : FileReading::NotReadable;
}

} // namespace velluto
