#include "app/Messages.h"

#include "app/Catalogue.h"

#include <array>

namespace velluto {

namespace {

constexpr int kNoText = 0;
constexpr char kPlaceholder = '_';

// The catalogue's id of each message number. Numbers 6 to 9 lead to ids that the catalogue does not hold, so nobody
// may show them; 13 and 37 lead to none. Two ids stand twice on purpose.
constexpr std::array<int, 40> kMessageIds{
    76,  1,   100, 82,      14,  79,  40,  41,      42,  43,  // 0 to 9
    16,  110, 49,  kNoText, 77,  78,  93,  90,      27,  28,  // 10 to 19
    18,  19,  20,  21,      66,  104, 105, 15,      26,  109, // 20 to 29
    110, 112, 116, 16,      117, 118, 119, kNoText, 154, 155, // 30 to 39
};

int IdOf(int number)
{
    const bool inTable = number >= 0 && number < static_cast<int>(kMessageIds.size());
    return inTable ? kMessageIds[static_cast<std::size_t>(number)] : kNoText;
}

// Kind 2 leads to a word of the Window menu; no caller uses it.
int FirstLineId(int kind)
{
    switch (kind) {
    case SaveQuestion::FileChanged:
        return TextId::FileHasChanged;
    case 2:
        return TextId::TileHorizontal;
    case SaveQuestion::ProgramChanged:
        return TextId::ProgramHasChanged;
    default:
        return kNoText;
    }
}

} // namespace

std::string MessageText(int number, int linguaBase, std::string_view insert)
{
    const int id = IdOf(number);
    if (id == kNoText) {
        return {};
    }
    std::string text(LoadResString(id + linguaBase));
    if (const auto at = text.find(kPlaceholder); at != std::string::npos) {
        text.replace(at, 1, insert);
    }
    return text;
}

std::string Messages::Text(int id) const
{
    return std::string(LoadResString(id + LinguaBase));
}

void Messages::ShowMessage(int number, std::string_view title, std::string_view insert) const
{
    face.MessageBox(std::string(title), MessageText(number, LinguaBase, insert), Box::kNotice);
}

int Messages::AskSave(int kind, std::string_view title) const
{
    std::string text;
    if (const int id = FirstLineId(kind); id != kNoText) {
        text = Text(id) + "\r\n";
    }
    return face.MessageBox(std::string(title), text + Text(TextId::SaveChanges), Box::kYesNoCancel);
}

} // namespace velluto
