#include "sound/mod_sound_lib.h"

#include <utility>

namespace modSoundLib {

namespace {

KeyObserver& Observer() {
    static KeyObserver observer;
    return observer;
}

void Notify(const std::string& key, bool animal) {
    if (Observer()) Observer()(key, animal);
}

}  // namespace

// No wave is played yet: the keys only reach the observer until the audio
// device and the wave resources are in place.
void PlayEffect(const std::string& key) { Notify(key, false); }

void PlayAnimalEffect(const std::string& key) { Notify(key, true); }

void SetKeyObserver(KeyObserver observer) { Observer() = std::move(observer); }

}  // namespace modSoundLib
