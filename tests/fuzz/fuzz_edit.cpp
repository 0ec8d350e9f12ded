// Commands on items, in any order and on any windows: files whose directory, index and lengths say what they like are
// opened, rows are selected, copied, cut, pasted and printed, past the menu too. Whatever happens, every document keeps its
// prefix, and an image that the program would open again.
#include "fuzz/FuzzImages.h"
#include "fuzz/FuzzProgram.h"

#include "edit/ItemWindow.h"
#include "files/DocumentForm.h"
#include "files/Korf.h"

#include <array>
#include <cstdlib>

using namespace velluto;
using namespace velluto::fuzz;

namespace {

constexpr int kFiles = 4;
constexpr int kMostCommands = 60;
constexpr std::array kPaths = {"/home/a.pcg", "/home/b.sty", "/home/c.prf", "/home/d.sty", "/home/e.pcg", "/home/f.prf"};

void Select(FuzzedDataProvider &bytes, ListBox &list)
{
    if (bytes.ConsumeBool()) {
        list.ClearSelection();
    }
    const int first = bytes.ConsumeIntegralInRange(0, 127);
    const int last = first + bytes.ConsumeIntegralInRange(0, bytes.ConsumeBool() ? 3 : 127);
    for (int row = first; row <= last; ++row) {
        list.Select(row % std::max(list.ListCount(), 1), true);
    }
}

// Selects a run of rows that hold an item, or of such as hold none.
void SelectRun(FuzzedDataProvider &bytes, FilesState &files, bool occupied)
{
    const std::optional<ItemWindow> rows = ActiveItemWindow(files);
    if (!rows) {
        return;
    }
    rows->list.ClearSelection();
    int leftOut = bytes.ConsumeIntegralInRange(0, 9);
    int wanted = bytes.ConsumeIntegralInRange(1, 4);
    for (int row = 0; row < rows->rules.rows && wanted > 0; ++row) {
        const bool fits = occupied ? rows->IsOccupied(row) : rows->IsEmpty(row);
        if (fits && --leftOut < 0) {
            rows->list.Select(row, true);
            --wanted;
        }
    }
}

// Takes items of the active window to some window.
void Carry(FuzzedDataProvider &bytes, FuzzProgram &run)
{
    frmMain &menu = run.program.app.frame;
    ChildWindows &children = run.program.app.children;
    SelectRun(bytes, run.program.files, true);
    Raise((bytes.ConsumeBool() ? menu.mnuCopia : menu.mnuTaglia).Click);
    children.Activate(*children.All()[bytes.ConsumeIntegralInRange<std::size_t>(0, children.All().size() - 1)]);
    SelectRun(bytes, run.program.files, false);
    Raise(menu.mnuIncolla.Click);
}

void OpenSomething(FuzzedDataProvider &bytes, FuzzProgram &run)
{
    frmMain &menu = run.program.app.frame;
    const std::array<MenuEntry *, 4> newFiles{&menu.mnuPcgNuovo64, &menu.mnuPcgNuovo128, &menu.mnuStyNuovo, &menu.mnuPrfNuovo};
    if (bytes.ConsumeBool()) {
        run.Choose(*newFiles.at(bytes.ConsumeIntegralInRange<std::size_t>(0, newFiles.size() - 1)));
    } else {
        run.Open(bytes.PickValueInArray(kPaths));
    }
}

void Command(FuzzedDataProvider &bytes, FuzzProgram &run)
{
    ChildWindows &children = run.program.app.children;
    auto *window = dynamic_cast<DocumentForm *>(children.Active());
    frmMain &menu = run.program.app.frame;
    const std::array<MenuEntry *, 5> entries{&menu.mnuCopia, &menu.mnuTaglia, &menu.mnuIncolla, &menu.mnuStampa, &menu.mnuIngrandisci};
    MenuEntry &entry = *entries.at(bytes.ConsumeIntegralInRange<std::size_t>(0, entries.size() - 1));
    if (window == nullptr) {
        Raise(entry.Click);
        OpenSomething(bytes, run);
        return;
    }
    switch (bytes.ConsumeIntegralInRange(0, 23)) {
    case 0:
        OpenSomething(bytes, run);
        break;
    case 1:
        run.face.answers.push_back(Box::kNo);
        children.Unload(*window);
        break;
    case 2:
        DropMenu(menu.mnuModifica);
        break;
    case 3:
        if (Control *sts = ControlNamed(*window, "CommSTS")) {
            Press(*sts);
        }
        break;
    case 4:
        PressKey(window->List1, Key::Delete);
        break;
    case 5:
    case 6:
        children.Activate(*children.All()[bytes.ConsumeIntegralInRange<std::size_t>(0, children.All().size() - 1)]);
        break;
    case 7:
    case 8:
    case 9:
    case 10:
        Select(bytes, window->List1);
        break;
    case 11:
    case 12:
        Raise(entry.Click);
        break;
    case 13:
        run.printer.successes = bytes.ConsumeIntegral<std::uint8_t>();
        run.printer.failure = bytes.PickValueInArray({PrinterError::kPrinter, PrinterError::kCancelled});
        run.Choose(menu.mnuStampa);
        break;
    case 14:
    case 15:
    case 16:
    case 17:
    case 18:
    case 19:
        Carry(bytes, run);
        break;
    default:
        run.Choose(entry);
    }
    children.Sweep();
}

void Check(const FuzzProgram &run)
{
    for (const Form *form : run.program.app.children.All()) {
        if (const auto *document = dynamic_cast<const DocumentForm *>(form)) {
            const WindowTag &tag = document->Tag;
            if (tag.prefix.size() != kTagPrefixLength || (!tag.image.empty() && !IsInstrumentFile(tag.image.View()))) {
                std::abort();
            }
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider bytes(data, size);
    FuzzProgram run;
    for (int i = 0; i < kFiles; ++i) {
        const std::string path = bytes.PickValueInArray(kPaths);
        const int layout = path.ends_with("sty") ? bytes.ConsumeIntegralInRange(0, 2) : 0;
        run.files.files[path] = bytes.ConsumeBool() ? WholeFile(bytes, layout) : DamagedFile(bytes);
    }
    if (!run.Start()) {
        return 0;
    }
    for (int commands = 0; commands < kMostCommands && bytes.remaining_bytes() > 0; ++commands) {
        Command(bytes, run);
        Check(run);
    }
    return 0;
}
