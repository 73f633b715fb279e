#include "platform/audio/audio_device.h"

#include <algorithm>
#include <thread>

#include <SDL.h>
#include <dlfcn.h>

namespace platform::audio {

namespace {

// 5.8 ms a buffer: a short effect starts within one of them.
constexpr int kBufferFrames = 256;

void QuietAlsa(const char*, int, const char*, int, const char*, ...) {}

// ALSA writes its complaints about missing cards to stderr unless it is
// given a handler of its own. SDL loads the library itself, so it is loaded
// first here and kept, and SDL's load finds it with the handler set.
void SilenceAlsa() {
    void* alsa = dlopen("libasound.so.2", RTLD_LAZY);
    if (alsa == nullptr) return;
    using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
    auto setHandler = reinterpret_cast<int (*)(Handler)>(dlsym(alsa, "snd_lib_error_set_handler"));
    if (setHandler != nullptr) setHandler(QuietAlsa);
}

}  // namespace

AudioDevice& AudioDevice::Instance() {
    static AudioDevice device;
    return device;
}

AudioDevice::~AudioDevice() {
    if (device_ != 0) SDL_CloseAudioDevice(device_);
    if (systemOpen_) SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool AudioDevice::Open() {
    if (device_ != 0) return true;
    if (!systemOpen_) {
        // SDL would otherwise take over SIGINT and SIGTERM from the program.
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        SilenceAlsa();
        if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
        systemOpen_ = true;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = kDeviceRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = kBufferFrames;
    wanted.callback = &AudioDevice::Callback;
    wanted.userdata = this;
    SDL_AudioSpec obtained{};
    // SDL converts to whatever the hardware wants: the mix keeps one rate.
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &obtained, SDL_AUDIO_ALLOW_SAMPLES_CHANGE);
    if (device_ == 0) return false;
    bufferFrames_ = obtained.samples;
    SDL_PauseAudioDevice(device_, 0);
    return true;
}

void AudioDevice::Locked(const std::function<void()>& change) {
    if (device_ == 0) {
        change();
        return;
    }
    SDL_LockAudioDevice(device_);
    change();
    SDL_UnlockAudioDevice(device_);
}

void AudioDevice::PlayEffectAndWait(std::vector<float> samples) {
    if (samples.empty() || !Open()) return;
    Locked([&] {
        effect_.samples = std::move(samples);
        effect_.position = 0;
        effect_.playing = true;
        effect_.sounded = false;
    });
    WaitUntilStopped(effect_);
    // The last samples still lie in the device's buffer.
    std::this_thread::sleep_for(std::chrono::microseconds(1000000LL * bufferFrames_ / kDeviceRate));
}

void AudioDevice::PlayFileSound(std::vector<float> samples, bool loop) {
    if (!Open()) return;
    Locked([&] {
        file_.samples = std::move(samples);
        file_.position = 0;
        file_.loop = loop;
        file_.playing = !file_.samples.empty();
    });
}

void AudioDevice::WaitForFileSound() { WaitUntilStopped(file_); }

void AudioDevice::StopFileSound() {
    Locked([&] { file_.playing = false; });
}

void AudioDevice::SetMusic(Renderer render) {
    Locked([&] { music_ = std::move(render); });
}

// Waits for the callback to play a voice out, and never much longer than its
// sound lasts, should the device stop calling back.
void AudioDevice::WaitUntilStopped(const Voice& voice) {
    if (device_ == 0 || voice.loop) return;
    const auto longest = std::chrono::milliseconds(1000 + 1000LL * voice.samples.size() / kDeviceRate);
    std::unique_lock<std::mutex> lock(ended_);
    voiceEnded_.wait_for(lock, longest, [&] { return !voice.playing; });
}

void AudioDevice::Callback(void* self, std::uint8_t* stream, int bytes) {
    static_cast<AudioDevice*>(self)->Mix(reinterpret_cast<float*>(stream),
                                         bytes / static_cast<int>(2 * sizeof(float)));
}

bool AudioDevice::AddVoice(Voice& voice, float* stereo, int frames, bool& audible) {
    if (!voice.playing) return false;
    for (int frame = 0; frame < frames; ++frame) {
        if (voice.position >= voice.samples.size()) {
            if (!voice.loop) return true;
            voice.position = 0;
        }
        const float sample = voice.samples[voice.position++];
        audible = audible || sample != 0.0f;
        stereo[2 * frame] += sample;
        stereo[2 * frame + 1] += sample;
    }
    return voice.position >= voice.samples.size() && !voice.loop;
}

void AudioDevice::Mix(float* stereo, int frames) {
    std::fill(stereo, stereo + 2 * frames, 0.0f);
    if (music_) music_(stereo, frames);
    bool audible = false;
    const bool effectEnded = AddVoice(effect_, stereo, frames, audible);
    if (audible && !effect_.sounded) {
        effect_.sounded = true;
        onset_.store(std::chrono::steady_clock::now());
    }
    bool fileAudible = false;
    const bool fileEnded = AddVoice(file_, stereo, frames, fileAudible);
    for (int i = 0; i < 2 * frames; ++i) stereo[i] = std::clamp(stereo[i], -1.0f, 1.0f);
    if (effectEnded || fileEnded) {
        std::lock_guard<std::mutex> lock(ended_);
        if (effectEnded) effect_.playing = false;
        if (fileEnded) file_.playing = false;
        voiceEnded_.notify_all();
    }
}

}  // namespace platform::audio
