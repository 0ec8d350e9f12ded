// A song and the bytes of its MIDI file: format 1, one track for tempo, metre and marks, and one for each part.
#pragma once

#include "tools/KorfFile.h"
#include "tools/songs/Score.h"

#include <string>
#include <vector>

namespace songs {

using makers::Bytes;

struct Part {
    std::string name;
    int channel = 1;  // 1 to 16
    int program = 0;  // of General MIDI, from 0
    int volume = 100; // controllers 7, 10 and 91
    int pan = 64;
    int reverb = 40;
    Line line;
};

struct Tempo {
    int at = 0; // in sixteenths
    int beatsPerMinute = 120;
};

struct Mark {
    int at = 0;
    std::string text;
};

struct Song {
    std::string file;
    std::string title;
    int beats = 4; // quarter notes in a bar
    std::vector<Tempo> tempos;
    std::vector<Mark> marks;
    int swing = 0; // how late every second sixteenth is, in ticks of 480 to a quarter
    std::vector<Part> parts;
};

[[nodiscard]] Bytes MidiFile(const Song &song);

// The songs themselves, each in a file of its own.
[[nodiscard]] Song NightFerry();
[[nodiscard]] Song LanternWaltz();
[[nodiscard]] Song ThirdRail();

} // namespace songs
