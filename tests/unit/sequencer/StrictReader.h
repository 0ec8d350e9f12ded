// A second reader of MIDI files, as plain as can be and for faultless files alone, and a maker of such files. The tests hold
// the program's reader against it.
#pragma once

#include "unit/sequencer/MidiBytes.h"

#include <algorithm>
#include <random>
#include <stdexcept>

namespace velluto::test {

struct StrictEvent {
    std::int64_t tick = 0;
    std::int64_t nanoseconds = 0;
    Bytes message;

    bool operator==(const StrictEvent &) const = default;
};

struct StrictSong {
    std::vector<StrictEvent> events; // in the order of time, those of one tick track by track
    std::int64_t endTick = 0;
    std::int64_t nanoseconds = 0;
};

// Of formats 0 and 1, counted in beats. Throws for whatever is out of the ordinary.
class StrictReader {
public:
    explicit StrictReader(const Bytes &file) : file_(file) {}

    StrictSong Read()
    {
        Want(Name() == "MThd" && Number(4) == 6);
        Want(Number(2) <= 1);
        const std::uint64_t tracks = Number(2);
        division_ = static_cast<std::int64_t>(Number(2));
        for (std::uint64_t i = 0; i < tracks; ++i) {
            ReadTrack();
        }
        Want(at_ == file_.size());
        std::ranges::stable_sort(song_.events, {}, &StrictEvent::tick);
        std::ranges::stable_sort(tempos_, {}, &std::pair<std::int64_t, std::int64_t>::first);
        for (StrictEvent &event : song_.events) {
            event.nanoseconds = TimeOf(event.tick);
        }
        song_.nanoseconds = TimeOf(song_.endTick);
        return song_;
    }

private:
    static void Want(bool condition)
    {
        if (!condition) {
            throw std::runtime_error("not a faultless file");
        }
    }
    std::uint8_t Byte() { return file_.at(at_++); }
    std::uint64_t Number(int bytes) { return bytes == 0 ? 0 : Number(bytes - 1) * 256 + Byte(); }
    std::string Name()
    {
        std::string name;
        for (int i = 0; i < 4; ++i) {
            name += static_cast<char>(Byte());
        }
        return name;
    }
    std::uint64_t Variable()
    {
        std::uint64_t value = 0;
        std::uint8_t byte = 0x80;
        while (byte >= 0x80) {
            byte = Byte();
            value = value * 128 + byte % 128;
        }
        return value;
    }
    Bytes Data()
    {
        Bytes data(Variable());
        std::ranges::generate(data, [this]() { return Byte(); });
        return data;
    }

    void ReadTrack()
    {
        Want(Name() == "MTrk");
        const std::uint64_t length = Number(4);
        const std::size_t end = at_ + length;
        std::int64_t tick = 0;
        for (std::uint8_t status = 0; at_ < end;) {
            tick += static_cast<std::int64_t>(Variable());
            if (file_.at(at_) >= 0x80) {
                status = file_[at_] < 0xF0 ? file_[at_] : status;
                if (ReadOther(tick)) {
                    continue;
                }
                ++at_;
            }
            Want(status != 0);
            Bytes message = {status, Byte()};
            if (status < 0xC0 || status >= 0xE0) {
                message.push_back(Byte());
            }
            song_.events.push_back({tick, 0, message});
        }
        Want(at_ == end);
        song_.endTick = std::max(song_.endTick, tick);
    }

    // True where it was no channel message.
    bool ReadOther(std::int64_t tick)
    {
        const std::uint8_t status = file_.at(at_);
        if (status == 0xF0) {
            ++at_;
            Bytes message = {0xF0};
            Append(message, Data());
            song_.events.push_back({tick, 0, message});
        } else if (status == 0xFF) {
            ++at_;
            const std::uint8_t type = Byte();
            const Bytes data = Data();
            if (type == 0x51) {
                tempos_.emplace_back(tick, data.at(0) * 65536 + data.at(1) * 256 + data.at(2));
            }
        }
        return status >= 0xF0;
    }

    // Each stretch of one tempo is rounded up to whole nanoseconds.
    [[nodiscard]] std::int64_t TimeOf(std::int64_t tick) const
    {
        std::int64_t time = 0;
        std::int64_t from = 0;
        std::int64_t tempo = 500'000;
        for (const auto &[at, next] : tempos_) {
            if (at > tick || at >= song_.endTick) {
                break;
            }
            time += ((at - from) * tempo * 1000 + division_ - 1) / division_;
            from = at;
            tempo = next;
        }
        return time + ((tick - from) * tempo * 1000 + division_ - 1) / division_;
    }

    const Bytes &file_;
    std::size_t at_ = 0;
    std::int64_t division_ = 1;
    StrictSong song_;
    std::vector<std::pair<std::int64_t, std::int64_t>> tempos_;
};

// Makes files of all that music has: times of one to three bytes, statuses told and left out, all kinds of messages, exclusive
// ones, texts and tempos.
class RandomSong {
public:
    explicit RandomSong(unsigned seed) : random_(seed) {}

    Bytes File()
    {
        const std::size_t tracks = Below(8) + 1;
        std::vector<Bytes> all;
        for (std::size_t i = 0; i < tracks; ++i) {
            all.push_back(Track());
        }
        constexpr std::array<std::size_t, 5> kDivisions = {96, 120, 384, 480, 25};
        return test::File(tracks == 1 ? Below(2) : 1, kDivisions.at(Below(kDivisions.size())), all);
    }
    std::size_t Below(std::size_t bound) { return random_() % bound; }

private:
    std::uint8_t Data() { return static_cast<std::uint8_t>(Below(128)); }

    Bytes Time()
    {
        constexpr std::array<std::size_t, 8> kTimes = {0, 0, 0, 24, 120, 127, 480, 17000};
        const std::size_t time = kTimes.at(Below(kTimes.size()));
        Bytes bytes = {static_cast<std::uint8_t>(time & 0x7F)};
        for (std::size_t rest = time >> 7; rest > 0; rest >>= 7) {
            bytes.insert(bytes.begin(), static_cast<std::uint8_t>(0x80 | (rest & 0x7F)));
        }
        return bytes;
    }

    Bytes Event(std::uint8_t &running)
    {
        switch (Below(24)) {
        case 0:
            return {0xF0, 4, 0x42, Data(), Data(), 0xF7};
        case 1:
            return {0xFF, 0x01, 3, 'M', 'T', 'r'};
        case 2:
            return {0xFF, 0x51, 3, static_cast<std::uint8_t>(Below(16) + 1), Data(), Data()};
        default:
            break;
        }
        const std::uint8_t before = running;
        if (before == 0 || Below(4) == 0) {
            running = static_cast<std::uint8_t>(0x80 + Below(0x70));
        }
        Bytes event = {running};
        if (running == before && Below(4) != 0) {
            event.clear();
        }
        event.push_back(Data());
        if (running < 0xC0 || running >= 0xE0) {
            event.push_back(Data());
        }
        return event;
    }

    Bytes Track()
    {
        Bytes track;
        std::uint8_t running = 0;
        for (std::size_t left = Below(200); left > 0; --left) {
            Append(track, Time());
            Append(track, Event(running));
        }
        Append(track, Time());
        Append(track, {0xFF, 0x2F, 0});
        return track;
    }

    std::mt19937 random_;
};

} // namespace velluto::test
