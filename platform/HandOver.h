// Files for the program that runs already: whoever is started with files in the same folder hands them over by a line that the system
// has for it, and is done. A line belongs to one user and one folder. Used by the desktop's main and its inbox; answered by posix/
// (a socket) and windows/ (a named pipe).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velluto {

struct HandedFiles {
    std::string activation; // the desktop's leave to come to the front, empty where it gave none
    std::vector<std::string> paths;
};

// What goes over the line: the activation, then each path, each with a zero byte behind it. Nothing of bytes that are damaged.
inline constexpr std::size_t kMostHanded = std::size_t{1} << 20; // bytes
inline constexpr char kHandedTaken = '1';                        // the taker's answer
[[nodiscard]] std::string BytesOf(const HandedFiles &files);
[[nodiscard]] std::optional<HandedFiles> HandedIn(const std::string &bytes);

// Where the line for the current folder is. Of a socket in XDG_RUNTIME_DIR, which must be a folder of this user's that nobody else can
// write into. Empty where there is no such place, and then nobody hands over.
[[nodiscard]] std::string HandOverAddress();

// True where a program of this user's has taken the files; it has ten seconds for that.
[[nodiscard]] bool HandOver(const std::string &address, const HandedFiles &files);

// The other end. Takes the address where nobody is there, also from one who has gone without a word, and gives it free at its end.
class HandOverInbox {
public:
    explicit HandOverInbox(const std::string &address);
    ~HandOverInbox();
    HandOverInbox(const HandOverInbox &) = delete;
    HandOverInbox &operator=(const HandOverInbox &) = delete;

    // What tells that somebody is there, to the system's own calls: a descriptor that is readable then, or an event of Windows. -1
    // where the address is another's.
    [[nodiscard]] std::intptr_t Descriptor() const;
    // What the next one who is there brings; nothing where that is damaged, or not this user's. Waits half a second at most.
    [[nodiscard]] std::optional<HandedFiles> Take();

private:
    struct Line;
    std::unique_ptr<Line> line_;
};

} // namespace velluto
