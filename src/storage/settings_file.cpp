#include "storage/settings_file.h"

#include "engine/mod_global.h"
#include "platform/runtime/file_system.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"

using namespace platform;

namespace storage {

namespace {

constexpr std::int32_t kDefaultAnimSpeed = 80000;
constexpr int kWindowNormal = 0;
constexpr int kWindowMaximized = 2;

const char* TrueFalse(bool value) { return value ? "TRUE" : "FALSE"; }

// The value of a line: behind the first equals sign, or the whole line when
// there is none; blanks around it removed.
std::string IniValue(const std::string& line) {
    const auto equals = line.find('=');
    return Trim(equals == std::string::npos ? line : line.substr(equals + 1));
}

void SetDefaultSettings(OptionEntries& form) {
    using namespace modGlobal;
    gsDbPath = AppPath();
    glLastUserId = 0;
    form.SetWindowState(kWindowNormal);
    gbAnimalsOn = false;
    form.ShowOptionPair(OptionPair::Animals, false);
    form.SetMusicEnabled(true);
    form.ShowOptionPair(OptionPair::Music, true);
    gbSoundOn = true;
    form.ShowOptionPair(OptionPair::Sound, true);
    glAnimSpeed = kDefaultAnimSpeed;
}

std::string IniLine(int line, const OptionEntries& form) {
    using namespace modGlobal;
    switch (line) {
        case 0: return "[Options]";
        case 1: return "user_id=" + std::to_string(glUserId);
        case 2: return "db_path=" + Trim(gsDbPath);
        case 3: return form.WindowState() == kWindowMaximized ? "maxform=1" : "maxform=0";
        case 4: return std::string("soundon=") + TrueFalse(gbSoundOn);
        case 5: return "animspd=" + std::to_string(glAnimSpeed / 1000);
        case 6: return std::string("copylnk=") + TrueFalse(gbCopyLink);
        case 7: return std::string("animals=") + TrueFalse(gbAnimalsOn);
        default: return std::string("musicon=") + TrueFalse(form.MusicEnabled());
    }
}

}  // namespace

std::string IniFileName() { return AppPath() + "/dovrin.ini"; }

void LoadSettings(OptionEntries& form) {
    const std::string fileName = IniFileName();
    if (FileExists(fileName)) {
        Ini_Load(fileName, form);
        return;
    }
    Beep();
    MsgBox(fileName + " not found!" + kCrLf + "Loading DOVRIN using defaults.", kExclamation, "The Dovrin Game");
    SetDefaultSettings(form);
}

void Ini_Load(const std::string& fileName, OptionEntries& form) {
    using namespace modGlobal;
    const auto report = [](const RuntimeError& error) {
        Beep();
        MsgBox(error.Description(), kExclamation, "Ini File");
    };
    TextFile file;
    ResumeNext([&] { file.OpenForInput(fileName); }, report);
    while (file.IsOpen() && !file.AtEnd()) {
        std::string line;
        ResumeNext([&] { line = file.LineInput(); }, report);
        // Keys are the first seven characters as they stand, whatever follows.
        // maxform is written but deliberately never read back.
        const std::string key = line.substr(0, 7);
        const std::string value = IniValue(line);
        if (key == "user_id") {
            ResumeNext([&] { glLastUserId = CLng(Val(value)); }, report);
        } else if (key == "db_path") {
            gsDbPath = value == "APPPATH" ? AppPath() : value;
        } else if (key == "animals") {
            gbAnimalsOn = value == "TRUE";
            form.ShowOptionPair(OptionPair::Animals, gbAnimalsOn);
        } else if (key == "musicon") {
            const bool on = value == "TRUE";
            form.SetMusicEnabled(on);
            form.ShowOptionPair(OptionPair::Music, on);
        } else if (key == "soundon") {
            gbSoundOn = value == "TRUE";
            form.ShowOptionPair(OptionPair::Sound, gbSoundOn);
        } else if (key == "animspd") {
            ResumeNext([&] { glAnimSpeed = CLng(CLng(Val(value)) * 1000.0); }, report);
        }
    }
    ResumeNext([&] { file.Close(); }, report);
}

void Ini_Save(const OptionEntries& form) {
    const auto report = [](const RuntimeError& error) {
        Beep();
        MsgBox(error.Description(), kExclamation, "Ini Save Error");
    };
    TextFile file;
    ResumeNext([&] { file.OpenForOutput(IniFileName()); }, report);
    for (int line = 0; line <= 8; ++line) ResumeNext([&] { file.PrintLine(IniLine(line, form)); }, report);
    ResumeNext([&] { file.Close(); }, report);
}

}  // namespace storage

namespace modGlobal {

bool ReadCopyLinkOption(bool& pbNoUser) {
    try {
        const std::string appPath = UCase(AppPath());
        if (appPath != UCase(OldPlatformPath("C:\\PROGRAM FILES\\LANTERN! DOVRIN V3.0")) &&
            appPath != UCase(OldPlatformPath("C:\\MYPROGS\\LANTERN30")))
            return false;
        bool copyLink = true;
        const std::string fileName = storage::IniFileName();
        if (!FileExists(fileName)) return false;
        TextFile file;
        file.OpenForInput(fileName);
        while (!file.AtEnd()) {
            const std::string line = file.LineInput();
            // Only the key is folded to capitals here, not the value.
            const std::string key = UCase(line.substr(0, 7));
            if (key == "COPYLNK")
                copyLink = storage::IniValue(line) == "TRUE";
            else if (key == "USER_ID")
                pbNoUser = Val(storage::IniValue(line)) == 0;
        }
        file.Close();
        return copyLink;
    } catch (const RuntimeError& error) {
        MsgBox(error.Description(), kExclamation, "Ini File");
        return false;
    }
}

}  // namespace modGlobal
