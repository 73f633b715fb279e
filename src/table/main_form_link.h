// What the forms reach on the main form, which sits above them: the answer
// box in the Tag of its button cmdUser, the seat names, the money captions,
// the statistics entry of the menu, the four top menus, the stage of a high
// score. The main form
// implements it and registers itself in goMainForm; tests use a fake.
#pragma once

#include <string>

class QWidget;

class MainFormLink {
public:
    virtual ~MainFormLink() = default;
    virtual std::string UserTag() const = 0;  // cmdUser.Tag
    virtual void SetUserTag(const std::string& tag) = 0;
    virtual void SetPlayerName(int seat, const std::string& name) = 0;  // lblPlayer(seat)
    virtual std::string MoneyCaption(int seat) const = 0;               // lblAmt(seat)
    virtual void SetWinningsCaption(const std::string& caption) = 0;    // mnuWinnings
    virtual void SetTopMenusEnabled(bool enabled) = 0;                  // File, Players, Options, Help
    // The stage of a high score: whether it shows, and taking it down with
    // the timers of its balloons, its wait and its tune.
    virtual bool HighScoreVisible() const = 0;                          // picHighScore
    virtual void HideHighScore() = 0;
    // The form whose tmrMidi watches the fanfare's tune.
    virtual QWidget* MusicOwner() = 0;
};

namespace modGlobal {

extern MainFormLink* goMainForm;  // null until the main form is loaded

// Enables or disables the main form's four top menus together, with every
// entry and key under them.
void SetMenusEnabled(bool enabled);

}  // namespace modGlobal
