#include "app/ChildForm.h"

namespace velluto {

void ChildForm::Form_Load()
{
    app.children.RestoringLayout = true;
    if (!LoadWindow()) {
        // The window stays as far as it has come. It is not counted, its command stays off for good, and no window follows
        // a resize until some other load has come to its end. On purpose.
        command_ = nullptr;
        return;
    }
    app.children.RestoringLayout = false;
    CountIn();
}

void ChildForm::Form_Unload()
{
    UnloadWindow();
    CountOut();
    app.children.Bury(TakeOut());
}

void ChildForm::Form_Resize()
{
    if (!app.children.RestoringLayout) {
        Resized();
    }
}

void ChildForm::CountIn()
{
    if (command_ != nullptr) {
        command_->enabled = false;
    }
    ++app.children.ChildCount;
}

void ChildForm::CountOut()
{
    if (command_ != nullptr) {
        command_->enabled = true;
    }
    --app.children.ChildCount;
    RefreshAfterClose(app);
}

} // namespace velluto
