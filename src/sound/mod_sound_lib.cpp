#include "sound/mod_sound_lib.h"

#include <utility>

#include "engine/mod_global.h"
#include "platform/audio/multimedia.h"
#include "platform/display/resource_data.h"
#include "platform/runtime/runtime.h"

namespace modSoundLib {

namespace {

KeyObserver& Observer() {
    static KeyObserver observer;
    return observer;
}

void Notify(const std::string& key, bool animal) {
    if (Observer()) Observer()(key, animal);
}

// The wave resource of an effect key; 0 for a key the table doesn't hold.
// Two keys share the refusal's wave on purpose.
int EffectWave(const std::string& key) {
    if (key == "WRONGCRD") return 101;
    if (key == "MUSTPLAY") return 101;
    if (key == "PLAYCARD") return 102;
    if (key == "PAYPOT") return 103;
    if (key == "OTH_PLAYERS") return 104;
    if (key == "USERWON") return 106;
    if (key == "OTHWON") return 107;
    if (key == "SOUNDON") return 108;
    if (key == "HIGHSCORE") return 111;  // no caller raises it
    if (key == "MUSICON") return 114;
    if (key == "WANTMORE") return 115;   // no caller raises it
    if (key == "BUTTONCLICK") return 116;
    if (key == "EXITPROG") return 117;
    if (key == "CLOSEFORM") return 118;  // no caller raises it
    return 0;
}

// The announcement of the animals and the first opponent's voice are one
// wave on purpose.
int AnimalWave(const std::string& key) {
    if (key == "ANIMALSON") return 110;
    if (key == "OVERPLAYER1") return 110;
    if (key == "OVERPOT") return 105;
    if (key == "OVERPLAYER2") return 112;
    if (key == "OVERPLAYER3") return 113;
    return 0;
}

constexpr std::int32_t kWaitForTheEnd = 4;  // SND_MEMORY, and not SND_ASYNC

void PlayWaveResource(int id) {
    if (id == 0) return;
    PlayWaveBytes(platform::LoadResData(id, "WAVE"), kWaitForTheEnd);
}

}  // namespace

void PlayEffect(const std::string& key) {
    Notify(key, false);
    if (!modGlobal::gbSoundOn) return;
    PlayWaveResource(EffectWave(key));
}

void PlayAnimalEffect(const std::string& key) {
    Notify(key, true);
    if (!modGlobal::gbAnimalsOn) return;
    PlayWaveResource(AnimalWave(key));
}

bool PlayWaveBytes(const std::vector<std::uint8_t>& wave, std::int32_t flags) {
    if (wave.empty()) return false;
    return platform::sndPlaySoundA(wave.data(), static_cast<std::uint32_t>(flags)) != 0;
}

void PlaySoundFile(const std::string& key, bool loop, bool wait) {
    if (!modGlobal::gbSoundOn) return;
    StopSounds();
    const std::string name = key == "PENGUINSOUNDS" ? platform::AppPath() + "/PCluck.wav" : "";
    std::uint32_t flags = platform::SND_ASYNC;
    if (wait)
        flags = platform::SND_SYNC;
    else if (loop)
        flags = platform::SND_ASYNC | platform::SND_LOOP;
    platform::PlaySoundA(name.c_str(), nullptr, flags);
}

void StopSounds() { platform::PlaySoundA(nullptr, nullptr, platform::SND_PURGE); }

void SetKeyObserver(KeyObserver observer) { Observer() = std::move(observer); }

}  // namespace modSoundLib
