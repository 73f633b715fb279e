// The settings file dovrin.ini beside the program: the main form reads it
// once at start-up and writes it back; the start-up procedure reads the
// copy-link option from it before any form exists.
#pragma once

#include <string>

namespace storage {

// What of the main form the settings reach. The main form implements it.
class SettingsForm {
public:
    virtual ~SettingsForm() = default;
    // Visible of the option menu entry mnuOption(index), index 0 to 6.
    virtual void SetOptionMenuVisible(int index, bool visible) = 0;
    // Enabled of the one music object.
    virtual bool MusicEnabled() const = 0;
    virtual void SetMusicEnabled(bool enabled) = 0;
    // 0 normal, 2 maximised.
    virtual int WindowState() const = 0;
    virtual void SetWindowState(int state) = 0;
};

// The application path followed by "/dovrin.ini".
std::string IniFileName();

// At start-up: reads the file when it exists; else beeps, says so and takes
// the defaults, all of them.
void LoadSettings(SettingsForm& form);

void Ini_Load(const std::string& fileName, SettingsForm& form);
void Ini_Save(const SettingsForm& form);

}  // namespace storage

namespace modGlobal {

// The copy-link option, read only when the program runs from one of the two
// regular install directories. pbNoUser becomes true when the file's user_id
// is 0.
bool ReadCopyLinkOption(bool& pbNoUser);

}  // namespace modGlobal
