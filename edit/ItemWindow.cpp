#include "edit/ItemWindow.h"

#include "app/FixedText.h"
#include "view/Control.h"

namespace velluto {

namespace {

// Nothing for a window that holds no items of a file.
std::optional<RowRules> RowRulesOf(FilesState &files, const WindowTag &tag)
{
    const DocumentType *type = TypeOfKind(files, tag.Kind());
    if (type == nullptr) {
        return std::nullopt;
    }
    RowRules rules = type->rows;
    if (rules.rows == 0) {
        rules.rows = tag.At(TagPosition::Places);
    }
    return rules;
}

} // namespace

std::size_t ItemWindow::Length(int row) const
{
    return RightTrimmed(list.Row(row)).size();
}

std::optional<ItemWindow> ActiveItemWindow(FilesState &files)
{
    Form *form = files.app.children.Active();
    auto *list = form != nullptr ? dynamic_cast<ListBox *>(ControlNamed(*form, "List1")) : nullptr;
    const std::optional<RowRules> rules = list != nullptr ? RowRulesOf(files, form->Tag) : std::nullopt;
    return rules ? std::optional(ItemWindow{*form, *list, *rules}) : std::nullopt;
}

} // namespace velluto
