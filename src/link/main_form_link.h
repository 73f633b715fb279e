// The one way up: what the storage, the sound and the forms reach of the
// main form, which sits above them all. The main form implements it and
// registers itself in goMainForm; tests put a fake there. Nothing here
// includes a header of a layer above, and no Qt header either.
#pragma once

#include <string>

class QWidget;

namespace platform {
class PlatformTimer;
}

// A form that plays a tune: the music object starts and stops its tmrMidi,
// which watches the tune, and a failure's notice opens over it.
class TuneForm {
public:
    virtual ~TuneForm() = default;
    virtual QWidget& Window() = 0;
    virtual platform::PlatformTimer& MidiTimer() = 0;  // tmrMidi
};

// The on/off pairs of the option menu, by the index of their first entry:
// the first entry of a pair shows while the option is off, the second while
// it is on.
enum class OptionPair { Animals = 0, Music = 3, Sound = 5 };

// What the settings file reads from and writes to the main form.
class OptionEntries {
public:
    virtual ~OptionEntries() = default;
    // Offers the entry that turns the option the other way.
    virtual void ShowOptionPair(OptionPair pair, bool on) = 0;
    // Enabled of the one music object.
    virtual bool MusicEnabled() const = 0;
    virtual void SetMusicEnabled(bool enabled) = 0;
    // 0 normal, 2 maximised.
    virtual int WindowState() const = 0;
    virtual void SetWindowState(int state) = 0;
};

class MainFormLink : public OptionEntries {
public:
    virtual std::string UserTag() const = 0;  // cmdUser.Tag
    virtual void SetUserTag(const std::string& tag) = 0;
    virtual void SetPlayerName(int seat, const std::string& name) = 0;  // lblPlayer(seat)
    virtual std::string MoneyCaption(int seat) const = 0;               // lblAmt(seat)
    virtual void SetWinningsCaption(const std::string& caption) = 0;    // mnuWinnings
    virtual void SetTopMenusEnabled(bool enabled) = 0;                  // File, Players, Options, Help
    // The stage of a high score: whether it shows, and taking it down with
    // the timers of its balloons, its wait and its tune.
    virtual bool HighScoreVisible() const = 0;  // picHighScore
    virtual void HideHighScore() = 0;
    // Stops the fanfare's tune, which the main form plays.
    virtual void StopFanfareTune() = 0;
    // ChangeUser of the main form: the database recovery lets the user
    // choose again (pbFirst true).
    virtual void ChangeUser(bool pbFirst) = 0;
};

namespace modGlobal {

extern MainFormLink* goMainForm;  // null until the main form is loaded

// Enables or disables the main form's four top menus together, with every
// entry and key under them.
void SetMenusEnabled(bool enabled);

}  // namespace modGlobal
