// CMidiFile: the one music device, a sequencer opened under the fixed alias
// MIDIfile by text commands. It never reports to its caller: an error turns
// Enabled off, is written to the table errorlog, and the caller, seeing
// Enabled off, calls MusicFailed.
#pragma once

#include <cstdint>
#include <string>

#include "link/main_form_link.h"

class CMidiFile {
public:
    bool Enabled() const { return mbEnabled; }
    void SetEnabled(bool enabled) { mbEnabled = enabled; }
    // The tune's length in milliseconds as the device reported it; 0 until
    // a tune has opened, and 0 for a length beyond 16 bits.
    std::int32_t EndOfFile() const { return mlEndOfFile; }
    void SetLoopMusic(bool loop) { mbLoopMusic = loop; }
    bool LoopMusic() const { return mbLoopMusic; }
    void Pause();
    // Opens the tune beside the program and starts it; the form's timer
    // tmrMidi watches it. Nothing happens while the music is not enabled.
    void Play(TuneForm& pForm, const std::string& psFileName);
    void ResumePlay();
    // "Length" or "Position" in milliseconds; 0 on any failure.
    std::int16_t GetStatus(const std::string& psItem);
    void StopPlay(TuneForm& pForm);
    bool Active() const { return mbActive; }

private:
    std::string GetMidiErrorText(std::uint32_t plErrCode);
    void LogMidiError(const std::string& psAction, const std::string& psMessage);
    // Sends a command; on an error, turns the music off and logs the error
    // under the action word.
    void SendOrLog(const std::string& psCommand, const std::string& psAction);

    std::int32_t mlEndOfFile = 0;
    bool mbActive = false;
    bool mbLoopMusic = false;
    bool mbEnabled = false;
};
