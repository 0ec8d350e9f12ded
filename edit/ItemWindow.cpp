#include "edit/ItemWindow.h"

#include "app/FixedText.h"
#include "view/Control.h"

namespace velluto {

std::optional<RowRules> RowRulesOf(const WindowTag &tag)
{
    switch (tag.Kind()) {
    case ViewKind::ProgramFile:
    case ViewKind::NewProgram64:
    case ViewKind::NewProgram128:
        return RowRules{tag.At(TagPosition::Places), 128, 4}; // a file of 64 places, too, is copied from as if it had 128
    case ViewKind::StyleFile:
    case ViewKind::NewStyle:
        return RowRules{16, 16, 3};
    case ViewKind::PerformanceFile:
    case ViewKind::NewPerformance:
        return RowRules{8, 8, 2};
    default:
        return std::nullopt;
    }
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
