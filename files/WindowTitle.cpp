#include "files/WindowTitle.h"

#include "app/Catalogue.h"
#include "app/ViewKind.h"

#include <algorithm>
#include <array>
#include <span>

namespace velluto {

namespace {

struct Range {
    int first = 0;
    int last = 0;
    [[nodiscard]] constexpr bool Has(int value) const { return value >= first && value <= last; }
};

constexpr Range kAnySlot{0, 255};

// Words in braces stand for what is filled in; all the rest stands as it is.
//   {bank} {banks} {new}  words of the catalogue by their plain ids: Italian, whatever the language
//   {BANKS}               the same word in the language of the run
//   {name}                the file's name
//   {n} {,n}              the slot less numberBase; with the comma it brings the blank of a plain number with it
//   {45} {13}             so many characters of the Tag from position 21; {45} without trailing blanks
struct TitleRule {
    Range kinds;
    Range slots;
    int numberBase;
    std::string_view title;
};

constexpr std::array<TitleRule, 17> kTitles{{
    {{2, 7}, kAnySlot, 0, "{BANKS} {45}"},
    {{15, 16}, kAnySlot, 0, "{BANKS} {13}"},
    {{14, 14}, {9, 10}, 8, "{bank} User{,n}: {name}"},
    {{14, 14}, {11, 12}, 0, "{new}: {name}"},
    {{14, 14}, {1, 8}, 0, "File User: {name} ({n})"},
    {{20, 21}, {0, 0}, 0, "{new}: {name}   (STY)"},
    {{20, 21}, {1, 8}, 0, "File User: {name}   (STY)"},
    {{20, 21}, {9, 11}, 8, "{bank} User{,n}: {name}   (STY)"},
    {{20, 21}, {12, 20}, 11, "{bank} Direct HD{,n}: {name}   (STY)"},
    {{22, 23}, {0, 0}, 0, "{new}: {name}"},
    {{22, 23}, {1, 8}, 0, "File User: {name}"},
    {{22, 23}, {9, 28}, 8, "{bank} User {n}: {name}"},
    {{24, 24}, kAnySlot, 0, "{banks} Performance User 1-20"},
    {{25, 25}, kAnySlot, 0, "{banks} Style User 1-3"},
    {{26, 26}, kAnySlot, 0, "{bank} Direct HD 123"},
    {{27, 27}, kAnySlot, 0, "{bank} Direct HD 456"},
    {{28, 28}, kAnySlot, 0, "{bank} Direct HD 789"},
}};

std::string Filled(const Modulo1 &app, const WindowTag &tag, const TitleRule &rule, std::string_view word)
{
    constexpr int kLongName = 45;
    constexpr int kShortName = 13;
    const std::string number = std::to_string(tag.Slot() - rule.numberBase);
    if (word == "BANKS") {
        return app.messages.Text(TextId::Banks);
    }
    if (word == "banks") {
        return std::string(LoadResString(TextId::Banks));
    }
    if (word == "bank") {
        return std::string(LoadResString(TextId::Bank));
    }
    if (word == "new") {
        return std::string(LoadResString(TextId::NewFile));
    }
    if (word == "name") {
        return FileNameOf(tag.Path());
    }
    if (word == "45") {
        return std::string(RightTrimmed(tag.Text(TagPosition::Path, kLongName)));
    }
    if (word == "13") {
        return tag.Text(TagPosition::Path, kShortName);
    }
    return word == ",n" ? " " + number : number;
}

} // namespace

std::string WindowTitle(Modulo1 &app, const WindowTag &tag)
{
    app.ViewKind = tag.Kind();
    app.slot = tag.Slot();
    // A new Program file is a Program file in its own slot.
    const bool newProgram = Range{ViewKind::NewProgram64, ViewKind::NewProgram128}.Has(app.ViewKind);
    const int kind = newProgram ? ViewKind::ProgramFile : app.ViewKind;
    const std::span<const TitleRule> rules(kTitles);
    const auto rule = std::ranges::find_if(rules, [&](const TitleRule &r) { return r.kinds.Has(kind) && r.slots.Has(app.slot); });
    if (rule == rules.end()) {
        return {};
    }
    std::string title;
    std::string_view rest = rule->title;
    while (!rest.empty()) {
        const auto open = rest.find('{');
        title += rest.substr(0, open);
        if (open == std::string_view::npos) {
            break;
        }
        const auto close = rest.find('}', open);
        title += Filled(app, tag, *rule, rest.substr(open + 1, close - open - 1));
        rest.remove_prefix(close + 1);
    }
    return title;
}

} // namespace velluto
