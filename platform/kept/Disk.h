// What keeping files whole asks of the system, in calls that fail without a word. Answered by PosixDisk and WinDisk; used by this folder
// and WinFiles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velluto::disk {

#ifdef _WIN32
inline constexpr char kSeparator = '\\';
inline constexpr std::string_view kNotInNames = "\\/:";
#else
inline constexpr char kSeparator = '/';
inline constexpr std::string_view kNotInNames = "/";
#endif

[[nodiscard]] bool IsAbsolute(std::string_view path);

// Where a file of that path is, or would be made: absolute, with all links followed.
struct Place {
    std::string path;
    bool isThere = false;
    std::uint64_t length = 0;
};
// Nothing where anything but a file is there, or a link to nothing, or no folder.
std::optional<Place> PlaceOf(const std::string &path);

// An open file, closed when the object goes. Links are not followed to it.
class File {
public:
    // A file, and nothing else; not open where it is none.
    static File ToRead(const std::string &path);
    // A new one that other users may not read. folderIsMissing: it was not made for want of that alone.
    static File Make(const std::string &path, bool &folderIsMissing);
    ~File() { Close(); }
    File(File &&other) noexcept;
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    void Close();
    [[nodiscard]] bool IsOpen() const { return number_ != kNone; }
    [[nodiscard]] std::uint64_t Length() const { return length_; } // when it was opened
    // Up to bytes.size() bytes from where it stands; fewer at the end, or where it fails.
    [[nodiscard]] std::size_t Read(std::span<std::uint8_t> bytes) const;
    [[nodiscard]] bool Write(std::span<const std::uint8_t> bytes) const;
    void Empty() const;
    // Against all others who ask, until it is closed or the process ends. False where another has it.
    [[nodiscard]] bool Lock() const;
    // False where somebody has taken its name away meanwhile.
    [[nodiscard]] bool HasName() const;
    // The bytes are on the disk.
    [[nodiscard]] bool Sync() const;
    // A new file with these bytes and this one's rights, hidden, on the disk. False where it did not come to be whole.
    [[nodiscard]] bool MakeLike(const std::string &path, std::span<const std::uint8_t> bytes) const;

private:
    static constexpr std::intptr_t kNone = -1;
    explicit File(std::intptr_t number) : number_(number) {}

    std::intptr_t number_; // the system's
    std::uint64_t length_ = 0;
};

enum class There { Yes, No, Unknown };
// Of anything, a link too.
There IsThere(const std::string &path);

// Gives a file another name in its folder, under which no list shows it. False where deleting it would fail.
bool PutAside(const std::string &path, const std::string &hidden);
// The way back, in place of what is there now; on the disk when it returns.
bool PutBack(const std::string &hidden, const std::string &path);
// True where nothing is there in the end.
bool TakeAway(const std::string &path);
bool MakeEmpty(const std::string &path);
// True where it is there in the end.
bool MakeHiddenFolder(const std::string &path);
void TakeEmptyFolderAway(const std::string &path);
std::vector<std::string> NamesIn(const std::string &folder);
// Sees to it that a file's bytes, or a folder's names, are on the disk. True where the file system knows no such thing.
bool Sync(const std::string &path);

} // namespace velluto::disk
