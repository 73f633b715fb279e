// Sounds made up for the tests: wave images of a plain tone and small MIDI
// files, byte by byte as the formats lay them out.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace test_sounds {

inline void Put(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes, bool bigEndian) {
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<std::uint8_t>(value >> (8 * (bigEndian ? bytes - 1 - i : i))));
}

// A RIFF WAVE image of 16-bit mono samples.
inline std::vector<std::uint8_t> WaveImage(const std::vector<std::int16_t>& samples, int rate) {
    std::vector<std::uint8_t> out{'R', 'I', 'F', 'F'};
    Put(out, 36 + 2 * samples.size(), 4, false);
    for (char c : std::string("WAVEfmt ")) out.push_back(c);
    // The format's size, PCM, mono, the rate, the bytes a second, a frame's bytes, 16 bits.
    for (const auto& [value, bytes] : {std::pair{16, 4}, {1, 2}, {1, 2}, {rate, 4}, {rate * 2, 4}, {2, 2}, {16, 2}})
        Put(out, value, bytes, false);
    for (char c : std::string("data")) out.push_back(c);
    Put(out, 2 * samples.size(), 4, false);
    for (std::int16_t s : samples) Put(out, static_cast<std::uint16_t>(s), 2, false);
    return out;
}

// A square tone of a steady level, so that every sample of it is audible
// and its level tells it from another.
inline std::vector<std::uint8_t> ToneWave(double hz, int milliseconds, std::int16_t level = 12000,
                                          int rate = 22050) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(rate) * milliseconds / 1000);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double phase = std::sin(2 * M_PI * hz * static_cast<double>(i) / rate);
        samples[i] = static_cast<std::int16_t>(phase >= 0 ? level : -level);
    }
    return WaveImage(samples, rate);
}

// One track at 480 ticks a quarter: a tempo, one note held for the given
// ticks, and the track's end.
inline std::vector<std::uint8_t> OneNoteMidi(std::uint32_t microsecondsPerQuarter, std::uint32_t ticks) {
    std::vector<std::uint8_t> track{0x00, 0xff, 0x51, 0x03};
    Put(track, microsecondsPerQuarter, 3, true);
    for (std::uint8_t b : {0x00, 0xc0, 0x00, 0x00, 0x90, 60, 100}) track.push_back(b);
    std::vector<std::uint8_t> delta;  // the held ticks as a variable-length quantity
    for (std::uint32_t rest = ticks; ; rest >>= 7) {
        delta.insert(delta.begin(), static_cast<std::uint8_t>((rest & 0x7f) | (delta.empty() ? 0 : 0x80)));
        if (rest < 0x80) break;
    }
    track.insert(track.end(), delta.begin(), delta.end());
    for (std::uint8_t b : {0x80, 60, 0, 0x00, 0xff, 0x2f, 0x00}) track.push_back(b);
    std::vector<std::uint8_t> out{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 0, 0, 1, 0x01, 0xe0, 'M', 'T', 'r', 'k'};
    Put(out, track.size(), 4, true);
    out.insert(out.end(), track.begin(), track.end());
    return out;
}

}  // namespace test_sounds
