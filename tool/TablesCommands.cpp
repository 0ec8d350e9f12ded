#include "tool/TablesCommands.h"

#include "app/Characters.h"
#include "app/Paths.h"
#include "tool/FileVisits.h"
#include "tool/PlainTables.h"
#include "tool/ReplaceKeeping.h"
#include "tool/SoundImport.h"
#include "tool/SourceFault.h"

#include <optional>

namespace velluto::tool {

namespace {

constexpr std::string_view kProgramFile = "Velluto-pcg.txt";
constexpr std::string_view kStyleFile = "Velluto-sty.txt";
constexpr std::string_view kPlainProgramFile = "programs.txt";
constexpr std::string_view kPlainStyleFile = "styles.txt";

constexpr TwoTexts kNoTable{"la tabella non c'è: si avvii Velluto una volta, o --folder dica un'altra cartella",
                            "the table is not there: start Velluto once, or name another folder with --folder"};
constexpr TwoTexts kNoFolder{"quale sia la cartella del programma non si sa: la dica --folder",
                             "which the program's folder is cannot be told: name it with --folder"};
constexpr TwoTexts kNoList{"non finisce in .ins o .csv", "does not end in .ins or .csv"};
constexpr TwoTexts kNoText{"non è un testo in UTF-8 o Windows-1252", "is no text in UTF-8 or Windows-1252"};
constexpr TwoTexts kNoPlain{"non ci sono né programs.txt né styles.txt", "there is neither programs.txt nor styles.txt"};
constexpr TwoTexts kNotReplaced{"non si può scrivere: %1", "cannot be written: %1"};
constexpr TwoTexts kReplaced{"%1: scritto; quello di prima è %2", "%1: written; the one before is %2"};
constexpr TwoTexts kWritten{"%1: scritto", "%1: written"};
constexpr TwoTexts kTheSame{"%1: è già così", "%1: it is so already"};
constexpr TwoTexts kSummary{"suoni che avevano già un posto: %1; messi in posti liberi: %2; nomi accorciati: %3; senza posto: %4",
                            "sounds that had their place: %1; put into free places: %2; names shortened: %3; without a place: %4"};
constexpr TwoTexts kHomeless{"senza posto: msb %1, lsb %2, program %3: %4", "without a place: msb %1, lsb %2, program %3: %4"};

class Tables {
public:
    Tables(const Desk &desk, const Arguments &arguments) : desk_(desk), arguments_(arguments) {}

    int Import()
    {
        const std::string &list = arguments_.paths.front();
        const std::string extension = ExtensionOf(list);
        if (extension != "ins" && extension != "csv") {
            return Fail(list, kNoList, ExitCode::Usage);
        }
        const std::optional<std::string> text = Text(list);
        const std::optional<std::string> programBytes = text ? Table(kProgramFile) : std::nullopt;
        const std::optional<std::string> styleBytes = programBytes ? Table(kStyleFile) : std::nullopt;
        if (!styleBytes) {
            return ExitCode::Unreadable;
        }
        RecordTable programs = ProgramTable(*programBytes);
        RecordTable styles = StyleTable(*styleBytes);
        ImportResult result;
        try {
            result = ImportSounds(extension == "csv" ? ReadCsv(*text, desk_.speaker)
                                                     : ReadDefinition(*text, arguments_.instrument, desk_.speaker),
                                  programs, styles);
        } catch (const SourceFault &fault) {
            return Fail(list, fault);
        }
        if (!Put(InFolder(kProgramFile), *programBytes, programs.Bytes()) || !Put(InFolder(kStyleFile), *styleBytes, styles.Bytes())) {
            return ExitCode::Unreadable;
        }
        Tell(result);
        return ExitCode::Fine;
    }

    int Export()
    {
        const std::optional<std::string> programs = Table(kProgramFile);
        const std::optional<std::string> styles = programs ? Table(kStyleFile) : std::nullopt;
        const bool done = styles && PutAnew(Plain(kPlainProgramFile), PlainPrograms(ProgramTable(*programs), desk_.speaker)) &&
                          PutAnew(Plain(kPlainStyleFile), PlainStyles(StyleTable(*styles), desk_.speaker));
        return done ? ExitCode::Fine : ExitCode::Unreadable;
    }

    int Make()
    {
        if (!HasFolder()) {
            return ExitCode::Unreadable;
        }
        const bool hasPrograms = IsThere(Plain(kPlainProgramFile));
        const bool hasStyles = IsThere(Plain(kPlainStyleFile));
        if (!hasPrograms && !hasStyles) {
            return Fail(Directory(), kNoPlain, ExitCode::Unreadable);
        }
        std::optional<RecordTable> programs;
        std::optional<RecordTable> styles;
        // Both are read before either is written.
        if ((hasPrograms && !(programs = Made(kPlainProgramFile, MakePrograms))) ||
            (hasStyles && !(styles = Made(kPlainStyleFile, MakeStyles)))) {
            return ExitCode::Unreadable;
        }
        const bool done = (!programs || PutAnew(InFolder(kProgramFile), programs->Bytes())) &&
                          (!styles || PutAnew(InFolder(kStyleFile), styles->Bytes()));
        return done ? ExitCode::Fine : ExitCode::Unreadable;
    }

private:
    [[nodiscard]] std::string InFolder(std::string_view name) const { return JoinPath(arguments_.folder, name); }
    [[nodiscard]] std::string Directory() const { return arguments_.paths.empty() ? "." : arguments_.paths.front(); }
    [[nodiscard]] std::string Plain(std::string_view name) const { return JoinPath(Directory(), name); }

    [[nodiscard]] int Fail(const std::string &path, const TwoTexts &why, int code) const
    {
        desk_.Complain(path, desk_.speaker.Say(why));
        return code;
    }
    [[nodiscard]] int Fail(const std::string &path, const SourceFault &fault) const
    {
        desk_.Complain(fault.Line() == 0 ? path : path + ":" + std::to_string(fault.Line()), fault.what());
        return ExitCode::Unreadable;
    }

    [[nodiscard]] bool HasFolder() const
    {
        return !arguments_.folder.empty() || Fail("tables", kNoFolder, ExitCode::Unreadable) == ExitCode::Fine;
    }
    [[nodiscard]] bool IsThere(const std::string &path) const
    {
        std::unique_ptr<RandomAccessFile> file;
        return desk_.files.OpenToRead(path, file).number != FileError::kFileNotFound;
    }
    [[nodiscard]] std::optional<std::string> Text(const std::string &path) const
    {
        std::optional<std::string> text = ReadText(desk_, path);
        if (text && text->find('\0') != std::string::npos) {
            (void)Fail(path, kNoText, ExitCode::Unreadable);
            return std::nullopt;
        }
        return text;
    }
    // One of the user's tables, which has to be there and to hold something.
    [[nodiscard]] std::optional<std::string> Table(std::string_view name) const
    {
        const std::string path = InFolder(name);
        std::optional<std::string> bytes = std::string();
        if (!HasFolder() || (IsThere(path) && !(bytes = ReadText(desk_, path)))) {
            return std::nullopt;
        }
        if (bytes->empty()) {
            (void)Fail(path, kNoTable, ExitCode::Unreadable);
            return std::nullopt;
        }
        return bytes;
    }

    template <class Maker>
    std::optional<RecordTable> Made(std::string_view name, Maker maker) const
    {
        const std::string path = Plain(name);
        const std::optional<std::string> text = Text(path);
        try {
            return text ? std::optional(maker(*text, desk_.speaker)) : std::nullopt;
        } catch (const SourceFault &fault) {
            (void)Fail(path, fault);
            return std::nullopt;
        }
    }

    // Writes the file anew, whether it is there or not.
    [[nodiscard]] bool PutAnew(const std::string &path, const std::string &bytes) const
    {
        const bool isThere = IsThere(path);
        const std::optional<std::string> old = isThere ? ReadText(desk_, path) : std::nullopt;
        return (!isThere || old) && Put(path, old.value_or(std::string()), bytes);
    }
    // Nothing is written where nothing changes.
    [[nodiscard]] bool Put(const std::string &path, const std::string &old, const std::string &bytes) const
    {
        if (old == bytes) {
            desk_.out << desk_.speaker.Say(kTheSame, {Printable(path)}) << '\n';
            return true;
        }
        std::string kept;
        if (const std::error_code error = ReplaceKeeping(path, bytes, kept)) {
            desk_.Complain(path, desk_.speaker.Say(kNotReplaced, {error.message()}));
            return false;
        }
        desk_.out << desk_.speaker.Say(kept.empty() ? kWritten : kReplaced, {Printable(path), Printable(kept)}) << '\n';
        return true;
    }

    void Tell(const ImportResult &result) const
    {
        for (const ListedSound &sound : result.homeless) {
            desk_.out << desk_.speaker.Say(kHomeless, {std::to_string(sound.address.msb), std::to_string(sound.address.lsb),
                                                       std::to_string(sound.address.program), Utf8Of(CharactersOfBytes(sound.name))})
                      << '\n';
        }
        desk_.out << desk_.speaker.Say(kSummary, {std::to_string(result.named), std::to_string(result.placed),
                                                  std::to_string(result.shortened), std::to_string(result.homeless.size())})
                  << '\n';
    }

    const Desk &desk_;
    const Arguments &arguments_;
};

} // namespace

std::string UserFolder(std::string_view dataHome, std::string_view home)
{
    if (dataHome.starts_with('/')) { // a relative path there counts for nothing
        return JoinPath(dataHome, "velluto");
    }
    return home.empty() ? std::string() : JoinPath(home, ".local/share/velluto");
}

int ImportTables(const Desk &desk, const Arguments &arguments)
{
    return Tables(desk, arguments).Import();
}

int ExportTables(const Desk &desk, const Arguments &arguments)
{
    return Tables(desk, arguments).Export();
}

int MakeTables(const Desk &desk, const Arguments &arguments)
{
    return Tables(desk, arguments).Make();
}

} // namespace velluto::tool
