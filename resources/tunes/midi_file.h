// A performed tune as a Standard MIDI File (format 1): a conductor track with
// the meter, key and tempo, then one track per voice.
#pragma once

#include <cstdint>
#include <vector>

#include "score.h"

namespace tunes {

std::vector<std::uint8_t> MidiFile(const Tune& tune, const Performance& performance);

// How long the tune plays, from the start to its End-of-Track, in
// milliseconds, by the same tempo values the file carries.
long LengthMs(const Tune& tune, const Performance& performance);

// The tick at which the last note is released.
long LastRelease(const Performance& performance);

}  // namespace tunes
