// A wave file image, as a sound held in memory or read from a file: RIFF
// WAVE with PCM samples of 8 or 16 bits, mono or stereo, at any rate.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace platform::audio {

// The size the image gives itself in its RIFF header, header included; 0
// when the bytes don't begin like a wave image. The platform's call takes no
// length, only the address of the first byte, and trusts this count.
std::size_t WaveImageSize(const std::uint8_t* image);

// The samples of an image, mixed down to one channel and resampled to the
// rate of the device, in [-1, 1]. Nothing when the image isn't a PCM wave
// the device can play.
std::optional<std::vector<float>> DecodeWave(const std::uint8_t* image, std::size_t size,
                                             int deviceRate);

}  // namespace platform::audio
