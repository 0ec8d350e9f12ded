// The machine's sequencer: plays one MIDI file at a time in real time, on a thread of its own that waits for the moment at
// which the next message is due. Made once by main and handed to the program as its Sequencer.
#pragma once

#include "platform/FileStore.h"
#include "platform/Sequencer.h"
#include "platform/music/PlayerOutputs.h"
#include "platform/sequencer/SongPlayer.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace velluto {

// One interface thread calls everything. What the playing thread has to tell, the end of a play, goes back through Post.
// The thread is begun with the first file that opens; while nothing plays it sleeps, and wakes once to let the outputs rest.
class MachineSequencer : public Sequencer, private SongOutput {
public:
    // Runs a call later on the interface thread; any thread may ask for it.
    using Post = std::function<void(std::function<void()>)>;

    // After a play, until the outputs rest: its last notes fade in that time, and a play that follows finds them awake.
    static constexpr std::chrono::milliseconds kLinger{3000};

    MachineSequencer(FileStore &files, std::unique_ptr<PlayerOutputs> outputs, Post post, std::chrono::milliseconds linger = kLinger);
    ~MachineSequencer() override; // no note rings on, and no Done comes any more
    MachineSequencer(const MachineSequencer &) = delete;
    MachineSequencer &operator=(const MachineSequencer &) = delete;

    void SetFileName(std::string_view path) override { fileName_ = path; }
    [[nodiscard]] std::string FileName() const override { return fileName_; }
    // The outputs were told of another device: songs are played there from now on. A song that plays moves by a call that is posted, so
    // that a change from one device to another is one move.
    void FollowOutputs();
    // "open" closes what was open. "pause", "stop" and "close" of nothing are no errors.
    void SetCommand(std::string_view word) override;
    [[nodiscard]] std::string Command() const override { return command_; }
    [[nodiscard]] int Mode() const override;
    [[nodiscard]] std::int32_t Position() const override;
    [[nodiscard]] std::int32_t Length() const override;
    [[nodiscard]] std::int32_t From() const override { return from_; }
    void SetFrom(std::int32_t position) override;
    [[nodiscard]] int Error() const override { return error_; }
    [[nodiscard]] Refusal Reason() const override { return refusal_; }

private:
    class Turn;

    void Open();
    void Play();
    void Halt(void (SongPlayer::*halt)(Moment), bool tells);
    void Fail(int error, const Refusal &refusal);
    void PostDone(int notifyCode);
    void Move();
    void WakeOutputs();
    void Send(std::span<const std::uint8_t> message, Moment due) override;

    void Run();
    void WaitForWork(std::unique_lock<std::mutex> &lock, const SongPlayer::Step &step);

    FileStore &files_;
    std::string fileName_;
    std::string command_;
    std::int32_t from_ = 0;
    bool fromIsFresh_ = false; // written since the last play
    int error_ = 0;
    Refusal refusal_;
    Post post_;
    std::chrono::milliseconds linger_;
    bool moveIsPosted_ = false;
    std::shared_ptr<int> alive_ = std::make_shared<int>(); // what was posted looks whether this has gone

    mutable std::mutex mutex_;             // guards what follows
    mutable std::atomic<int> waiting_ = 0; // calls of the interface thread that wait for it: they go first
    std::condition_variable rouse_;
    std::unique_ptr<PlayerOutputs> outputs_;
    SongPlayer player_{*this};
    bool mayRest_ = false; // the outputs are awake
    bool ending_ = false;
    std::thread thread_;
};

} // namespace velluto
