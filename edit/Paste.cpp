#include "edit/Paste.h"

#include "edit/PasteItems.h"
#include "edit/PasteStyles.h"
#include "files/frmStyUN.h"
#include "view/Form.h"

namespace velluto {

namespace {

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

void mnuIncolla_Click(FilesState &files)
{
    const std::optional<ItemWindow> window = ActiveItemWindow(files);
    if (!window) {
        return;
    }
    WindowTag &tag = window->form.Tag;
    const bool styles = files.styles.Has(tag.Kind());
    PasteJob job(files, *window);

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
        window->list.SetRow(row, std::move(text));
    }
    FixSts(window->form, outcome);
    tag.Set(TagPosition::Modified, 1);
    files.BuildPrefix = tag.prefix;
    tag.image = files.BuildImage; // a run of no rows builds none where Styles are grouped: then that of the last edit
}

} // namespace velluto
