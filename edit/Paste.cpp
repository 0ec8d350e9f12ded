#include "edit/Paste.h"

#include "edit/PasteSteps.h"
#include "files/frmStyUN.h"
#include "view/Form.h"

#include <algorithm>

namespace velluto {

namespace {

int LastOccupied(const ItemRows &rows)
{
    int r = rows.rules.rows;
    while (r > 0 && !rows.IsOccupied(r - 1)) {
        --r;
    }
    return r;
}

int FirstFree(const ItemRows &rows)
{
    int row = 0;
    while (row < rows.rules.rows && !(rows.IsEmpty(row) && rows.IsSelected(row))) {
        ++row;
    }
    return row;
}

int FreeFrom(const ItemRows &rows, int dest)
{
    int row = dest;
    while (row < rows.rules.rows && !rows.IsOccupied(row)) {
        ++row;
    }
    return row - dest;
}

// A first Paste into a file without items fixes whether it has STS.
void FixSts(Form &window, PasteOutcome outcome)
{
    if (outcome == PasteOutcome::Filled) {
        return;
    }
    const bool hasSts = outcome == PasteOutcome::BeganWithSts;
    if (auto *styles = dynamic_cast<frmStyUN *>(&window)) {
        styles->CommSTS.enabled = hasSts;
    }
    window.Tag.Set(TagPosition::HasSts, hasSts ? 1 : 0);
    window.Tag.Set(TagPosition::PasteFixed, 1);
}

} // namespace

PasteJob::PasteJob(FilesState &state, const ItemRows &window)
    : files(state), rows(window), last(LastOccupied(window)), dest(FirstFree(window)), gap(FreeFrom(window, dest)),
      take(std::min(gap, state.clipboard.ClipCount)), first(state.clipboard.ClipFirstRow), stop(first + take - 1)
{
}

void mnuIncolla_Click(FilesState &files)
{
    Form *window = files.app.children.Active();
    ListBox *list = window != nullptr ? ListOf(*window) : nullptr;
    const std::optional<RowRules> rules = list != nullptr ? RowRulesOf(files, window->Tag) : std::nullopt;
    if (!rules) {
        return;
    }
    WindowTag &tag = window->Tag;
    const bool styles = files.styles.Has(tag.Kind());
    const ItemRows rows{*list, *rules};
    PasteJob job(files, rows);

    Assembly assembly{files, std::nullopt};
    PasteOutcome outcome = PasteOutcome::Filled;
    const bool followed = assembly.Follow([&] {
        if (styles) {
            outcome = PasteStyles(assembly, job, tag.image);
        } else {
            PasteItems(assembly, job, tag.image);
        }
    });
    if (!followed) {
        return;
    }
    for (auto &[row, text] : job.newRows) {
        list->SetRow(row, std::move(text));
    }
    FixSts(*window, outcome);
    tag.Set(TagPosition::Modified, 1);
    files.BuildPrefix = tag.prefix;
    tag.image = files.BuildImage; // a run of no rows builds none where Styles are grouped: then that of the last edit
}

} // namespace velluto
