#include "sound/c_midi_file.h"

#include "engine/mod_global.h"
#include "platform/audio/multimedia.h"
#include "platform/display/platform_timer.h"
#include "platform/runtime/dao.h"
#include "platform/runtime/runtime.h"
#include "storage/data_procedure.h"

namespace {

const char* const kClose = "Close MIDIfile";

}  // namespace

void CMidiFile::SendOrLog(const std::string& psCommand, const std::string& psAction) {
    const std::uint32_t result = platform::mciSendStringA(psCommand.c_str(), nullptr, 0, nullptr);
    if (result != 0) LogMidiError(psAction, GetMidiErrorText(result));
}

// Pause, ResumePlay and StopPlay all log under "Pause"; the shared word is
// kept as the log has always had it.
void CMidiFile::Pause() {
    if (mbEnabled) SendOrLog("Pause MIDIfile", "Pause");
}

void CMidiFile::Play(TuneForm& pForm, const std::string& psFileName) {
    if (!mbEnabled) return;
    const std::string fullName = platform::AppPath() + "/" + psFileName;
    // A former tune must never keep the alias.
    platform::mciSendStringA(kClose, nullptr, 0, nullptr);
    const std::uint32_t result = platform::mciSendStringA(
        ("Open \"" + fullName + "\" Alias MIDIfile").c_str(), nullptr, 0, nullptr);
    if (result != 0) {
        LogMidiError("Play", GetMidiErrorText(result));
        return;
    }
    mlEndOfFile = GetStatus("Length");
    pForm.MidiTimer().SetEnabled(true);
    // A failed start leaves the timer running; its next tick finds the
    // music off and does nothing.
    const std::uint32_t started = platform::mciSendStringA("Play MIDIfile", nullptr, 0, nullptr);
    if (started != 0) {
        LogMidiError("Play", GetMidiErrorText(started));
        return;
    }
    mbActive = true;
}

void CMidiFile::ResumePlay() {
    if (mbEnabled) SendOrLog("Resume MIDIfile", "Pause");
}

std::int16_t CMidiFile::GetStatus(const std::string& psItem) {
    if (!mbEnabled) return 0;
    char answer[256] = {};
    const std::uint32_t result =
        platform::mciSendStringA(("Status MIDIfile " + psItem).c_str(), answer, 255, nullptr);
    if (result != 0) {
        LogMidiError("GetStatus", GetMidiErrorText(result));
        return 0;
    }
    std::int16_t value = 0;
    // A number beyond 16 bits overflows, and the error is passed over.
    platform::ResumeNext([&] { value = platform::CInt(platform::Val(answer)); },
                         [](const platform::RuntimeError&) {});
    return value;
}

void CMidiFile::StopPlay(TuneForm& pForm) {
    mbActive = false;
    pForm.MidiTimer().SetEnabled(false);
    SendOrLog(kClose, "Pause");
}

std::string CMidiFile::GetMidiErrorText(std::uint32_t plErrCode) {
    mbEnabled = false;
    std::string buffer(129, ' ');
    std::string text = "Unknown MIDI Error";
    if (platform::mciGetErrorStringA(plErrCode, buffer.data(), 128) == 1)
        text = buffer.substr(0, buffer.find('\0'));
    platform::mciSendStringA(kClose, nullptr, 0, nullptr);
    mbActive = false;
    // The notice is composed and then not used: the player sees FMidiErr,
    // and the log gets the device's own text.
    const std::string notice = std::string("An Error occurred while trying to") + platform::kCrLf +
                               "play a MIDI file!  It is possible" + platform::kCrLf +
                               "that your computer does not have" + platform::kCrLf +
                               "a sound card or that it does not" + platform::kCrLf + "support MIDI." +
                               platform::kCrLf + platform::kCrLf + "NOTE: Music turned OFF!";
    static_cast<void>(notice);
    return text;
}

// The message goes into the statement as it is: a quote in it breaks the
// statement, and the row is lost without a word.
void CMidiFile::LogMidiError(const std::string& psAction, const std::string& psMessage) {
    platform::ResumeNext(
        [&] {
            auto db = dao::DBEngine::OpenDatabase(storage::DbFileName(), false, false, storage::kDbConnect);
            db->Execute("INSERT INTO errorlog (action, message, errordate) VALUES ('" + psAction + "','" +
                        psMessage + "', Now)");
        },
        [](const platform::RuntimeError&) {});
}
