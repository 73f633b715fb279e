// The music's procedures of modGlobal: the one music object, the failure
// routine that tells the player, and the watch that loops a tune.
#pragma once

#include <memory>
#include <string>

#include "sound/c_midi_file.h"

namespace modGlobal {

// Created by the main form's load, released by its unload.
extern std::unique_ptr<CMidiFile> goMidi;

// After the music object turned itself off: stops the form's tmrMidi, offers
// "Turn &Music On" in the menu, and shows FMidiErr.
void MusicFailed(TuneForm& pForm);

// Plays a tune for the form when the music is enabled; a device that fails
// turns the music off, and MusicFailed tells the player.
void PlayTune(TuneForm& pForm, const std::string& psTune);

// Stops the tune the form plays, if one plays; a failure is told as above.
void StopTune(TuneForm& pForm);

// A tick of tmrMidi on the form that owns the tune: the end of the tune is
// its position standing at the stored length, and a looping tune starts
// again there.
void WatchTune(TuneForm& pForm, const std::string& psTune);

}  // namespace modGlobal
