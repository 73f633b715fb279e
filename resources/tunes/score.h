// A tune as we write it down: a meter, a tempo, a line of chord symbols and
// one line of notes per voice, in the small notation read by score.cpp.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tunes {

constexpr int kTicksPerQuarter = 480;
constexpr int kPercussionChannel = 9;

struct Meter {
    int beats = 4;
    int unit = 4;  // the beat is a 1/unit note
    long BarTicks() const { return static_cast<long>(beats) * kTicksPerQuarter * 4 / unit; }
};

struct TempoMark {
    int bar = 0;             // counted from 0
    double quarterBpm = 120;
};

struct Voice {
    Voice(std::string name, int channel, int program, int volume, int pan, int reverb, int velocity, double gate)
        : name(std::move(name)), channel(channel), program(program), volume(volume), pan(pan), reverb(reverb),
          velocity(velocity), gate(gate) {}

    std::string name;
    int channel = 0;         // 0-based; kPercussionChannel plays the drum kit
    int program = 0;         // General MIDI program, 0-based (the kit on the percussion channel)
    int volume = 100;        // controller 7
    int pan = 64;            // controller 10
    int reverb = 0;          // controller 91
    int velocity = 80;       // until a vNN in the notes says otherwise
    double gate = 0.9;       // the share of a note's written length that sounds
    int low = 0, high = 127; // the register in which chord symbols (1 3 5 7 x) are placed
    int chordSize = 3;       // notes in a full chord (x)
    std::string notes;
};

struct Tune {
    std::string fileName;
    std::string title;
    Meter meter;
    int keySharps = 0;  // key signature: sharps above 0, flats below
    std::vector<TempoMark> tempo;
    std::string chords;
    std::vector<Voice> voices;
};

struct Note {
    long start = 0;
    long length = 0;  // sounding, in ticks
    int pitch = 60;
    int velocity = 80;
};

struct Performance {
    std::vector<std::vector<Note>> voices;  // in the order of Tune::voices
    long endTick = 0;                       // the end of the last bar
};

// Reads every voice against the chord line. Throws std::runtime_error naming
// the voice, the bar and the token when the notes don't make sense.
Performance Perform(const Tune& tune);

}  // namespace tunes
