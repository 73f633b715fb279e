// The sequencer behind the media control interface: one tune at a time,
// played by FluidSynth inside the audio device's callback.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include <fluidsynth.h>

#include "platform/audio/audio_device.h"
#include "platform/audio/midi_timing.h"
#include "platform/audio/multimedia.h"

namespace platform {

namespace {

using audio::AudioDevice;
using audio::MidiTiming;

// Where Debian's General MIDI sound font lies.
constexpr char kInstalledSoundFont[] = "/usr/share/sounds/sf2/TimGM6mb.sf2";

std::optional<std::string>& SoundFontOverride() {
    static std::optional<std::string> path;
    return path;
}

void QuietFluid(int, const char*, void*) {}

bool SameName(const std::string& a, const std::string& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
           });
}

class Sequencer {
public:
    static Sequencer& Instance() {
        static Sequencer sequencer;
        return sequencer;
    }
    ~Sequencer() {
        Close();
        DropSynth();
    }

    std::uint32_t Run(const MciCommand& command, char* answer, std::uint32_t answerSize);
    void DropSynth();

private:
    Sequencer() : device_(AudioDevice::Instance()) {
        for (int level = FLUID_PANIC; level <= FLUID_DBG; ++level)
            fluid_set_log_function(level, QuietFluid, nullptr);
    }
    std::uint32_t Open(const MciCommand& command);
    bool LoadSynth();
    void Close();
    std::int64_t PositionMilliseconds() const;

    AudioDevice& device_;
    fluid_settings_t* settings_ = nullptr;
    fluid_synth_t* synth_ = nullptr;
    fluid_player_t* player_ = nullptr;  // the open tune, or none
    std::string alias_;
    std::optional<MidiTiming> timing_;
    std::int64_t length_ = 0;  // milliseconds
    std::vector<float> render_;
};

std::uint32_t Sequencer::Run(const MciCommand& command, char* answer, std::uint32_t answerSize) {
    if (command.verb == MciCommand::Open) return Open(command);
    if (player_ == nullptr || !SameName(command.device, alias_)) return MCIERR_INVALID_DEVICE_NAME;
    switch (command.verb) {
        case MciCommand::Play:
        case MciCommand::Resume:
            device_.Locked([&] { fluid_player_play(player_); });
            return 0;
        case MciCommand::Pause:
            device_.Locked([&] {
                fluid_player_stop(player_);
                fluid_synth_all_notes_off(synth_, -1);
            });
            return 0;
        case MciCommand::Close:
            Close();
            return 0;
        default: break;
    }
    const std::string value =
        std::to_string(command.item == MciCommand::Length ? length_ : PositionMilliseconds());
    if (answer == nullptr || answerSize <= value.size()) return MCIERR_PARAM_OVERFLOW;
    std::memcpy(answer, value.c_str(), value.size() + 1);
    return 0;
}

std::uint32_t Sequencer::Open(const MciCommand& command) {
    if (player_ != nullptr) return SameName(command.alias, alias_) ? MCIERR_DUPLICATE_ALIAS : MCIERR_SEQ_PORT_INUSE;
    std::ifstream file(command.device, std::ios::binary);
    if (!file) return MCIERR_FILE_NOT_FOUND;
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
    // FluidSynth's player takes any bytes without complaint: they are read
    // here first.
    auto timing = MidiTiming::FromBytes(bytes);
    if (!fluid_is_midifile(command.device.c_str()) || !timing) return MCIERR_INVALID_FILE;
    if (!LoadSynth() || !device_.Open()) return MCIERR_SEQ_NOMIDIPRESENT;

    fluid_player_t* player = new_fluid_player(synth_);
    if (player == nullptr || fluid_player_add_mem(player, bytes.data(), bytes.size()) != FLUID_OK) {
        if (player != nullptr) delete_fluid_player(player);
        return MCIERR_INVALID_FILE;
    }
    timing_ = std::move(timing);
    length_ = std::llround(timing_->LengthMilliseconds());
    alias_ = command.alias;
    device_.Locked([&] {
        player_ = player;
        fluid_synth_system_reset(synth_);
    });
    return 0;
}

// The synthesiser and its sound font are loaded once, at the first open,
// and kept; it renders into the device's mix while a tune is open.
bool Sequencer::LoadSynth() {
    if (synth_ != nullptr) return true;
    settings_ = new_fluid_settings();
    fluid_settings_setnum(settings_, "synth.sample-rate", audio::kDeviceRate);
    fluid_settings_setint(settings_, "synth.chorus.active", 0);
    fluid_settings_setint(settings_, "synth.polyphony", 64);
    fluid_settings_setnum(settings_, "synth.gain", 0.5);
    synth_ = new_fluid_synth(settings_);
    if (synth_ == nullptr || fluid_synth_sfload(synth_, SoundFontPath().c_str(), 1) == FLUID_FAILED) {
        DropSynth();
        return false;
    }
    device_.SetMusic([this](float* stereo, int frames) {
        if (player_ == nullptr) return;
        render_.resize(2 * static_cast<std::size_t>(frames));
        fluid_synth_write_float(synth_, frames, render_.data(), 0, 2, render_.data(), 1, 2);
        for (std::size_t i = 0; i < render_.size(); ++i) stereo[i] += render_[i];
    });
    return true;
}

void Sequencer::DropSynth() {
    Close();
    device_.SetMusic(nullptr);
    if (synth_ != nullptr) delete_fluid_synth(synth_);
    if (settings_ != nullptr) delete_fluid_settings(settings_);
    synth_ = nullptr;
    settings_ = nullptr;
}

void Sequencer::Close() {
    if (player_ == nullptr) return;
    fluid_player_t* player = player_;
    device_.Locked([&] {
        player_ = nullptr;
        fluid_player_stop(player);
        fluid_synth_all_sounds_off(synth_, -1);
    });
    delete_fluid_player(player);
    timing_.reset();
    length_ = 0;
}

// FluidSynth's tick runs on for a while after the last event: a tune that
// has ended stands at its length.
std::int64_t Sequencer::PositionMilliseconds() const {
    std::int64_t tick = 0;
    device_.Locked([&] { tick = fluid_player_get_current_tick(player_); });
    if (tick >= timing_->LastTick()) return length_;
    return std::min<std::int64_t>(static_cast<std::int64_t>(timing_->TickToMilliseconds(tick)), length_);
}

}  // namespace

std::uint32_t mciSendStringA(const char* command, char* returnBuffer, std::uint32_t bufferSize, void*) {
    MciCommand parsed;
    if (const std::uint32_t error = ParseMciCommand(command == nullptr ? "" : command, parsed)) return error;
    return Sequencer::Instance().Run(parsed, returnBuffer, bufferSize);
}

int mciGetErrorStringA(std::uint32_t code, char* buffer, std::uint32_t bufferSize) {
    const std::string text = MciErrorText(code);
    if (text.empty() || buffer == nullptr || bufferSize == 0) return 0;
    const std::size_t length = std::min<std::size_t>(text.size(), bufferSize - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return 1;
}

std::string SoundFontPath() { return SoundFontOverride().value_or(kInstalledSoundFont); }

void SetSoundFontPath(std::optional<std::string> path) {
    SoundFontOverride() = std::move(path);
    Sequencer::Instance().DropSynth();
}

}  // namespace platform
