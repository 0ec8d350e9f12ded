// The image of a compilation, byte by byte: groups of files by their directories, in the order of the list. It is at once
// the form of the file and what is edited. Used by Compilations; nobody else knows a byte of it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velluto {

// 0x01, directory, 0x00, then names with a 0x00 behind each, then the next group or the end mark. An empty compilation has no
// bytes at all. A damaged image is read as far as it makes sense, and never beyond its end.
namespace ImageMark {
inline constexpr char kGroup = '\x01';
inline constexpr char kTerminator = '\x00';
inline constexpr char kEnd = '\xFF';
} // namespace ImageMark

// One file of the image. The texts are views into the image and live as long as it stands unchanged.
struct ImageEntry {
    std::string_view directory;
    std::string_view name;
    std::size_t at = 0;                     // 0-based place of the first byte of the name
    std::size_t group = 0;                  // 0-based place of the 0x01 of its group
    bool firstOfGroup = false;              // stands right behind its directory
    [[nodiscard]] std::string Path() const; // directory, separator, name
};

// Goes through the files in their order.
class ImageWalk {
public:
    explicit ImageWalk(std::string_view image) : image_(image) {}
    // False at the end mark, or where the image ends without one.
    bool Next(ImageEntry &entry);
    // 0-based place where the walk stands; behind the last file that of the end mark.
    [[nodiscard]] std::size_t Place() const { return at_; }
    // The directory in force there.
    [[nodiscard]] std::string_view Directory() const { return directory_; }

private:
    std::string_view image_;
    std::string_view directory_;
    std::size_t at_ = 0;
    std::size_t group_ = 0;
};

// The full path of the file in a row, 0-based; empty outside the image.
[[nodiscard]] std::string PathInImage(std::string_view image, int row);
// The image of one file.
[[nodiscard]] std::string ImageOfOne(std::string_view directory, std::string_view name);
// Puts a file before the first one whose name equals target to the last byte, or behind all others where there is none, and
// splits the group that it comes to stand in. Returns the row of the new file, 0-based.
int InsertBefore(std::string &image, std::string_view target, std::string_view directory, std::string_view name);
int Append(std::string &image, std::string_view directory, std::string_view name);
// Removes a file by its name: the first place in the image where the name stands counts, whatever it is a part of. The last
// file of a later group takes no group with it, and repeats a stretch of the image instead; files in use rely on both.
void RemoveByName(std::string &image, std::string_view name);

} // namespace velluto
