#include "files/WindowTitle.h"

#include "app/Catalogue.h"
#include "app/ViewKind.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velluto {

namespace {

struct Range {
    int first = 0;
    int last = 0;
    [[nodiscard]] constexpr bool Has(int value) const { return value >= first && value <= last; }
};

constexpr Range kAnySlot{0, 255};
constexpr Range kPrograms{ViewKind::ProgramFile, ViewKind::ProgramFile};
constexpr Range kStyles{ViewKind::StyleFile, ViewKind::NewStyle};
constexpr Range kPerformances{ViewKind::PerformanceFile, ViewKind::NewPerformance};
constexpr int kNoWord = 0;
constexpr int kNoNumber = -1;

// Does the file's name follow behind a colon, and what behind the name: "(STY)", or the slot in brackets.
enum class Named { No, Yes, WithType, WithSlot };

struct TitleRow {
    Range kinds;
    Range slots;
    int word; // of the catalogue by its plain id: Italian, whatever the language of the run
    std::string_view text;
    int numberBase; // the slot less this stands behind the text
    Named named;
};

constexpr std::array kTitles = std::to_array<TitleRow>({
    {kPrograms, {9, 10}, TextId::Bank, " User", 8, Named::Yes},
    {kPrograms, {11, 12}, TextId::NewFile, "", kNoNumber, Named::Yes},
    {kPrograms, {1, 8}, kNoWord, "File User", kNoNumber, Named::WithSlot},
    {kStyles, {0, 0}, TextId::NewFile, "", kNoNumber, Named::WithType},
    {kStyles, {1, 8}, kNoWord, "File User", kNoNumber, Named::WithType},
    {kStyles, {9, 11}, TextId::Bank, " User", 8, Named::WithType},
    {kStyles, {12, 20}, TextId::Bank, " Direct HD", 11, Named::WithType},
    {kPerformances, {0, 0}, TextId::NewFile, "", kNoNumber, Named::Yes},
    {kPerformances, {1, 8}, kNoWord, "File User", kNoNumber, Named::Yes},
    {kPerformances, {9, 28}, TextId::Bank, " User", 8, Named::Yes},
    {{24, 24}, kAnySlot, TextId::Banks, " Performance User 1-20", kNoNumber, Named::No},
    {{25, 25}, kAnySlot, TextId::Banks, " Style User 1-3", kNoNumber, Named::No},
    {{26, 26}, kAnySlot, TextId::Bank, " Direct HD 123", kNoNumber, Named::No},
    {{27, 27}, kAnySlot, TextId::Bank, " Direct HD 456", kNoNumber, Named::No},
    {{28, 28}, kAnySlot, TextId::Bank, " Direct HD 789", kNoNumber, Named::No},
});

std::string TitleOf(const TitleRow &row, const WindowTag &tag)
{
    std::string title(row.word != kNoWord ? LoadResString(row.word) : std::string_view());
    title += row.text;
    if (row.numberBase != kNoNumber) {
        title += " " + std::to_string(tag.Slot() - row.numberBase);
    }
    if (row.named != Named::No) {
        title += ": " + FileNameOf(tag.Path());
    }
    if (row.named == Named::WithType) {
        title += "   (STY)";
    } else if (row.named == Named::WithSlot) {
        title += " (" + std::to_string(tag.Slot()) + ")";
    }
    return title;
}

// A factory bank's name stands in its Tag, where others have their path.
std::string FactoryTitle(const Modulo1 &app, std::string_view name)
{
    return app.messages.Text(TextId::Banks) + " " + std::string(name);
}

} // namespace

std::string WindowTitle(Modulo1 &app, const WindowTag &tag)
{
    app.ViewKind = tag.Kind();
    app.slot = tag.Slot();
    // A new Program file is a Program file in its own slot.
    const bool newProgram = Range{ViewKind::NewProgram64, ViewKind::NewProgram128}.Has(app.ViewKind);
    const int kind = newProgram ? ViewKind::ProgramFile : app.ViewKind;
    constexpr int kProgramBankName = 45;
    constexpr int kStyleBankName = 13;
    if (IsFactoryPrograms(kind)) {
        return FactoryTitle(app, RightTrimmed(tag.Text(TagPosition::Path, kProgramBankName)));
    }
    if (IsFactoryStyles(kind)) {
        return FactoryTitle(app, tag.Text(TagPosition::Path, kStyleBankName));
    }
    const auto *const row = std::ranges::find_if(kTitles, [&](const TitleRow &r) { return r.kinds.Has(kind) && r.slots.Has(app.slot); });
    return row != kTitles.end() ? TitleOf(*row, tag) : std::string();
}

} // namespace velluto
