#include "unit/edit/EditDifference.h"

#include "files/frmStyUN.h"

#include <algorithm>
#include <sstream>

namespace velluto::test {

namespace {

std::string BytesOf(const FileImage &image)
{
    return {image.View().begin(), image.View().end()};
}

std::string Readable(const std::string &text)
{
    std::ostringstream out;
    for (const char c : text) {
        if (c >= ' ' && c <= '~') {
            out << c;
        } else {
            out << '<' << static_cast<int>(static_cast<unsigned char>(c)) << '>';
        }
    }
    return out.str();
}

// Where two byte strings part, with what follows there.
std::optional<std::string> BytesDifference(const std::string &what, const std::string &program, const std::string &plain)
{
    if (program == plain) {
        return std::nullopt;
    }
    const auto parted = std::ranges::mismatch(program, plain);
    const auto at = static_cast<std::size_t>(parted.in1 - program.begin());
    return what + " differs from position " + std::to_string(at + 1) + ": program has " + std::to_string(program.size()) +
           " bytes, there \"" + Readable(program.substr(at, 24)) + "\"; plain has " + std::to_string(plain.size()) + ", there \"" +
           Readable(plain.substr(at, 24)) + "\"";
}

template <class Table>
std::optional<std::string> TableDifference(const std::string &what, const Table &program, const PlainTable &plain)
{
    const std::vector<std::int32_t> wanted = plain.Flat();
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (program.at(i) != wanted[i]) {
            return what + " element " + std::to_string(i) + ": program " + std::to_string(program.at(i)) + ", plain " +
                   std::to_string(wanted[i]);
        }
    }
    return std::nullopt;
}

std::optional<std::string> NumberDifference(const std::string &what, int program, int plain)
{
    return program == plain ? std::nullopt
                            : std::optional(what + ": program " + std::to_string(program) + ", plain " + std::to_string(plain));
}

} // namespace

std::optional<std::string> DocumentDifference(const std::string &name, const DocumentForm &form, const PlainDocument &plain)
{
    const std::string of = name + ": ";
    if (auto difference = BytesDifference(of + "prefix", form.Tag.prefix, plain.prefix)) {
        return difference;
    }
    if (auto difference = NumberDifference(of + "rows", form.List1.ListCount(), static_cast<int>(plain.rows.size()))) {
        return difference;
    }
    for (int row = 0; row < form.List1.ListCount(); ++row) {
        const std::string where = of + "row " + std::to_string(row);
        if (auto difference = BytesDifference(where, form.List1.Row(row), plain.Row(row))) {
            return difference;
        }
        if (form.List1.Selected(row) != plain.Selected(row)) {
            return where + ": selection";
        }
    }
    if (const auto *style = dynamic_cast<const frmStyUN *>(&form)) {
        if (style->CommSTS.enabled != plain.stsEnabled || style->CommSTS.caption.Get() != plain.stsCaption) {
            return of + "CommSTS";
        }
    }
    return BytesDifference(of + "image", BytesOf(form.Tag.image), plain.image);
}

namespace {

std::optional<std::string> ClipboardDifference(const ItemClipboard &program, const PlainClipboard &plain)
{
    const struct {
        const char *name;
        int program;
        int plain;
    } fields[] = {{"ClipValid", program.ClipValid, plain.ClipValid}, {"ClipFirstRow", program.ClipFirstRow, plain.ClipFirstRow},
                  {"ClipCount", program.ClipCount, plain.ClipCount}, {"ClipKind", program.ClipKind, plain.ClipKind},
                  {"ClipSlot", program.ClipSlot, plain.ClipSlot},    {"ClipHasSts", program.ClipHasSts, plain.ClipHasSts}};
    for (const auto &field : fields) {
        if (auto difference = NumberDifference(field.name, field.program, field.plain)) {
            return difference;
        }
    }
    return BytesDifference("ClipImage", BytesOf(program.ClipImage), plain.ClipImage);
}

} // namespace

std::optional<std::string> RunDifference(const FilesState &files, const PlainGlobals &plain)
{
    for (const auto &difference :
         {ClipboardDifference(files.clipboard, plain.clipboard), NumberDifference("CutCount", files.CutCount, plain.CutCount),
          TableDifference("ItemIndex", files.ItemIndex, plain.ItemIndex),
          TableDifference("BuildItemIndex", files.BuildItemIndex, plain.BuildItemIndex),
          TableDifference("SavedItemIndex", files.SavedItemIndex, plain.SavedItemIndex),
          BytesDifference("BuildImage", BytesOf(files.BuildImage), plain.BuildImage)}) {
        if (difference) {
            return difference;
        }
    }
    return std::nullopt;
}

} // namespace velluto::test
