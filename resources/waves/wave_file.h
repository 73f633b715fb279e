// Writing a finished sound as a RIFF WAVE file: PCM, 16 bits, mono, kRate.
#pragma once

#include <string>

#include "synth.h"

namespace waves {

// Samples are clipped to [-1, 1]. False if the file could not be written.
bool writeWave(const std::string& path, const Samples& samples);

}  // namespace waves
