// Any bytes as the image of a compilation: walked, added to, removed from, and as the file of a compilation in the player's
// window, whose controls are then used in any order while time passes. Nothing is read outside, nothing hangs, and an image
// never grows but by what was put in or by what a removal repeats.
#include "fuzz/FuzzProgram.h"
#include "player/CompilationImage.h"
#include "player/PlayerWindow.h"
#include "player/Transport.h"

#include <cstdlib>

using namespace velluto;
using namespace velluto::fuzz;

namespace {

constexpr std::size_t kLargestImage = 4000;
constexpr std::size_t kLongestName = 12;
constexpr int kMostSteps = 60;

void Check(bool truth)
{
    if (!truth) {
        std::abort();
    }
}

// Each walk ends, and what it gives lies within the image.
std::vector<std::string> Names(const std::string &image)
{
    std::vector<std::string> names;
    ImageWalk walk(image);
    ImageEntry entry;
    while (walk.Next(entry)) {
        Check(entry.at + entry.name.size() <= image.size() && entry.group <= entry.at && walk.Place() <= image.size());
        names.emplace_back(entry.name);
        Check(names.size() <= image.size());
    }
    return names;
}

// An image that the program itself has made.
std::string WholeImage(FuzzedDataProvider &bytes)
{
    std::string image;
    for (int left = bytes.ConsumeIntegralInRange(1, 6); left > 0; --left) {
        (void)Append(image, bytes.PickValueInArray({"/home", "/d", "/e"}), bytes.PickValueInArray({"a.mid", "b.mid", "B.MID", "c.mid"}));
    }
    return image;
}

void EditImage(FuzzedDataProvider &bytes, std::string image)
{
    for (int step = 0; step < kMostSteps && bytes.remaining_bytes() > 0 && image.size() <= kLargestImage; ++step) {
        const std::vector<std::string> names = Names(image);
        const std::size_t before = image.size();
        const std::string any = bytes.ConsumeRandomLengthString(kLongestName);
        const std::string name =
            names.empty() || bytes.ConsumeBool() ? any : names[bytes.ConsumeIntegralInRange<std::size_t>(0, names.size() - 1)];
        const std::string directory = bytes.PickValueInArray({"/d", "/e", "", "/d/e"});
        switch (bytes.ConsumeIntegralInRange(0, 2)) {
        case 0:
            Check(InsertBefore(image, name, directory, any) >= 0 && image.size() > before);
            break;
        case 1:
            Check(Append(image, directory, any) == static_cast<int>(names.size()) && image.size() > before);
            break;
        default:
            RemoveByName(image, name);
            Check(image.size() <= 2 * before);
        }
        (void)PathInImage(image, bytes.ConsumeIntegralInRange(-1, 100));
    }
}

class PlayerHand {
public:
    PlayerHand(FuzzProgram &run, FuzzedDataProvider &bytes) : run_(run), bytes_(bytes) {}

    void Act()
    {
        PlayerState &player = run_.program.player;
        if (player.window == nullptr) {
            run_.Choose(run_.program.app.frame.mnuMidiPlayer);
            return;
        }
        const std::vector<Control *> &all = player.window->controls();
        Control &control = *all[bytes_.ConsumeIntegralInRange<std::size_t>(0, all.size() - 1)];
        switch (bytes_.ConsumeIntegralInRange(0, 15)) {
        case 0:
            run_.program.app.children.Unload(*player.window);
            run_.program.app.children.Sweep();
            return;
        case 1:
        case 2:
            Pass(StandinSequencer::Milliseconds{bytes_.ConsumeIntegralInRange(0, 2000)});
            return;
        case 3:
        case 4:
        case 5:
            PlayOut(*player.window);
            return;
        case 6:
            // A mark ends the play without word of the end.
            Use(player.window->HScrollStop);
            Use(player.window->MCIPuls[TransportButton::Play]);
            Pass(StandinSequencer::Milliseconds{1000});
            Use(player.window->Timer1);
            Settle();
            return;
        case 7:
            run_.faulty.faults.push_back(
                AnyFault(bytes_, bytes_.PickValueInArray({"/home/c-mix.cmp", "/home/c-other.cmp", "/home", "/d"})));
            return;
        default:
            Use(control);
        }
        Settle();
    }

private:
    void Use(Control &control)
    {
        if (auto *timer = dynamic_cast<Timer *>(&control)) {
            if (timer->enabled) {
                Raise(timer->Tick);
            }
        } else if (auto *bar = dynamic_cast<ScrollBar *>(&control)) {
            const int value = bytes_.ConsumeIntegralInRange(0, std::max(bar->max.Get(), 0));
            bytes_.ConsumeBool() ? ScrollGesture::MoveTo(*bar, value) : ScrollGesture::DragTo(*bar, value);
        } else if (auto *text = dynamic_cast<TextBox *>(&control)) {
            text->text = bytes_.PickValueInArray({"", "mix", "other", "/", "a\x01"});
        } else if (auto *list = dynamic_cast<ListBox *>(&control)) {
            if (list->ListCount() > 0) {
                const int row = bytes_.ConsumeIntegralInRange(0, list->ListCount() - 1);
                bytes_.ConsumeBool()
                    ? ListGesture::DoubleClickRow(*list, row)
                    : ListGesture::ClickRow(*list, row, bytes_.PickValueInArray({Modifier::None, Modifier::Ctrl, Modifier::Shift}));
            }
        } else {
            Press(control);
        }
    }
    void ClickSome(ListBox &list, bool isDouble)
    {
        if (list.ListCount() > 0) {
            const int row = bytes_.ConsumeIntegralInRange(0, list.ListCount() - 1);
            isDouble ? ListGesture::DoubleClickRow(list, row) : ListGesture::ClickRow(list, row, Modifier::None);
            Settle();
        }
    }
    // A file of one of the lists is played to its end, and what follows it too, while this and that is done.
    void PlayOut(frmMIDIPlayer &form)
    {
        ClickSome(form.ListComp, false);
        ClickSome(bytes_.ConsumeBool() ? form.ListMidiCorr : form.ListMidiSel, true);
        for (int times = bytes_.ConsumeIntegralInRange(1, 3); times > 0; --times) {
            Use(*bytes_.PickValueInArray<Control *>({&form.CommRep, &form.CommPlayAll, &form.HScrollStop, &form.ListMidiCorr,
                                                     &form.ListComp, &form.CommRim, &form.CommSel, &form.CommCanc,
                                                     &form.MCIPuls[TransportButton::Play]}));
            Settle();
            constexpr StandinSequencer::Milliseconds kGap{400}; // between two files
            Pass(run_.sequencer.UntilEnd().value_or(kGap));
            Pass(kGap);
        }
    }
    void Pass(StandinSequencer::Milliseconds time)
    {
        run_.sequencer.Advance(time);
        run_.ticks.Advance(time);
        Settle();
    }
    void Settle()
    {
        do {
            Raise(run_.ticks.Ticked);
        } while (run_.sequencer.Deliver());
        run_.program.app.children.Sweep();
    }

    FuzzProgram &run_;
    FuzzedDataProvider &bytes_;
};

void UsePlayer(FuzzedDataProvider &bytes, const std::string &image)
{
    FuzzProgram run;
    run.files.files["/home/c-mix.cmp"] = Bytes(image.begin(), image.end());
    const std::string other = WholeImage(bytes);
    run.files.files["/home/c-other.cmp"] = Bytes(other.begin(), other.end());
    if (bytes.ConsumeIntegralInRange(0, 15) == 0) {
        run.files.told["/home/c-mix.cmp"] = std::uint64_t{1} << 40;
    }
    for (const char *name : {"/home/a.mid", "/home/b.mid", "/home/B.MID", "/d/a.mid", "/d/c.mid"}) {
        run.files.files[name] = {1, 2, 3};
        run.sequencer.songs[name] = {bytes.ConsumeIntegralInRange(0, 40000), 0, {}};
    }
    run.sequencer.rate = StandinSequencer::Milliseconds{5}; // the longest of them is over in some minutes
    Check(run.Start());
    PlayerHand hand(run, bytes);
    for (int step = 0; step < kMostSteps && run.Runs() && bytes.remaining_bytes() > 0; ++step) {
        hand.Act();
    }
    run.faulty.faults.clear();
    CloseFrame(run.program);
    run.program.app.children.Sweep();
    Check(!run.Runs() && !run.sequencer.Done && !run.ticks.Running());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider bytes(data, size);
    const std::string image = bytes.ConsumeBool() ? WholeImage(bytes) : bytes.ConsumeRandomLengthString(kLargestImage);
    if (bytes.ConsumeBool()) {
        EditImage(bytes, image);
    } else {
        UsePlayer(bytes, image);
    }
    return 0;
}
