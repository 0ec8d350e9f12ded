// Any bytes as a Style file and as a Performance file: opened, switched to the STS and back, tied to banks, clicked through in
// all their windows and overviews, saved under another name. What is saved without an edit is what was opened, byte for byte.
#include "fuzz/FuzzProgram.h"

#include "files/frmPrfUN.h"
#include "files/frmPrfUserAll.h"
#include "files/frmStyUN.h"
#include "files/frmStyUserAll.h"

#include <cstdlib>

using namespace velluto;
using namespace velluto::fuzz;

namespace {

constexpr int kStyUser2 = 10;
constexpr int kDirectHd9 = 20;
constexpr int kPrfUser20 = 20;

bool IsThere(const Form *window)
{
    return window != nullptr && window->IsLoaded();
}

void SaveAs(FuzzProgram &run, Form &window, const std::string &path, const Bytes &given)
{
    run.program.app.children.Activate(window);
    run.face.choices.push_back({false, path, 1});
    run.Choose(run.program.app.frame.mnuSalvaAs);
    if (run.files.files[path] != given) {
        std::abort();
    }
}

void UseStyles(FuzzProgram &run, const Bytes &given)
{
    FilesState &files = run.program.files;
    frmMain &menu = run.program.app.frame;
    auto *const window = dynamic_cast<frmStyUN *>(files.styles.windows[kFirstFileSlot].get());
    if (!IsThere(window)) {
        return;
    }
    for (int view = 0; view < 2; ++view) {
        ClickEveryRow(*window);
        Press(window->CommSTS);
    }
    Press(window->CommUser[kStyUser2]);
    Press(window->CommDirectHD[kDirectHd9]);
    run.Choose(menu.mnuStyUser[kStyUser2]);
    if (auto *const bank = dynamic_cast<frmStyUN *>(files.styles.windows[kStyUser2].get()); IsThere(bank)) {
        ClickEveryRow(*bank);
        Press(bank->CommSTS);
    }
    Press(window->CommUser[kStyUser2]); // once more, while the bank's window is open
    run.Choose(menu.mnuStyUserAll);
    run.Choose(menu.mnuStyDirectHD789);
    for (const auto &overview : files.overviews) {
        if (IsThere(overview.get())) {
            ClickEveryRow(*overview);
        }
    }
    SaveAs(run, *window, "/home/b.sty", given);
}

void UsePerformances(FuzzProgram &run, const Bytes &given)
{
    FilesState &files = run.program.files;
    frmMain &menu = run.program.app.frame;
    auto *const window = dynamic_cast<frmPrfUN *>(files.performances.windows[kFirstFileSlot].get());
    if (!IsThere(window)) {
        return;
    }
    ClickEveryRow(*window);
    for (int bank = 1; bank <= kPrfUser20; ++bank) {
        Press(window->CommUser[bank]);
    }
    run.Choose(menu.mnuPrfUser[kPrfUser20]);
    if (auto *const bank = dynamic_cast<frmPrfUN *>(files.performances.windows[kLastPrfUserSlot].get()); IsThere(bank)) {
        ClickEveryRow(*bank);
    }
    run.Choose(menu.mnuPrfUserAll);
    Raise(menu.mnuIngrandisci.Click);
    if (IsThere(files.overviews[0].get())) {
        ClickEveryRow(*files.overviews[0]);
    }
    SaveAs(run, *window, "/home/b.prf", given);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzProgram run;
    const Bytes given(data, data + size);
    run.files.files["/home/a.sty"] = given;
    run.files.files["/home/a.prf"] = given;
    if (!run.Start()) {
        return 0;
    }
    run.Choose(run.program.app.frame.mnuDevMIDIOut[0]);
    run.Open("/home/a.sty");
    UseStyles(run, given);
    run.Open("/home/a.prf");
    UsePerformances(run, given);
    CheckSent(run.midi);
    CloseFrame(run.program);
    return 0;
}
