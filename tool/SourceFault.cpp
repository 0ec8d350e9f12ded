#include "tool/SourceFault.h"

#include "tool/SourceText.h"

#include <optional>

namespace velluto::tool {

namespace {

constexpr TwoTexts kOpenQuotes{"le virgolette non si chiudono", "the quotes do not end"};
constexpr TwoTexts kNoNumber{"%1\"%2\" non è un numero da 0 a 127", "%1\"%2\" is no number from 0 to 127"};

constexpr int kHighest = 127;

} // namespace

void ComplainOfOpenQuotes(std::size_t line, const Speaker &speaker)
{
    throw SourceFault(line, speaker.Say(kOpenQuotes));
}

int AddressNumber(std::string_view text, std::size_t line, const Speaker &speaker, std::string_view column)
{
    const std::optional<int> number = NumberUpTo(text, kHighest);
    if (!number) {
        const std::string place = column.empty() ? "" : std::string(column) + ": ";
        throw SourceFault(line, speaker.Say(kNoNumber, {place, Printable(text)}));
    }
    return *number;
}

} // namespace velluto::tool
