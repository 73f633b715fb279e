// The platform's calls for sounds and tunes, under their own names: wave
// effects held in memory, a sound from a file, and the media control
// interface's text commands for the sequencer that plays MIDI tunes. Without
// an audio device every sound is silent at once and the sequencer's open
// fails with an error number.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/audio/mci_command.h"

namespace platform {

inline constexpr std::uint32_t SND_SYNC = 0;
inline constexpr std::uint32_t SND_ASYNC = 1;
inline constexpr std::uint32_t SND_MEMORY = 4;
inline constexpr std::uint32_t SND_LOOP = 8;
inline constexpr std::uint32_t SND_PURGE = 64;

// Plays the wave image that data points at (SND_MEMORY) and returns once it
// has been heard: meanwhile the program does nothing else. 0 when nothing
// could be played.
int sndPlaySoundA(const void* data, std::uint32_t flags);

// SND_PURGE stops the sound from a file. Otherwise plays the named wave
// file: SND_ASYNC returns at once, with SND_LOOP it plays until stopped, and
// without SND_ASYNC the call waits for its end. A missing file is silent.
int PlaySoundA(const char* name, const void* module, std::uint32_t flags);

// Runs one command; 0, or the error number. The answer of a status command
// goes into the buffer, ended by a 0 character. The callback is unused.
std::uint32_t mciSendStringA(const char* command, char* returnBuffer, std::uint32_t bufferSize,
                             void* callback);

// Writes the text of an error number into the buffer; 1 when the number is
// one of the sequencer's, else 0 and the buffer stays as it was.
int mciGetErrorStringA(std::uint32_t code, char* buffer, std::uint32_t bufferSize);

// The General MIDI sound font the sequencer loads at its first open. Tests
// point it elsewhere; nullopt restores the installed one.
std::string SoundFontPath();
void SetSoundFontPath(std::optional<std::string> path);

}  // namespace platform
