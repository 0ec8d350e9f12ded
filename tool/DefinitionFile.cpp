// Instrument definitions. A file has lists of names by program number, and instruments that say which list is which bank's:
//
//     .Patch Names                 [Piano] 0=Grand ...      BasedOn=OTHER takes what the list itself does not name
//     .Instrument Definitions      [PA80] Patch[15488]=Piano      a bank is MSB * 128 + LSB, "*" all others
//                                  Drum[15360,*]=1 for kits of drums, BankSelMethod= for banks of one number
#include "tool/SoundList.h"

#include "app/Paths.h"
#include "tool/SourceFault.h"
#include "tool/SourceText.h"

#include <array>
#include <map>
#include <optional>
#include <set>

namespace velluto::tool {

namespace {

constexpr TwoTexts kNoInstrument{"nel file non c'è nessuno strumento con le sue banche", "the file has no instrument with its banks"};
constexpr TwoTexts kNotThatInstrument{"nel file non c'è lo strumento \"%1\"; ci sono: %2", "the file has no instrument \"%1\"; it has: %2"};
constexpr TwoTexts kWhichInstrument{"nel file ci sono più strumenti, --instrument dice quale: %1",
                                    "the file has more than one instrument, --instrument says which: %1"};
constexpr TwoTexts kNoNames{"lo strumento non dà nessun nome", "the instrument names nothing"};

constexpr int kPrograms = 128;
constexpr int kHighestBank = 128 * 128 - 1;
constexpr int kAnyBank = -1;

// What BankSelMethod says a bank's number is.
namespace BankMethod {
constexpr int MsbOnly = 1;
constexpr int LsbOnly = 2;
} // namespace BankMethod

struct NameList {
    std::string basedOn = {};
    std::map<int, std::string> names = {};
};

struct Instrument {
    int method = 0;
    std::map<int, std::string> lists = {};   // by bank; kAnyBank for all others
    std::set<std::pair<int, int>> kits = {}; // bank and program, either one kAnyBank
};

using AllNames = std::array<std::string, kPrograms>;

class Definition {
public:
    explicit Definition(std::string_view text)
    {
        for (const std::string_view whole : LinesOf(text)) {
            TakeLine(Trimmed(whole.substr(0, whole.find(';'))));
        }
    }

    std::vector<ListedSound> SoundsOf(std::string_view name, const Speaker &speaker)
    {
        const Instrument &instrument = Chosen(name, speaker);
        std::vector<ListedSound> sounds;
        for (const auto &[bank, list] : instrument.lists) {
            const AllNames &names = NamesOf(list);
            for (int program = 0; program < kPrograms; ++program) {
                const std::string &sound = names.at(static_cast<std::size_t>(program));
                if (!sound.empty()) {
                    sounds.push_back(
                        {Address(instrument.method, bank, program), sound, IsKit(instrument, bank, program), false, bank == kAnyBank});
                }
            }
        }
        if (sounds.empty()) {
            throw SourceFault(0, speaker.Say(kNoNames));
        }
        return sounds;
    }

private:
    void TakeLine(std::string_view line)
    {
        const std::size_t equals = line.find('=');
        if (line.starts_with('.')) {
            section_ = LowerCase(line);
            title_.clear();
        } else if (line.starts_with('[') && equals == std::string_view::npos) {
            title_ = std::string(Trimmed(line.substr(1, line.rfind(']') - 1)));
        } else if (equals != std::string_view::npos && !title_.empty()) {
            const std::string_view key = Trimmed(line.substr(0, equals));
            const std::string value(Trimmed(line.substr(equals + 1)));
            if (section_ == ".patch names") {
                TakeName(lists_[title_], key, value);
            } else if (section_ == ".instrument definitions") {
                TakeOfInstrument(instruments_[title_], LowerCase(key), value);
            }
        }
    }

    static void TakeName(NameList &list, std::string_view key, const std::string &value)
    {
        if (LowerCase(key) == "basedon") {
            list.basedOn = value;
        } else if (const std::optional<int> program = NumberUpTo(key, kPrograms - 1)) {
            list.names[*program] = TableName(value);
        }
    }

    static void TakeOfInstrument(Instrument &instrument, const std::string &key, const std::string &value)
    {
        const auto inBrackets = [&key](std::string_view word) -> std::optional<std::string_view> {
            const std::string_view all = key;
            const bool isIt = all.starts_with(word) && Trimmed(all.substr(word.size())).starts_with('[') && all.ends_with(']');
            const std::size_t from = all.find('[') + 1;
            return isIt ? std::optional(all.substr(from, all.size() - 1 - from)) : std::nullopt;
        };
        if (key == "bankselmethod") {
            instrument.method = NumberUpTo(value, 3).value_or(0);
        } else if (const auto bank = inBrackets("patch")) {
            if (const std::optional<int> number = NumberOrAny(*bank, kHighestBank)) {
                instrument.lists[*number] = value;
            }
        } else if (const auto kit = inBrackets("drum"); kit && value == "1") {
            const std::size_t comma = std::min(kit->find(','), kit->size());
            const std::optional<int> bankOfKit = NumberOrAny(kit->substr(0, comma), kHighestBank);
            const std::optional<int> program = NumberOrAny(kit->substr(std::min(comma + 1, kit->size())), kPrograms - 1);
            if (bankOfKit && program) {
                instrument.kits.emplace(*bankOfKit, *program);
            }
        }
    }

    static std::optional<int> NumberOrAny(std::string_view text, int most)
    {
        return Trimmed(text) == "*" ? std::optional(kAnyBank) : NumberUpTo(Trimmed(text), most);
    }

    [[nodiscard]] const Instrument &Chosen(std::string_view name, const Speaker &speaker) const
    {
        std::string all;
        const Instrument *chosen = nullptr;
        int count = 0;
        for (const auto &[title, instrument] : instruments_) {
            if (instrument.lists.empty()) {
                continue;
            }
            if (LowerCase(title) == LowerCase(name)) {
                return instrument;
            }
            all += (all.empty() ? "" : ", ") + Printable(title);
            chosen = &instrument;
            ++count;
        }
        if (count == 0) {
            throw SourceFault(0, speaker.Say(kNoInstrument));
        }
        if (!name.empty()) {
            throw SourceFault(0, speaker.Say(kNotThatInstrument, {Printable(name), all}));
        }
        if (count > 1) {
            throw SourceFault(0, speaker.Say(kWhichInstrument, {all}));
        }
        return *chosen;
    }

    // A list with what it takes from those it is based on; a circle of them ends where it began.
    const AllNames &NamesOf(const std::string &title)
    {
        if (const auto known = complete_.find(title); known != complete_.end()) {
            return known->second;
        }
        AllNames names;
        std::set<std::string> seen;
        for (std::string at = title; seen.size() < kLongestChain && seen.insert(at).second;) {
            const auto found = lists_.find(at);
            if (found == lists_.end()) {
                break;
            }
            for (const auto &[program, name] : found->second.names) {
                std::string &place = names.at(static_cast<std::size_t>(program));
                place = place.empty() ? name : place;
            }
            at = found->second.basedOn;
        }
        return complete_.emplace(title, std::move(names)).first->second;
    }

    static SoundAddress Address(int method, int bank, int program)
    {
        if (bank == kAnyBank) {
            return {0, 0, program};
        }
        if (method == BankMethod::MsbOnly && bank < kPrograms) {
            return {bank, 0, program};
        }
        if (method == BankMethod::LsbOnly && bank < kPrograms) {
            return {0, bank, program};
        }
        return {bank / kPrograms, bank % kPrograms, program};
    }

    static bool IsKit(const Instrument &instrument, int bank, int program)
    {
        const auto has = [&](int ofBank, int ofProgram) { return instrument.kits.contains({ofBank, ofProgram}); };
        return has(bank, program) || has(bank, kAnyBank) || has(kAnyBank, program) || has(kAnyBank, kAnyBank);
    }

    static constexpr std::size_t kLongestChain = 64; // lists based on lists; nobody has more than a few

    std::string section_;
    std::string title_;
    std::map<std::string, NameList> lists_;
    std::map<std::string, Instrument> instruments_;
    std::map<std::string, AllNames> complete_;
};

} // namespace

std::vector<ListedSound> ReadDefinition(std::string_view text, std::string_view instrument, const Speaker &speaker)
{
    return Definition(text).SoundsOf(instrument, speaker);
}

} // namespace velluto::tool
