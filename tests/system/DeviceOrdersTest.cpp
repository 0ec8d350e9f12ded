// Devices that come and go in any order, while the program opens, clicks, plays, passes on and ends: nothing hangs, nothing sounds on,
// and memory does not grow. VELLUTO_DEVICE_ORDERS makes a longer evening of it, VELLUTO_DEVICE_SEED another one.
#include "JackServer.h"
#include "platform/music/MachineMusic.h"
#include "unit/sequencer/MidiBytes.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>
#include <malloc.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <random>
#include <set>
#include <sstream>
#include <thread>

namespace velluto::test {
namespace {

constexpr std::uint32_t kNoteOff = 0x403C80;

int FromEnvironment(const char *name, int otherwise)
{
    const char *const value = std::getenv(name);
    return value != nullptr ? std::atoi(value) : otherwise; // NOLINT: a number by hand
}

// Ends the test program, with a name for the step, where a step takes longer than anybody would wait.
class Watchdog {
public:
    explicit Watchdog(std::chrono::seconds patience) : patience_(patience) {}
    ~Watchdog()
    {
        ends_ = true;
        thread_.join();
    }
    Watchdog(const Watchdog &) = delete;
    Watchdog &operator=(const Watchdog &) = delete;
    void Begin(const char *step)
    {
        step_ = step;
        begun_ = std::chrono::steady_clock::now().time_since_epoch().count();
    }

private:
    void Watch()
    {
        while (!ends_) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            const std::chrono::steady_clock::time_point begun{std::chrono::steady_clock::duration(begun_.load())};
            if (begun_ != 0 && std::chrono::steady_clock::now() - begun > patience_) {
                std::fprintf(stderr, "hangs: %s\n", step_.load());
                std::abort();
            }
        }
    }

    std::chrono::seconds patience_;
    std::atomic<const char *> step_ = "";
    std::atomic<std::chrono::steady_clock::rep> begun_ = 0;
    std::atomic<bool> ends_ = false;
    std::thread thread_{[this] { Watch(); }};
};

// What is sounding at an instrument, by what it has printed.
std::set<std::string> SoundingAt(Process &instrument)
{
    std::set<std::string> notes;
    for (const std::string &line : instrument.Lines()) {
        std::istringstream words(line);
        unsigned status = 0;
        unsigned note = 0;
        unsigned value = 0;
        words >> std::hex >> status >> note >> value;
        const std::string name = std::to_string(status & 0x0FU) + "/" + std::to_string(note);
        if ((status & 0xF0U) == 0x90 && value > 0) {
            notes.insert(name);
        } else if ((status & 0xF0U) == 0x80 || (status & 0xF0U) == 0x90) {
            notes.erase(name);
        } else if ((status & 0xF0U) == 0xB0 && (note == 120 || note == 123)) {
            std::erase_if(notes, [&](const std::string &other) { return other.starts_with(std::to_string(status & 0x0FU) + "/"); });
        }
    }
    return notes;
}

class DeviceOrders : public testing::Test {
protected:
    DeviceOrders() { ::setenv("VELLUTO_SOUNDFONT", "", 1); } // without the synthesizer every device is a port

    struct Step {
        const char *name;
        void (DeviceOrders::*run)();
    };

    int Random(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

    void StartMusic()
    {
        music_ = MakeMachineMusic(files_, [this](std::function<void()> call) {
            const std::lock_guard lock(mutex_);
            calls_.push_back(std::move(call));
        });
        music_.sequencer->Done = [](int) {};
        out_ = in_ = 0;
    }
    // What has been posted for the interface's thread.
    void RunCalls()
    {
        std::vector<std::function<void()>> calls;
        {
            const std::lock_guard lock(mutex_);
            calls.swap(calls_);
        }
        for (const auto &call : calls) {
            call();
        }
    }

    void CountAgain() { music_.midi->CountAgain(); }
    void OpenOut()
    {
        const int count = music_.midi->midiOutGetNumDevs();
        if (out_ == 0 && count > 0 && music_.midi->midiOutOpen(out_, Random(count)) != 0) {
            out_ = 0;
        }
    }
    void CloseOut()
    {
        music_.midi->midiOutClose(out_);
        out_ = 0;
    }
    void Press() { music_.midi->midiOutShortMsg(out_, ShortMessage(kNoteOn + (static_cast<std::uint32_t>(Random(12)) << 8U))); }
    void Release()
    {
        for (std::uint32_t note = 0; note < 12; ++note) {
            music_.midi->midiOutShortMsg(out_, ShortMessage(kNoteOff + (note << 8U)));
        }
    }
    void Recall()
    {
        for (const std::uint32_t message : {0x7900B0U, 0x4020B0U, 0x0004C0U}) {
            music_.midi->midiOutShortMsg(out_, ShortMessage(message));
        }
    }
    void OpenIn()
    {
        const int count = music_.midi->midiInGetNumDevs();
        const MidiInCallback callback{
            [](MidiHandle, std::uint32_t, void *heard, std::uint32_t, std::uint32_t) { ++*static_cast<std::atomic<int> *>(heard); },
            &heard_};
        if (in_ == 0 && count > 0 && music_.midi->midiInOpen(in_, Random(count), callback) != 0) {
            in_ = 0;
        }
        music_.midi->midiInStart(in_);
    }
    void CloseIn()
    {
        music_.midi->midiInClose(in_);
        in_ = 0;
    }
    void Thru() { music_.midi->midiConnect(in_, out_); }
    void EndThru() { music_.midi->midiDisconnect(in_, out_); }
    void Play()
    {
        music_.sequencer->SetCommand("open");
        music_.sequencer->SetCommand("play");
    }
    void Pause() { music_.sequencer->SetCommand("pause"); }
    void Stop() { music_.sequencer->SetCommand("stop"); }
    void CloseSong() { music_.sequencer->SetCommand("close"); }

    void GuestComes()
    {
        if (guest_ == nullptr) {
            guest_ = std::make_unique<Process>(std::vector<std::string>{Random(2) == 0 ? JACK_KEYS : JACK_INSTRUMENT, "guest"});
            guest_->WaitUntilReady();
        }
    }
    void GuestLeaves() { guest_.reset(); }
    void GuestIsKilled()
    {
        if (guest_ != nullptr) {
            guest_->End(SIGKILL);
            guest_.reset();
        }
    }
    // It answers late, as far as the server lets it.
    void GuestSleeps()
    {
        if (guest_ != nullptr) {
            guest_->Stop();
            std::this_thread::sleep_for(std::chrono::milliseconds(Random(20)));
            guest_->Signal(SIGCONT);
        }
    }
    void KeysPlay()
    {
        keys_->Write("90 40 64");
        keys_->Write("80 40 40");
    }
    void Wait() { std::this_thread::sleep_for(std::chrono::milliseconds(Random(8))); }
    // In the order in which the program lets go of them: songs go through the systems of the devices.
    void EndMusic()
    {
        music_.sequencer.reset();
        music_.midi.reset();
    }
    void Restart()
    {
        EndMusic();
        RunCalls();
        StartMusic();
        music_.sequencer->SetFileName(folder_.At("song.mid"));
    }

    void RunSteps(int orders)
    {
        static constexpr std::array kSteps{
            Step{"count", &DeviceOrders::CountAgain},
            Step{"open an output", &DeviceOrders::OpenOut},
            Step{"close it", &DeviceOrders::CloseOut},
            Step{"press a key", &DeviceOrders::Press},
            Step{"release", &DeviceOrders::Release},
            Step{"recall", &DeviceOrders::Recall},
            Step{"open an input", &DeviceOrders::OpenIn},
            Step{"close it", &DeviceOrders::CloseIn},
            Step{"Thru", &DeviceOrders::Thru},
            Step{"end Thru", &DeviceOrders::EndThru},
            Step{"play", &DeviceOrders::Play},
            Step{"pause", &DeviceOrders::Pause},
            Step{"stop", &DeviceOrders::Stop},
            Step{"close the song", &DeviceOrders::CloseSong},
            Step{"a guest", &DeviceOrders::GuestComes},
            Step{"it leaves", &DeviceOrders::GuestLeaves},
            Step{"it is killed", &DeviceOrders::GuestIsKilled},
            Step{"it sleeps", &DeviceOrders::GuestSleeps},
            Step{"keys", &DeviceOrders::KeysPlay},
            Step{"wait", &DeviceOrders::Wait},
        };
        constexpr int kRestartEvery = 50;
        for (int order = 0; order < orders; ++order) {
            const Step &step = order % kRestartEvery == kRestartEvery - 1
                                   ? kRestart
                                   : kSteps.at(static_cast<std::size_t>(Random(static_cast<int>(kSteps.size()))));
            dog_.Begin(step.name);
            (this->*step.run)();
            RunCalls();
        }
        dog_.Begin("the end");
    }

    // What the heap has given out. Not the memory of the process: a sanitizer keeps what was given back.
    static std::int64_t HeldKib()
    {
        const struct mallinfo2 heap = ::mallinfo2();
        return static_cast<std::int64_t>((heap.uordblks + heap.hblkhd) / 1024);
    }

    static constexpr Step kRestart{"a new start", &DeviceOrders::Restart};
    TempFolder folder_;
    JackServer server_;
    std::unique_ptr<Process> instrument_;
    std::unique_ptr<Process> keys_;
    std::unique_ptr<Process> guest_;
    MachineFiles files_;
    std::mutex mutex_;
    std::vector<std::function<void()>> calls_;
    MachineMusic music_;
    MidiHandle out_ = 0;
    MidiHandle in_ = 0;
    std::atomic<int> heard_ = 0;
    std::mt19937 random_{static_cast<unsigned>(FromEnvironment("VELLUTO_DEVICE_SEED", 80))};
    Watchdog dog_{std::chrono::seconds(60)}; // a client that is killed makes its server stand still for seconds
};

TEST_F(DeviceOrders, HangNothingLeaveNoNoteAndKeepNoMemory)
{
    const int orders = FromEnvironment("VELLUTO_DEVICE_ORDERS", 150);
    dog_.Begin("the server");
    server_.Start();
    instrument_ = std::make_unique<Process>(std::vector<std::string>{JACK_INSTRUMENT, "pa80"});
    keys_ = std::make_unique<Process>(std::vector<std::string>{JACK_KEYS, "keys"});
    ASSERT_TRUE(instrument_->WaitUntilReady());
    ASSERT_TRUE(keys_->WaitUntilReady());
    WriteBytes(folder_.At("song.mid"), File(0, 96, {{0, 0x90, 48, 100, 0x60, 48, 0, 0, 52, 100, 0xB8, 0x20, 52, 0, 0, 0xFF, 0x2F, 0}}));
    StartMusic();
    music_.sequencer->SetFileName(folder_.At("song.mid"));
    constexpr int kParts = 5; // in the first one all that stays is made
    std::vector<std::int64_t> held;
    for (int part = 0; part < kParts; ++part) {
        RunSteps(orders / kParts);
        guest_.reset();
        held.push_back(HeldKib());
        ASSERT_TRUE(instrument_->Runs() && keys_->Runs()) << "what the program was connected to has ended";
    }
    // Where the server stands still for a killed client, ends of connections are on their way, each with its 64 KiB of messages: after any
    // part there may be some, and after the last they are waited for.
    constexpr std::int64_t kMostGrown = 256;
    const std::int64_t least = std::ranges::min(held);
    Eventually([&] { return HeldKib() - least < kMostGrown; });
    const std::int64_t grown = HeldKib() - least;
    EndMusic();
    EXPECT_TRUE(Eventually([this] { return SoundingAt(*instrument_).empty(); })) << testing::PrintToString(SoundingAt(*instrument_));
    EXPECT_LT(grown, kMostGrown);
    std::printf("%d orders, %s KiB, %zu messages at the instrument, %d heard\n", orders, testing::PrintToString(held).c_str(),
                instrument_->Lines().size(), heard_.load());
}

} // namespace
} // namespace velluto::test
