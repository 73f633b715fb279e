// The timing of a Standard MIDI File: its tempo map, and where its last event
// falls. The sequencer reports lengths and positions in milliseconds from it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform::audio {

class MidiTiming {
public:
    // Reads a file's tracks; nothing when it isn't a MIDI file of metrical
    // time (format 0 or 1, ticks per quarter note) that reads to its end.
    static std::optional<MidiTiming> FromBytes(const std::vector<std::uint8_t>& bytes);

    std::int64_t LastTick() const { return lastTick_; }
    // The time of a tick in milliseconds, with every tempo change before it.
    double TickToMilliseconds(std::int64_t tick) const;
    double LengthMilliseconds() const { return TickToMilliseconds(lastTick_); }

private:
    struct TempoChange {
        std::int64_t tick;
        std::uint32_t microsecondsPerQuarter;
    };
    int division_ = 480;
    std::int64_t lastTick_ = 0;
    std::vector<TempoChange> tempi_;  // in order of tick, the first at 0
};

}  // namespace platform::audio
