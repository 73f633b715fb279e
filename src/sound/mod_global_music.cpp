#include "sound/mod_global_music.h"

#include <QWidget>

#include "sound/f_midi_err.h"
#include "link/main_form_link.h"
#include "platform/display/platform_timer.h"

namespace modGlobal {

std::unique_ptr<CMidiFile> goMidi;

void MusicFailed(TuneForm& pForm) {
    pForm.MidiTimer().SetEnabled(false);
    if (goMainForm) goMainForm->ShowOptionPair(OptionPair::Music, false);
    FMidiErr midiErr(&pForm.Window());
    midiErr.exec();
}

void PlayTune(TuneForm& pForm, const std::string& psTune) {
    if (!goMidi || !goMidi->Enabled()) return;
    goMidi->Play(pForm, psTune);
    if (!goMidi->Enabled()) MusicFailed(pForm);
}

void StopTune(TuneForm& pForm) {
    if (!goMidi || !goMidi->Enabled() || !goMidi->Active()) return;
    goMidi->StopPlay(pForm);
    if (!goMidi->Enabled()) MusicFailed(pForm);
}

void WatchTune(TuneForm& pForm, const std::string& psTune) {
    if (!goMidi || !goMidi->Enabled()) return;
    const std::int16_t position = goMidi->GetStatus("Position");
    if (!goMidi->Enabled()) {
        MusicFailed(pForm);
        return;
    }
    if (position == goMidi->EndOfFile() && goMidi->LoopMusic()) PlayTune(pForm, psTune);
}

}  // namespace modGlobal
