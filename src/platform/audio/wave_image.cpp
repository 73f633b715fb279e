#include "platform/audio/wave_image.h"

#include <algorithm>
#include <cstring>

#include <SDL.h>

namespace platform::audio {

namespace {

std::uint32_t Read32(const std::uint8_t* p) {
    return p[0] | (p[1] << 8) | (p[2] << 16) | (static_cast<std::uint32_t>(p[3]) << 24);
}

std::uint16_t Read16(const std::uint8_t* p) { return static_cast<std::uint16_t>(p[0] | (p[1] << 8)); }

struct PcmFormat {
    int channels = 0;
    int rate = 0;
    int bits = 0;
};

// One sample of one channel as a value in [-1, 1]: 8-bit samples are
// unsigned, 16-bit ones signed.
float SampleAt(const std::uint8_t* p, int bits) {
    if (bits == 8) return (static_cast<int>(*p) - 128) / 128.0f;
    return static_cast<std::int16_t>(Read16(p)) / 32768.0f;
}

}  // namespace

std::size_t WaveImageSize(const std::uint8_t* image) {
    if (image == nullptr || std::memcmp(image, "RIFF", 4) != 0 || std::memcmp(image + 8, "WAVE", 4) != 0)
        return 0;
    return static_cast<std::size_t>(Read32(image + 4)) + 8;
}

std::optional<std::vector<float>> DecodeWave(const std::uint8_t* image, std::size_t size,
                                             int deviceRate) {
    if (image == nullptr || size < 12 || std::memcmp(image, "RIFF", 4) != 0 ||
        std::memcmp(image + 8, "WAVE", 4) != 0)
        return std::nullopt;
    PcmFormat format;
    const std::uint8_t* data = nullptr;
    std::size_t dataSize = 0;
    // Chunks follow the header, each padded to an even length.
    for (std::size_t at = 12; at + 8 <= size;) {
        const std::uint8_t* chunk = image + at;
        const std::size_t length = std::min<std::size_t>(Read32(chunk + 4), size - at - 8);
        if (std::memcmp(chunk, "fmt ", 4) == 0 && length >= 16) {
            if (Read16(chunk + 8) != 1) return std::nullopt;  // PCM only
            format.channels = Read16(chunk + 10);
            format.rate = static_cast<int>(Read32(chunk + 12));
            format.bits = Read16(chunk + 22);
        } else if (std::memcmp(chunk, "data", 4) == 0) {
            data = chunk + 8;
            dataSize = length;
        }
        at += 8 + length + (length & 1);
    }
    if (data == nullptr || (format.channels != 1 && format.channels != 2) ||
        (format.bits != 8 && format.bits != 16) || format.rate < 1000 || format.rate > 192000 ||
        deviceRate <= 0)
        return std::nullopt;

    const int frameBytes = format.channels * format.bits / 8;
    const std::size_t sourceFrames = dataSize / frameBytes;
    std::vector<float> mono(sourceFrames);
    for (std::size_t frame = 0; frame < sourceFrames; ++frame) {
        const std::uint8_t* p = data + frame * frameBytes;
        float sum = 0;
        for (int channel = 0; channel < format.channels; ++channel)
            sum += SampleAt(p + channel * format.bits / 8, format.bits);
        mono[frame] = sum / format.channels;
    }
    if (format.rate == deviceRate || mono.empty()) return mono;

    // SDL's band-limited resampler: a plain interpolation would mirror the
    // waves' upper half-octave above their own top frequency as a hiss. Its
    // flush keeps back the filter's last stretch, so silence is fed after
    // the samples and the result cut to their length.
    SDL_AudioStream* stream = SDL_NewAudioStream(AUDIO_F32SYS, 1, format.rate, AUDIO_F32SYS, 1, deviceRate);
    if (stream == nullptr) return std::nullopt;
    const std::vector<float> tail(static_cast<std::size_t>(format.rate) / 10, 0.0f);
    const auto frames = static_cast<std::size_t>(static_cast<double>(sourceFrames) * deviceRate / format.rate);
    std::vector<float> resampled(frames + static_cast<std::size_t>(deviceRate) / 5);
    int got = 0;
    if (SDL_AudioStreamPut(stream, mono.data(), static_cast<int>(mono.size() * sizeof(float))) == 0 &&
        SDL_AudioStreamPut(stream, tail.data(), static_cast<int>(tail.size() * sizeof(float))) == 0 &&
        SDL_AudioStreamFlush(stream) == 0)
        got = SDL_AudioStreamGet(stream, resampled.data(), static_cast<int>(resampled.size() * sizeof(float)));
    resampled.resize(std::min(frames, got > 0 ? static_cast<std::size_t>(got) / sizeof(float) : 0));
    SDL_FreeAudioStream(stream);
    return resampled;
}

}  // namespace platform::audio
