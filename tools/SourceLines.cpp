#include "tools/SourceLines.h"

#include <algorithm>
#include <charconv>
#include <fstream>

namespace makers {

namespace {

constexpr std::string_view kGroup = "group ";
constexpr int kHighestNumber = 127; // seven bits

std::string_view Trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

std::vector<std::string> Fields(std::string_view text)
{
    std::vector<std::string> fields;
    while (true) {
        const auto comma = text.find(',');
        fields.emplace_back(Trimmed(text.substr(0, comma)));
        if (comma == std::string_view::npos) {
            return fields;
        }
        text.remove_prefix(comma + 1);
    }
}

bool IsPlain(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

} // namespace

const std::string &SourceLine::Field(std::size_t index) const
{
    static const std::string kNone;
    return index < fields.size() ? fields[index] : kNone;
}

const std::string &SourceLine::Text(std::size_t index, std::size_t longest) const
{
    const std::string &text = Field(index);
    if (text.size() > longest) {
        Complain("\"" + text + "\" is longer than " + std::to_string(longest) + " characters");
    }
    if (!IsPlain(text)) {
        Complain("\"" + text + "\" is not plain ASCII");
    }
    return text;
}

int SourceLine::Number(std::size_t index) const
{
    const std::string &text = Field(index);
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 0 || number > kHighestNumber) {
        Complain("\"" + text + "\" is no number from 0 to 127");
    }
    return number;
}

void SourceLine::Complain(std::string_view what) const
{
    throw SourceError(where + ": " + std::string(what));
}

std::vector<SourceGroup> ReadGroups(const std::filesystem::path &file, std::size_t fieldsOfEntry)
{
    std::ifstream in(file);
    if (!in) {
        throw SourceError(file.string() + ": cannot be read");
    }
    std::vector<SourceGroup> groups;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        const std::string_view text = Trimmed(std::string_view(line).substr(0, line.find('#')));
        if (text.empty()) {
            continue;
        }
        SourceLine source{file.filename().string() + ":" + std::to_string(number), {}};
        if (text.starts_with(kGroup)) {
            source.fields = Fields(text.substr(kGroup.size()));
            groups.push_back({source, {}});
            continue;
        }
        source.fields = Fields(text);
        if (source.fields.size() != fieldsOfEntry) {
            source.Complain("not " + std::to_string(fieldsOfEntry) + " fields between commas");
        }
        if (groups.empty() || source.fields.front() != groups.back().head.Field(0)) {
            source.Complain("not in a group of its bank");
        }
        groups.back().entries.push_back(source);
    }
    return groups;
}

} // namespace makers
