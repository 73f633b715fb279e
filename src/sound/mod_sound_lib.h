// modSoundLib: sounds by text key. The forms name a key; the module decides
// whether the options let it sound, and which wave it is. Effects play to
// their end before the call returns: the table waits while one plays.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace modSoundLib {

// An effect, heard only while gbSoundOn is set; an unknown key is silent.
void PlayEffect(const std::string& key);
// An animal's voice, heard only while gbAnimalsOn is set, whatever
// gbSoundOn says.
void PlayAnimalEffect(const std::string& key);

// Hands a whole wave image to the platform, which plays it to its end when
// the flags are 4. True when the platform said it played.
bool PlayWaveBytes(const std::vector<std::uint8_t>& wave, std::int32_t flags);

// The one sound from a file: "PENGUINSOUNDS" is PCluck.wav beside the
// program, any other key names no file. Stops the file sound before.
void PlaySoundFile(const std::string& key, bool loop, bool wait);
void StopSounds();

// Sees every key asked for, effect or animal, before the options are asked.
using KeyObserver = std::function<void(const std::string& key, bool animal)>;
void SetKeyObserver(KeyObserver observer);  // an empty observer removes it

}  // namespace modSoundLib
