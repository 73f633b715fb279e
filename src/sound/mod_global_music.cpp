#include "sound/mod_global_music.h"

#include <QWidget>

#include "sound/f_midi_err.h"
#include "storage/settings_file.h"

namespace modGlobal {

std::unique_ptr<CMidiFile> goMidi;
storage::SettingsForm* goOptionEntries = nullptr;

void MusicFailed(QWidget& pForm) {
    EnableMidiTimer(pForm, false);
    if (goOptionEntries) {
        goOptionEntries->SetOptionMenuVisible(3, true);
        goOptionEntries->SetOptionMenuVisible(4, false);
    }
    FMidiErr midiErr(&pForm);
    midiErr.exec();
}

void PlayTune(QWidget& pForm, const std::string& psTune) {
    if (!goMidi || !goMidi->Enabled()) return;
    goMidi->Play(pForm, psTune);
    if (!goMidi->Enabled()) MusicFailed(pForm);
}

void StopTune(QWidget& pForm) {
    if (!goMidi || !goMidi->Enabled() || !goMidi->Active()) return;
    goMidi->StopPlay(pForm);
    if (!goMidi->Enabled()) MusicFailed(pForm);
}

void WatchTune(QWidget& pForm, const std::string& psTune) {
    if (!goMidi || !goMidi->Enabled()) return;
    const std::int16_t position = goMidi->GetStatus("Position");
    if (!goMidi->Enabled()) {
        MusicFailed(pForm);
        return;
    }
    if (position == goMidi->EndOfFile() && goMidi->LoopMusic()) PlayTune(pForm, psTune);
}

}  // namespace modGlobal
