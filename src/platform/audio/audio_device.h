// The one audio device of the program. Nothing is opened until the first
// sound or tune asks for it; from then on it stays open and its callback
// mixes three sources: the one wave effect, the one sound from a file, and
// the synthesiser of the tunes.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

namespace platform::audio {

// Frames a second of the device and of everything mixed into it.
inline constexpr int kDeviceRate = 44100;

class AudioDevice {
public:
    static AudioDevice& Instance();
    ~AudioDevice();
    AudioDevice(const AudioDevice&) = delete;
    AudioDevice& operator=(const AudioDevice&) = delete;

    // Opens the audio system and the device at the first call; false, and
    // quietly, when no device can be opened. A failed open is tried again at
    // the next call.
    bool Open();

    // Plays mono samples at the device's rate as the one effect, and returns
    // once they have been heard.
    void PlayEffectAndWait(std::vector<float> samples);

    // The one sound from a file: replaces what was playing.
    void PlayFileSound(std::vector<float> samples, bool loop);
    void WaitForFileSound();
    void StopFileSound();

    // Adds the synthesiser's stereo frames to the mix; an empty function
    // takes it out. Changed with the callback held off.
    using Renderer = std::function<void(float* stereo, int frames)>;
    void SetMusic(Renderer render);

    // Runs a change that the callback must not see half done.
    void Locked(const std::function<void()>& change);

    // When the callback handed the last effect's first audible sample to the
    // device: what the latency of an effect is measured against.
    std::chrono::steady_clock::time_point LastEffectOnset() const { return onset_.load(); }

private:
    AudioDevice() = default;

    struct Voice {
        std::vector<float> samples;
        std::size_t position = 0;
        bool loop = false;
        bool playing = false;
        bool sounded = false;  // a sample other than silence has gone out
    };

    static void Callback(void* self, std::uint8_t* stream, int bytes);
    void Mix(float* stereo, int frames);
    // Adds a voice's next frames; true when it ran out.
    static bool AddVoice(Voice& voice, float* stereo, int frames, bool& audible);
    void WaitUntilStopped(const Voice& voice);

    std::uint32_t device_ = 0;
    bool systemOpen_ = false;
    int bufferFrames_ = 0;
    Voice effect_;
    Voice file_;
    Renderer music_;
    std::mutex ended_;  // guards the voices' end for the waits
    std::condition_variable voiceEnded_;
    std::atomic<std::chrono::steady_clock::time_point> onset_{};
};

}  // namespace platform::audio
