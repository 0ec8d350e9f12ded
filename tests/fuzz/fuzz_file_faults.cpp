// Everything that the program reads from files and writes to them, while operations on these fail: documents are opened by dialog, as
// recent files and as arguments, changed, saved and closed, the settings, the tables, the guide and the notebook are read and written.
// What is opened alone stays as it is, and in the end the program can be left.
#include "fuzz/FuzzImages.h"
#include "fuzz/FuzzProgram.h"

#include "files/DocumentForm.h"
#include "files/Opening.h"

#include <array>
#include <cstdlib>

using namespace velluto;
using namespace velluto::fuzz;

namespace {

constexpr int kMostSteps = 40;
constexpr const char *kSettings = "/home/Velluto.ini";
constexpr std::array kOthers = {kSettings, "/home/Velluto-Notebook.txt", "/home/Velluto-UserGuide.txt", "/home/Velluto-pcg.txt",
                                "/home/Velluto-sty.txt"};

// Names of all kinds; not every one is a file's.
const std::vector<std::string> &Paths()
{
    static const std::vector<std::string> paths = {
        "/home/a.pcg",
        "/home/b.sty",
        "/home/c.PRF",
        "/home/d.PcG",
        "/home/page.htm",
        "/home/song.mid",
        "/home/readme",
        "/home/a folder of a long name/another one/f.sty",
        "/home/" + std::string(60, 'n') + ".prf",
        "/home/" + std::string(300, 'n') + ".pcg",
        "/home/gone.pcg",
        "",
    };
    return paths;
}

const std::string &AnyPath(FuzzedDataProvider &bytes)
{
    return Paths()[bytes.ConsumeIntegralInRange<std::size_t>(0, Paths().size() - 1)];
}

void MakeFiles(FuzzedDataProvider &bytes, MemoryFiles &files)
{
    for (std::size_t i = 0; i + 2 < Paths().size(); ++i) {
        const bool isStyle = Paths()[i].ends_with("sty");
        files.files[Paths()[i]] = WholeFile(bytes, isStyle ? bytes.ConsumeIntegralInRange(0, 2) : 0);
    }
    if (bytes.ConsumeIntegralInRange(0, 3) == 0) {
        const std::string &path = AnyPath(bytes);
        files.files[path].resize(bytes.ConsumeIntegralInRange<std::size_t>(0, files.files[path].size()));
        files.told[path] = bytes.PickValueInArray<std::uint64_t>({0, (32U << 20) + 1, 256U << 20, (256U << 20) + 1, kNoLength});
    }
    for (const char *path : kOthers) {
        files.files[path] = bytes.ConsumeBytes<std::uint8_t>(bytes.ConsumeIntegralInRange<std::size_t>(0, 600));
    }
    if (bytes.ConsumeBool()) {
        files.files.erase(kSettings);
    }
}

class Hand {
public:
    Hand(FuzzProgram &run, FuzzedDataProvider &bytes) : run_(run), bytes_(bytes) {}

    void Act()
    {
        const int what = bytes_.ConsumeIntegralInRange(0, 15);
        if (what < 5) {
            const std::map<std::string, Bytes> before = run_.files.files;
            OpenSomething(what);
            for (const std::string &path : Paths()) {
                const auto was = before.find(path);
                if (was != before.end() && !was->second.empty() && run_.files.files[path] != was->second) {
                    std::abort();
                }
            }
        } else if (what == 5) {
            run_.faulty.faults.push_back(AnyFault(bytes_, AnyPath(bytes_)));
        } else if (what == 6) {
            run_.faulty.faults.push_back(AnyFault(bytes_, kOthers.at(bytes_.ConsumeIntegralInRange<std::size_t>(0, kOthers.size() - 1))));
        } else if (what < 9) {
            OpenTool();
        } else {
            UseWindow(what);
        }
        run_.program.app.children.Sweep();
    }

private:
    void OpenSomething(int how)
    {
        FilesState &files = run_.program.files;
        frmMain &menu = run_.program.app.frame;
        const std::string &path = AnyPath(bytes_);
        switch (how) {
        case 0:
            OpenArgument(files, path, bytes_.PickValueInArray({Argument::File, Argument::Folder, Argument::Missing}));
            break;
        case 1:
            mnuRecentFile_Click(files, bytes_.ConsumeIntegralInRange(0, 17));
            break;
        case 2:
            run_.Choose(*bytes_.PickValueInArray({&menu.mnuPcgNuovo64, &menu.mnuPcgNuovo128, &menu.mnuStyNuovo, &menu.mnuPrfNuovo}));
            break;
        case 3:
            FillSlots();
            break;
        default:
            run_.face.choices.push_back({false, path, bytes_.ConsumeIntegralInRange(0, 5)});
            run_.Choose(*bytes_.PickValueInArray({&menu.mnuPcgApri, &menu.mnuStyApri, &menu.mnuPrfApri}));
        }
    }

    // As many windows as one type has slots for.
    void FillSlots()
    {
        if (filled_) {
            return;
        }
        filled_ = true;
        for (int number = 0; number <= kLastFileSlot; ++number) {
            const std::string path = "/home/more" + std::to_string(number) + ".pcg";
            run_.files.files[path] = test::InstrumentFile({{"One", 0, {1, 2}}});
            OpenNamedFile(run_.program.files, path);
        }
    }

    void OpenTool()
    {
        frmMain &menu = run_.program.app.frame;
        run_.Choose(*bytes_.PickValueInArray(
            {&menu.mnuGuida, &menu.mnuBloccoNote, &menu.mnuSty[1], &menu.mnuSty[2], &menu.mnuPrfUserAll, &menu.mnuStyUserAll}));
        Raise(menu.mnuIngrandisci.Click);
    }

    void UseWindow(int what)
    {
        ChildWindows &children = run_.program.app.children;
        if (children.All().empty()) {
            run_.Choose(*bytes_.PickValueInArray(
                {&run_.program.app.frame.mnuSalva, &run_.program.app.frame.mnuSalvaAs, &run_.program.app.frame.mnuIngrandisci}));
            return;
        }
        Form &window = *children.All()[bytes_.ConsumeIntegralInRange<std::size_t>(0, children.All().size() - 1)];
        children.Activate(window);
        switch (what) {
        case 9:
            run_.Choose(run_.program.app.frame.mnuSalva);
            break;
        case 10:
        case 11:
            run_.face.choices.push_back({bytes_.ConsumeIntegralInRange(0, 7) == 0, AnyPath(bytes_), 1});
            run_.Choose(run_.program.app.frame.mnuSalvaAs);
            break;
        case 12:
            run_.face.answers.push_back(bytes_.PickValueInArray({Box::kYes, Box::kNo, Box::kCancel}));
            run_.face.choices.push_back({false, AnyPath(bytes_), 1});
            children.Unload(window);
            break;
        default:
            Change(window);
        }
    }

    void Change(Form &window)
    {
        if (auto *document = dynamic_cast<DocumentForm *>(&window); document != nullptr && bytes_.ConsumeBool()) {
            document->List1.Select(bytes_.ConsumeIntegralInRange(0, 15) % std::max(document->List1.ListCount(), 1), true);
            PressKey(document->List1, Key::Delete);
        } else if (auto *text = dynamic_cast<TextBox *>(ControlNamed(window, "Text1")); text != nullptr && !text->readOnly) {
            text->text = text->text.Get() + bytes_.ConsumeRandomLengthString(8);
        } else {
            Press(*window.controls()[bytes_.ConsumeIntegralInRange<std::size_t>(0, window.controls().size() - 1)]);
        }
    }

    FuzzProgram &run_;
    FuzzedDataProvider &bytes_;
    bool filled_ = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider bytes(data, size);
    FuzzProgram run;
    MakeFiles(bytes, run.files);
    if (bytes.ConsumeIntegralInRange(0, 3) == 0) {
        run.faulty.faults.push_back(AnyFault(bytes, kSettings));
    }
    if (!run.Start(bytes.ConsumeIntegralInRange(0, 15) != 0)) {
        return 0;
    }
    Hand hand(run, bytes);
    for (int steps = 0; steps < kMostSteps && run.Runs() && bytes.remaining_bytes() > 0; ++steps) {
        hand.Act();
    }
    if (bytes.ConsumeBool()) {
        CloseFrame(run.program); // with what faults there still are
        run.program.app.children.Sweep();
    }
    run.Leave();
    return 0;
}
