#include "edit/ItemWindow.h"

#include "app/FixedText.h"
#include "view/Control.h"

namespace velluto {

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

ListBox *ListOf(Form &window)
{
    return dynamic_cast<ListBox *>(ControlNamed(window, "List1"));
}

std::size_t ItemRows::Length(int row) const
{
    return RightTrimmed(list.Row(row)).size();
}

} // namespace velluto
