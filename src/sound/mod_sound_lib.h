// modSoundLib: sounds by text key. The forms name a key; the module decides
// what, if anything, is heard.
#pragma once

#include <functional>
#include <string>

namespace modSoundLib {

void PlayEffect(const std::string& key);
void PlayAnimalEffect(const std::string& key);

// Sees every key asked for, effect or animal, before anything is played.
using KeyObserver = std::function<void(const std::string& key, bool animal)>;
void SetKeyObserver(KeyObserver observer);  // an empty observer removes it

}  // namespace modSoundLib
