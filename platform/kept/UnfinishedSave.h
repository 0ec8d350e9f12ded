// What the journal tells of a save under way, and how a start undoes one that nobody has finished. Used by KeptFiles.
#pragma once

#include "platform/kept/Disk.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velluto {

// A checksum that sees what a crash does to a file; no protection against anybody. In which pieces the bytes come is the same to it.
class Checksum {
public:
    void Add(std::span<const std::uint8_t> bytes);
    [[nodiscard]] std::uint64_t Value() const;

private:
    std::uint64_t value_ = 0xCBF29CE484222325; // of whole words
    std::array<std::uint8_t, sizeof(std::uint64_t)> begun_{};
    std::size_t begunLength_ = 0; // bytes of a word that is not whole yet
};

struct UnfinishedSave {
    enum class Old : std::uint8_t {
        Aside,  // where the old file is taken away, it gets the name `kept`; length and checksum are the new one's
        Copied, // the file changes in place; `kept` is a copy of it, length and checksum are the copy's
        Empty,  // an empty file is written to
        None,   // a file is made
    };
    static constexpr std::size_t kBeginning = 4096; // bytes

    Old old = Old::None;
    std::string path; // absolute, links followed
    std::string kept; // name of a file beside it; empty where nothing is kept
    std::uint64_t length = 0;
    std::uint64_t checksum = 0;
    std::optional<std::string> beginning; // of the new file, where its bytes are known
    bool operator==(const UnfinishedSave &) const = default;

    [[nodiscard]] std::string Folder() const { return path.substr(0, path.rfind(disk::kSeparator) + 1); }
    [[nodiscard]] std::string KeptPath() const { return Folder() + kept; }
};

// Names of kept files: hidden, and without an extension of the program's.
inline constexpr std::string_view kKeptPrefix = ".velluto-";

std::string JournalText(const UnfinishedSave &save);
// Nothing where the text is damaged, cut or foreign.
std::optional<UnfinishedSave> ParseJournalText(std::string_view text);

// The old file stands at its place again, unless the new one is complete there; what was kept is gone. False where that has to wait:
// the folder is away, or may not be written to.
[[nodiscard]] bool Undo(const UnfinishedSave &save);

} // namespace velluto
