#include "tool/Commands.h"

#include "app/Characters.h"
#include "app/FixedText.h"
#include "files/ItemRows.h"
#include "tool/Checking.h"
#include "tool/Contents.h"
#include "tool/FileVisits.h"

#include <algorithm>
#include <array>
#include <optional>

namespace velluto::tool {

namespace {

constexpr TwoTexts kHeading{"%1: %2, %3 posti, elementi: %4", "%1: %2, %3 places, items: %4"};
constexpr TwoTexts kOffset{"offset %1: %2", "offset %1: %2"};
constexpr TwoTexts kAllFine{"file controllati: %1; nulla che non vada", "files checked: %1; nothing wrong"};
constexpr TwoTexts kSomeWrong{"file controllati: %1; con qualcosa che non va: %2", "files checked: %1; with something wrong: %2"};

// Rows in the form asked for; plain lines are the command's own.
class Table {
public:
    Table(const Desk &desk, const Arguments &arguments, const std::vector<std::string_view> &columns)
    {
        if (arguments.format != Format::Plain) {
            writer_.emplace(desk.out, arguments.format, columns);
        }
    }
    [[nodiscard]] bool IsPlain() const { return !writer_; }
    void Row(std::initializer_list<Cell> cells) { writer_->Row({cells.begin(), cells.size()}); }
    void End()
    {
        if (writer_) {
            writer_->End();
        }
    }

private:
    std::optional<RecordWriter> writer_;
};

const std::vector<std::string_view> kItemColumns{"file", "kind", "place", "name", "row"};

std::string RowText(const ItemRow &row)
{
    return std::string(RightTrimmed(DrawnText(row.bytes)));
}

void PutItem(Table &table, const std::string &path, const ItemRow &row)
{
    const std::string name = row.Name();
    const std::string text = RowText(row);
    table.Row({std::string_view(path), row.kind, static_cast<std::uint64_t>(row.place), std::string_view(name), std::string_view(text)});
}

void PutPlainFile(const Desk &desk, const VisitedFile &file, const std::vector<ItemRow> &rows, bool all)
{
    desk.out << desk.speaker.Say(kHeading, {Printable(file.path), std::string(NameOf(file.kind)),
                                            std::to_string(PlacesOf(file.image, file.kind)), std::to_string(CountItems(file.image))})
             << '\n';
    std::string_view kind = NameOf(file.kind);
    for (const ItemRow &row : rows) {
        if (row.occupied || all) {
            if (row.kind != kind) {
                kind = row.kind;
                desk.out << kind << ":\n";
            }
            desk.out << RowText(row) << '\n';
        }
    }
}

// The words that all have to be in a name.
std::vector<std::u32string> WordsOf(const std::string &text)
{
    std::vector<std::u32string> words;
    const std::u32string all = Folded(CharactersOfText(text));
    for (std::size_t at = 0; (at = all.find_first_not_of(U' ', at)) < all.size();) {
        const std::size_t end = std::min(all.find(U' ', at), all.size());
        words.push_back(all.substr(at, end - at));
        at = end;
    }
    return words;
}

bool HasAll(const std::string &name, const std::vector<std::u32string> &words)
{
    const std::u32string folded = Folded(CharactersOfText(name));
    return std::ranges::all_of(words, [&](const std::u32string &word) { return folded.find(word) != std::u32string::npos; });
}

// Looks for words in one file after the other. What can be told from the directory's bytes is told from them, so that a file
// without the words costs little more than its reading.
class WordSearch {
public:
    explicit WordSearch(const std::string &text) : words_(WordsOf(text))
    {
        for (const std::u32string &word : words_) {
            if (std::ranges::all_of(word, [](char32_t c) { return c < 0x80; })) {
                plainWords_.emplace_back(word.begin(), word.end());
            }
        }
    }
    [[nodiscard]] bool MayHold(ImageBlock image)
    {
        constexpr int kPastTheDirectory = kPerformancePlaces; // entries that a row may show by mistake
        const auto room = static_cast<std::int64_t>(CountItems(image) + kPastTheDirectory) * Korf::kEntryLength;
        const ImageBlock entries = Piece(image, Korf::kHeadLength + 1, room);
        directory_.assign(entries.begin(), entries.end());
        std::ranges::transform(directory_, directory_.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        return std::ranges::all_of(plainWords_, [&](const std::string &word) { return directory_.find(word) != std::string::npos; });
    }
    [[nodiscard]] bool Holds(const ItemRow &row) const { return row.occupied && HasAll(row.Name(), words_); }

private:
    std::vector<std::u32string> words_;
    std::vector<std::string> plainWords_; // those in ASCII
    std::string directory_;               // of the file at hand, in small letters
};

std::vector<Finding> Faults(const VisitedFile &file)
{
    return file.length > kLongestFile ? std::vector<Finding>{{0, Fault::TooLong, file.length}} : CheckImage(file.image, file.kind);
}

} // namespace

int ListFiles(const Desk &desk, const Arguments &arguments)
{
    Table table(desk, arguments, kItemColumns);
    const int code = EachInstrumentFile(desk, arguments.paths, [&](const VisitedFile &file) {
        const std::vector<ItemRow> rows = RowsOf(file.image, file.kind);
        if (table.IsPlain()) {
            PutPlainFile(desk, file, rows, arguments.all);
            return;
        }
        for (const ItemRow &row : rows) {
            if (row.occupied || arguments.all) {
                PutItem(table, file.path, row);
            }
        }
    });
    table.End();
    return code;
}

int FindItems(const Desk &desk, const Arguments &arguments)
{
    Table table(desk, arguments, kItemColumns);
    WordSearch search(arguments.words);
    bool found = false;
    const int code = EachInstrumentFile(desk, arguments.paths, [&](const VisitedFile &file) {
        if (!search.MayHold(file.image)) {
            return;
        }
        for (const ItemRow &row : RowsOf(file.image, file.kind)) {
            if (!search.Holds(row)) {
                continue;
            }
            found = true;
            if (table.IsPlain()) {
                desk.out << Printable(file.path) << ": " << row.kind << RowText(row) << '\n';
            } else {
                PutItem(table, file.path, row);
            }
        }
    });
    table.End();
    if (code == ExitCode::Unreadable) {
        return code;
    }
    return found ? ExitCode::Fine : ExitCode::Found; // files that are not the instrument's have been told, and hold no item
}

int CheckFiles(const Desk &desk, const Arguments &arguments)
{
    Table table(desk, arguments, {"file", "offset", "fault"});
    std::uint64_t checked = 0;
    std::uint64_t wrong = 0;
    const bool allRead = EachFile(desk, arguments.paths, [&](const VisitedFile &file) {
        const std::vector<Finding> faults = Faults(file);
        ++checked;
        wrong += faults.empty() ? 0 : 1;
        for (const Finding &fault : faults) {
            const std::string words = Sentence(fault, desk.speaker);
            if (table.IsPlain()) {
                desk.out << Printable(file.path) << ": " << desk.speaker.Say(kOffset, {std::to_string(fault.offset), words}) << '\n';
            } else {
                table.Row({std::string_view(file.path), fault.offset, std::string_view(words)});
            }
        }
    });
    if (table.IsPlain()) {
        desk.out << desk.speaker.Say(wrong == 0 ? kAllFine : kSomeWrong, {std::to_string(checked), std::to_string(wrong)}) << '\n';
    }
    table.End();
    if (!allRead) {
        return ExitCode::Unreadable;
    }
    return wrong == 0 ? ExitCode::Fine : ExitCode::Found;
}

} // namespace velluto::tool
