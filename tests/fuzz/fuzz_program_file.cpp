// Any bytes as a Program file: opened, tied to a bank, clicked through, saved under another name. What is saved without
// an edit is what was opened, byte for byte.
#include "fuzz/FuzzProgram.h"

#include "files/frmPcgUN.h"

#include <cstdlib>

using namespace velluto;
using namespace velluto::fuzz;

namespace {

constexpr int kUser1 = 9;

frmPcgUN *OpenWindow(FuzzProgram &run, std::size_t slot)
{
    auto *window = dynamic_cast<frmPcgUN *>(run.program.files.programs.windows.at(slot).get());
    return window != nullptr && window->IsLoaded() ? window : nullptr;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzProgram run;
    const Bytes given(data, data + size);
    run.files.files["/home/a.pcg"] = given;
    if (!run.Start()) {
        return 0;
    }
    run.Choose(run.program.app.frame.mnuDevMIDIOut[0]);
    run.Open("/home/a.pcg");
    if (auto *const window = OpenWindow(run, kFirstFileSlot)) {
        ClickEveryRow(*window);
        Press(window->CommUser[kUser1]);
        run.Choose(run.program.app.frame.mnuPcgUser[kUser1]);
        if (auto *const bank = OpenWindow(run, kUser1)) {
            ClickEveryRow(*bank);
        }
        Press(window->CommUser[kUser1]); // once more, while the bank's window is open
        run.program.app.children.Activate(*window);
        run.face.choices.push_back({false, "/home/b.pcg", 1});
        run.Choose(run.program.app.frame.mnuSalvaAs);
        if (run.files.files["/home/b.pcg"] != given) {
            std::abort();
        }
    }
    CheckSent(run.midi);
    CloseFrame(run.program);
    return 0;
}
