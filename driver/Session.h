// One run of the driver: the machine's stand-ins, the program under them, and what the stage was set with. The commands
// act on it.
#pragma once

#include "driver/Timers.h"
#include "platform/machine/MachineFiles.h"
#include "program/Velluto.h"
#include "standin/FaultyFiles.h"
#include "standin/StandinClock.h"
#include "standin/StandinFace.h"
#include "standin/StandinMidi.h"
#include "standin/StandinPrinter.h"
#include "standin/StandinSequencer.h"
#include "standin/StandinTicks.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velluto::driver {

class Session {
public:
    MachineFiles disk;
    FaultyFiles files{disk};
    StandinMidi midi;
    StandinClock clock;
    StandinPrinter printer;
    StandinSequencer sequencer;
    MachineFolders folderDisk;
    FaultyFolders folders{folderDisk, files};
    StandinTicks ticks;
    StandinFace face;
    Timers timers;

    // The frame is up.
    [[nodiscard]] bool Running() const { return program_ != nullptr && face.frame != nullptr; }
    // The running program; BadCommand where none runs.
    [[nodiscard]] Velluto &Program();
    // The program that runs or ran last; BadCommand before the first start.
    [[nodiscard]] Velluto &LastProgram();
    // A fresh program on the same machine. What the one before left is lost.
    Velluto &NewProgram();
    void DropProgram() { program_.reset(); }
    // The enabled timers of the frame and the open children.
    [[nodiscard]] std::vector<Timer *> RunningTimers() const;
    // The stand-ins write down what they are asked for; what no command tells is of no use here, and a long run is long.
    void ForgetCalls();
    // A path as the program would write it: relative ones lie in the program's folder.
    [[nodiscard]] std::string FullPath(const std::string &path);
    // Between two events of the program: delivers what has come up meanwhile, forgets closed windows, notes started timers.
    void Settle();
    // Lets time pass: the sequencer moves, ticks count, timers fire, all in their order.
    void PassTime(Timers::Milliseconds time);

private:
    // What the program's own reader makes of a file that the sequencer was told nothing about.
    StandinSong RealSong(const std::string &path);

    std::unique_ptr<Velluto> program_;
};

} // namespace velluto::driver
