// The keyboard once more, as plainly as its rules can be put: numbers and lists only, no windows. Written apart from the
// program to be compared with it.
#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace velluto::test {

struct KeyboardModel {
    // what a hand can set
    int channel = 0;
    int shift = 2;
    bool click = true;
    bool hold = false;
    std::array<int, 11> slider{100, 64, 64, 64, 0, 0, 64, 0, 0, 0, 0};
    // what is seen
    bool holdEnabled = true;
    bool chordEnabled = true;
    std::set<int> dots;
    std::string text;
    // what is known
    int base = 36;
    int current = 200;
    std::set<int> held;
    std::set<int> chord;
    bool armed = false;
    bool guard = false;
    std::uint32_t shortMsg = 0x00005DB0; // Chorus, the last of the opening
    std::vector<std::uint32_t> sent;

    void Send(std::uint32_t status, int first, int second)
    {
        shortMsg = status | static_cast<std::uint32_t>(first) << 8U | static_cast<std::uint32_t>(second) << 16U;
        sent.push_back(shortMsg);
    }
    void NoteOn(int note)
    {
        current = note;
        if (note >= base && note <= base + 60) {
            dots.insert(note - base);
        }
        Send(0x90U | static_cast<std::uint32_t>(channel), note, slider[2]);
        static const std::array<const char *, 12> names{"C/Do",   "C#/Do#", "D/Re",    "D#/Re#", "E/Mi",   "F/Fa",
                                                        "F#/Fa#", "G/Sol",  "G#/Sol#", "A/La",   "A#/La#", "B/Si"};
        text = std::string(names[static_cast<std::size_t>(note % 12)]) + " (" + std::to_string(note) + ")";
    }
    void NoteOff(int note)
    {
        dots.erase(note - base);
        current = 200;
        Send(0x80U | static_cast<std::uint32_t>(channel), note, slider[3]);
        text.clear();
    }
    void AllOffMessage() { Send(0xB0U | static_cast<std::uint32_t>(channel), 123, 0); }
    void ResetVisible()
    {
        for (int note = base; note <= base + 60; ++note) {
            held.erase(note);
        }
        dots.clear();
    }
    void AllNoteOff()
    {
        AllOffMessage();
        ResetVisible();
        current = 200;
        armed = false;
        chordEnabled = click && hold;
        text.clear();
    }

    void Down(int key)
    {
        const int note = base + key;
        if (armed) {
            AllOffMessage();
            const int lowest = *chord.begin();
            held.clear();
            ResetVisible();
            for (const int n : chord) {
                const int moved = n + note - lowest;
                if (moved >= 12 && moved <= 108) {
                    held.insert(moved);
                }
            }
            for (const int n : held) {
                NoteOn(n);
            }
        } else if (click && hold && held.contains(note)) {
            held.erase(note);
            NoteOff(note);
        } else if (click) {
            NoteOn(note);
            if (hold) {
                held.insert(note);
            }
        }
    }
    void Up(int key)
    {
        if (!armed && click && !hold) {
            NoteOff(base + key);
        }
    }
    void Move(int key, int y)
    {
        if (click) {
            return;
        }
        const int note = base + key;
        if (current == note) {
            const int inOctave = key % 12;
            const bool black = inOctave == 1 || inOctave == 3 || inOctave == 6 || inOctave == 8 || inOctave == 10;
            if (y >= (black ? 936 : 1368)) {
                dots.erase(key);
                current = 200;
                Send(0x80U | static_cast<std::uint32_t>(channel), note, 64);
            }
            return;
        }
        if (current < 200) {
            NoteOff(current);
        }
        NoteOn(note);
    }
    void Leave()
    {
        if (!hold && !click && current < 200) {
            NoteOff(current);
        }
    }

    void WriteClick(bool on)
    {
        if (click != on) {
            click = on;
            ClickKeyClicked();
        }
    }
    void WriteHold(bool on)
    {
        if (hold != on) {
            hold = on;
            HoldNoteClicked();
        }
    }
    void HoldNoteClicked()
    {
        if (armed) {
            guard = false;
            AllNoteOff();
        } else if (guard) {
            guard = false;
        } else if (!click) {
            guard = true;
            WriteClick(false);
            ResetVisible();
            AllOffMessage();
            if (!hold) {
                guard = true;
                WriteHold(true);
            } else {
                guard = false;
            }
        } else {
            chordEnabled = hold;
            AllNoteOff();
        }
    }
    void ClickKeyClicked()
    {
        if (armed) {
            guard = true;
            WriteHold(false);
            AllNoteOff();
            if (click) {
                guard = true;
                WriteClick(false);
            }
        } else if (guard) {
            guard = false;
        } else if (!hold) {
            holdEnabled = click;
        } else {
            guard = true;
            WriteHold(false);
            AllNoteOff();
            if (click) {
                guard = true;
                WriteClick(false);
            } else {
                holdEnabled = false;
                chordEnabled = false;
            }
        }
    }
    void HoldChord()
    {
        if (!held.empty()) {
            armed = true;
            chordEnabled = false;
            chord = held;
        }
    }
    void Shift(int value)
    {
        if (value == shift) {
            return;
        }
        shift = value;
        base = value * 12 + 12;
        if (!held.empty()) {
            dots.clear();
            for (const int note : held) {
                if (note >= base && note <= base + 60) {
                    dots.insert(note - base);
                }
            }
        }
    }
    void Slide(int i, int value)
    {
        if (slider[static_cast<std::size_t>(i)] == value) {
            return;
        }
        slider[static_cast<std::size_t>(i)] = value;
        static const std::array<int, 11> controllers{7, 10, -1, -1, 73, 72, 0, 1, 2, 91, 93};
        const int controller = controllers[static_cast<std::size_t>(i)];
        if (i == 6) {
            shortMsg = 0xE0U | 127U << 8U | static_cast<std::uint32_t>(value) << 16U;
        } else if (controller >= 0) {
            shortMsg = 0xB0U | static_cast<std::uint32_t>(controller) << 8U | static_cast<std::uint32_t>(value) << 16U;
        }
        shortMsg |= static_cast<std::uint32_t>(channel);
        sent.push_back(shortMsg);
    }
};

// What sounds at the other end of the cable.
struct Recorder {
    std::array<std::set<int>, 16> sounding;

    void Hear(std::uint32_t message)
    {
        const auto channel = static_cast<std::size_t>(message & 15U);
        const int first = static_cast<int>(message >> 8U & 127U);
        const int second = static_cast<int>(message >> 16U & 127U);
        switch (message & 0xF0U) {
        case 0x90:
            if (second > 0) {
                sounding[channel].insert(first);
                break;
            }
            [[fallthrough]];
        case 0x80:
            sounding[channel].erase(first);
            break;
        case 0xB0:
            if (first == 123) {
                sounding[channel].clear();
            }
            break;
        default:
            break;
        }
    }
};

} // namespace velluto::test
