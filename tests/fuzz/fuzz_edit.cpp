// Commands on items, in any order and on any windows: files whose directory, index and lengths say what they like are
// opened, rows are selected, copied, cut, pasted and printed, past the menu too. Whatever happens, every document keeps its
// prefix, and an image that the program would open again.
#include "fuzz/FuzzProgram.h"
#include "unit/support/InstrumentImage.h"

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

// A file of a few items, framed as it should be.
Bytes FramedFile(FuzzedDataProvider &bytes)
{
    const auto count = bytes.ConsumeIntegralInRange<std::size_t>(0, bytes.ConsumeBool() ? 12 : 140);
    std::string between;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string name = bytes.ConsumeBytesAsString(4);
        const std::size_t grouped = count > 1 ? i % (count / 2) : 0;
        const auto slot = bytes.PickValueInArray({i, i / 2, grouped, bytes.ConsumeIntegral<std::size_t>()});
        between += test::DirectoryEntry(name, static_cast<int>(slot));
    }
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < count; ++i) {
        offsets.push_back(test::kInstrumentHead + between.size());
        between.append(bytes.ConsumeIntegralInRange<std::size_t>(0, 40), static_cast<char>(bytes.ConsumeIntegralInRange(0, 20)));
    }
    return test::Framed(between, offsets);
}

// The same with any bytes in any place, or cut short, but with a last byte that makes it pass for an instrument's file.
Bytes DamagedFile(FuzzedDataProvider &bytes)
{
    Bytes file = FramedFile(bytes);
    if (bytes.ConsumeIntegralInRange(0, 3) == 0) {
        file.resize(bytes.ConsumeIntegralInRange<std::size_t>(Korf::kHeadLength, file.size()));
    }
    for (int pokes = bytes.ConsumeIntegralInRange(0, 8); pokes > 0; --pokes) {
        const std::size_t at = bytes.ConsumeBool() ? bytes.ConsumeIntegralInRange<std::size_t>(4, 40)
                                                   : file.size() - bytes.ConsumeIntegralInRange<std::size_t>(1, Korf::kHeadLength);
        if (at < file.size()) {
            file[at] = bytes.ConsumeIntegral<std::uint8_t>();
        }
    }
    file.back() = static_cast<std::uint8_t>(CountItems(file) + 1);
    return file;
}

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
    if (window == nullptr) {
        OpenSomething(bytes, run);
        return;
    }
    frmMain &menu = run.program.app.frame;
    const std::array<MenuEntry *, 4> entries{&menu.mnuCopia, &menu.mnuTaglia, &menu.mnuIncolla, &menu.mnuStampa};
    MenuEntry &entry = *entries.at(bytes.ConsumeIntegralInRange<std::size_t>(0, entries.size() - 1));
    switch (bytes.ConsumeIntegralInRange(0, 15)) {
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
        run.files.files[bytes.PickValueInArray(kPaths)] = DamagedFile(bytes);
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
