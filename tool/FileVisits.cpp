#include "tool/FileVisits.h"

#include "tool/Arguments.h"
#include "tool/Findings.h"
#include "tool/Walk.h"

#include <new>

namespace velluto::tool {

namespace {

constexpr TwoTexts kMissing{"non esiste", "does not exist"};
constexpr TwoTexts kNoFile{"non è un normale file", "is no ordinary file"};
constexpr TwoTexts kCircle{"i suoi collegamenti girano in tondo", "its links lead in a circle"};
constexpr TwoTexts kTooLong{"il nome è troppo lungo", "the name is too long"};
constexpr TwoTexts kNoPermission{"non si può leggere: manca il permesso", "cannot be read: no permission"};
constexpr TwoTexts kUnreadable{"non si può leggere", "cannot be read"};
constexpr TwoTexts kNoMemory{"non c'è memoria per leggerlo", "there is no memory to read it"};
constexpr TwoTexts kTooMuch{"è troppo grande", "is too large"};
constexpr TwoTexts kNoList{"la cartella non si può elencare: %1", "the folder cannot be listed: %1"};
constexpr TwoTexts kDamaged{"è rovinato; check dice dove", "is damaged; check tells where"};
constexpr TwoTexts kNoKind{"non finisce in .pcg, .sty o .prf", "does not end in .pcg, .sty or .prf"};

constexpr RuntimeError kOutOfMemory{7};

const TwoTexts &WhyUnreadable(const std::string &path, RuntimeError error)
{
    if (error.number == kOutOfMemory.number) {
        return kNoMemory;
    }
    switch (ObstacleAt(path)) {
    case Obstacle::Missing:
        return kMissing;
    case Obstacle::Circle:
        return kCircle;
    case Obstacle::TooLong:
        return kTooLong;
    case Obstacle::Folder:
    case Obstacle::NoFile:
        return kNoFile;
    case Obstacle::None:
        break;
    }
    return error.number == FileError::kPathFileAccess ? kNoPermission : kUnreadable;
}

RuntimeError Read(const Desk &desk, const std::string &path, SharedBytes &bytes, std::uint64_t &length)
{
    try {
        return ReadInstrument(desk.files, path, bytes, length);
    } catch (const std::bad_alloc &) {
        return kOutOfMemory;
    }
}

// Why the program would not open the file; empty where it would.
std::string WhyRefused(const Desk &desk, const VisitedFile &file)
{
    if (file.kind == Kind::None) {
        return desk.speaker.Say(kNoKind);
    }
    if (file.length > kLongestFile) {
        return Sentence({0, Fault::TooLong, file.length}, desk.speaker);
    }
    if (IsOfLaterInstrument(file.image)) {
        return Sentence({0, Fault::LaterInstrument}, desk.speaker);
    }
    if (IsInstrumentFile(file.image)) {
        return {};
    }
    return HasInstrumentMarks(file.image) ? desk.speaker.Say(kDamaged) : Sentence({0, Fault::NoMark}, desk.speaker);
}

} // namespace

bool EachFile(const Desk &desk, std::span<const std::string> named, const std::function<void(const VisitedFile &)> &see)
{
    bool allRead = true;
    const auto visit = [&](const std::string &path, const std::error_code &noList) {
        SharedBytes bytes;
        std::uint64_t length = 0;
        if (noList) {
            desk.Complain(path, desk.speaker.Say(kNoList, {noList.message()}));
            allRead = false;
        } else if (const RuntimeError error = Read(desk, path, bytes, length); error.Failed()) {
            desk.Complain(path, desk.speaker.Say(WhyUnreadable(path, error)));
            allRead = false;
        } else {
            see({path, KindOf(path), length, bytes.View()});
        }
        return desk.out.good();
    };
    for (const std::string &path : named) {
        if (!WalkFiles(path, visit)) {
            break;
        }
    }
    return allRead;
}

std::optional<std::string> ReadText(const Desk &desk, const std::string &path)
{
    SharedBytes bytes;
    std::uint64_t length = 0;
    if (const RuntimeError error = Read(desk, path, bytes, length); error.Failed()) {
        desk.Complain(path, desk.speaker.Say(WhyUnreadable(path, error)));
        return std::nullopt;
    }
    if (length > kLongestFile) {
        desk.Complain(path, desk.speaker.Say(kTooMuch));
        return std::nullopt;
    }
    return std::string(bytes.View().begin(), bytes.View().end());
}

int EachInstrumentFile(const Desk &desk, std::span<const std::string> named, const std::function<void(const VisitedFile &)> &see)
{
    int code = ExitCode::Fine;
    const bool allRead = EachFile(desk, named, [&](const VisitedFile &file) {
        const std::string why = WhyRefused(desk, file);
        if (why.empty()) {
            see(file);
        } else {
            desk.Complain(file.path, why);
            code = ExitCode::Found;
        }
    });
    return allRead ? code : ExitCode::Unreadable;
}

} // namespace velluto::tool
