#include "tool/Arguments.h"

#include "tool/Words.h"

#include <algorithm>
#include <array>

namespace velluto::tool {

namespace {

constexpr std::string_view kLanguage = "--language";
constexpr std::string_view kFolder = "--folder";
constexpr std::string_view kInstrument = "--instrument";

constexpr TwoTexts kNoCommand{"manca il comando", "a command is missing"};
constexpr TwoTexts kUnknownCommand{"comando sconosciuto: %1", "unknown command: %1"};
constexpr TwoTexts kUnknownOption{"opzione sconosciuta: %1", "unknown option: %1"};
constexpr TwoTexts kNoValue{"manca qualcosa dopo %1", "something is missing behind %1"};
constexpr TwoTexts kNoPath{"manca un file o una cartella", "a file or a folder is missing"};
constexpr TwoTexts kNoWords{"mancano le parole da cercare", "the words to look for are missing"};
constexpr TwoTexts kNoTablesCommand{"dopo tables va import, export o make", "import, export or make belongs behind tables"};
constexpr TwoTexts kNoList{"manca la lista da importare", "the list to be imported is missing"};
constexpr TwoTexts kTooMany{"%1 è di troppo", "%1 is one too many"};
constexpr TwoTexts kBadLanguage{"--language vuole it o en", "--language wants it or en"};

struct Name {
    std::string_view name;
    Command command;
};

// Takes the command line word by word.
class Reader {
public:
    Reader(std::span<const std::string> words, int linguaBase) : words_(words), speaker_{linguaBase} {}

    std::optional<Arguments> Read(std::string &complaint)
    {
        while (at_ < words_.size() && complaint_.empty() && !isAsking_) {
            Take(words_[at_++]);
        }
        if (complaint_.empty() && !isAsking_) {
            Finish();
        }
        complaint = complaint_;
        return complaint_.empty() ? std::optional(arguments_) : std::nullopt;
    }

private:
    void Take(const std::string &word)
    {
        if (onlyOperands_ || word.size() < 2 || word.front() != '-') {
            operands_.push_back(word);
        } else if (word == "--") {
            onlyOperands_ = true;
        } else {
            TakeOption(word);
        }
    }

    void TakeOption(const std::string &word)
    {
        if (word == "--help" || word == "-h" || word == "--version") {
            arguments_.command = word == "--version" ? Command::Version : Command::Help;
            isAsking_ = true;
        } else if (word == "--csv" || word == "--json") {
            arguments_.format = word == "--csv" ? Format::Csv : Format::Json;
        } else if (word == "--all") {
            arguments_.all = true;
        } else if (word == kLanguage || word.starts_with("--language=")) {
            const std::optional<std::string> language = ValueOf(word, kLanguage);
            if (language && *language != "it" && *language != "en") {
                complaint_ = speaker_.Say(kBadLanguage);
            }
        } else if (word == kFolder || word.starts_with("--folder=")) {
            arguments_.folder = ValueOf(word, kFolder).value_or(std::string());
        } else if (word == kInstrument || word.starts_with("--instrument=")) {
            arguments_.instrument = ValueOf(word, kInstrument).value_or(std::string());
        } else {
            complaint_ = speaker_.Say(kUnknownOption, {Printable(word)});
        }
    }

    // "--name=value" or "--name value".
    std::optional<std::string> ValueOf(const std::string &word, std::string_view name)
    {
        if (word.size() > name.size()) {
            return word.substr(name.size() + 1);
        }
        if (at_ == words_.size()) {
            complaint_ = speaker_.Say(kNoValue, {std::string(name)});
            return std::nullopt;
        }
        return words_[at_++];
    }

    // A command's name, which the operands lose.
    std::optional<Command> TakeCommand(std::span<const Name> names)
    {
        if (operands_.empty()) {
            return std::nullopt;
        }
        const auto found = std::ranges::find(names, operands_.front(), &Name::name);
        if (found == names.end()) {
            complaint_ = speaker_.Say(kUnknownCommand, {Printable(operands_.front())});
            return std::nullopt;
        }
        operands_.erase(operands_.begin());
        return found->command;
    }

    void Finish()
    {
        constexpr std::array<Name, 3> kNames{{{"list", Command::List}, {"find", Command::Find}, {"check", Command::Check}}};
        constexpr std::array<Name, 3> kTablesNames{{{"import", Command::Import}, {"export", Command::Export}, {"make", Command::Make}}};
        const bool ofTables = !operands_.empty() && operands_.front() == "tables";
        if (ofTables) {
            operands_.erase(operands_.begin());
        }
        const std::optional<Command> command = ofTables ? TakeCommand(kTablesNames) : TakeCommand(kNames);
        if (!command) {
            complaint_ = complaint_.empty() ? speaker_.Say(ofTables ? kNoTablesCommand : kNoCommand) : complaint_;
            return;
        }
        arguments_.command = *command;
        arguments_.paths = operands_;
        if (ofTables) {
            ExpectOnePath();
            return;
        }
        if (arguments_.command == Command::Find) {
            TakeWords();
        }
        if (complaint_.empty() && arguments_.paths.empty()) {
            complaint_ = speaker_.Say(kNoPath);
        }
    }

    // import needs one, the others do without.
    void ExpectOnePath()
    {
        if (arguments_.paths.empty() && arguments_.command == Command::Import) {
            complaint_ = speaker_.Say(kNoList);
        } else if (arguments_.paths.size() > 1) {
            complaint_ = speaker_.Say(kTooMany, {Printable(arguments_.paths[1])});
        }
    }

    void TakeWords()
    {
        if (arguments_.paths.empty() || arguments_.paths.front().find_first_not_of(' ') == std::string::npos) {
            complaint_ = speaker_.Say(kNoWords);
            return;
        }
        arguments_.words = arguments_.paths.front();
        arguments_.paths.erase(arguments_.paths.begin());
    }

    std::span<const std::string> words_;
    Speaker speaker_;
    std::size_t at_ = 0;
    bool onlyOperands_ = false;
    bool isAsking_ = false; // for help or the version: the rest does not matter
    std::vector<std::string> operands_;
    Arguments arguments_;
    std::string complaint_;
};

} // namespace

std::optional<int> LanguageAsked(std::span<const std::string> words)
{
    std::optional<int> asked;
    for (std::size_t at = 0; at < words.size() && words[at] != "--"; ++at) {
        if (words[at] == "--language=it" || (words[at] == kLanguage && at + 1 < words.size() && words[at + 1] == "it")) {
            asked = kItalianBase;
        } else if (words[at] == "--language=en" || (words[at] == kLanguage && at + 1 < words.size() && words[at + 1] == "en")) {
            asked = kEnglishBase;
        }
    }
    return asked;
}

std::optional<Arguments> ParseArguments(std::span<const std::string> words, int linguaBase, std::string &complaint)
{
    return Reader(words, linguaBase).Read(complaint);
}

} // namespace velluto::tool
