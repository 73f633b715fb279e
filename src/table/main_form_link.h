// What the forms reach on the main form, which sits above them: the answer
// box in the Tag of its button cmdUser, the seat names, the money captions,
// the statistics entry of the menu, the four top menus. The main form
// implements it and registers itself in goMainForm; tests use a fake.
#pragma once

#include <string>

class MainFormLink {
public:
    virtual ~MainFormLink() = default;
    virtual std::string UserTag() const = 0;  // cmdUser.Tag
    virtual void SetUserTag(const std::string& tag) = 0;
    virtual void SetPlayerName(int seat, const std::string& name) = 0;  // lblPlayer(seat)
    virtual std::string MoneyCaption(int seat) const = 0;               // lblAmt(seat)
    virtual void SetWinningsCaption(const std::string& caption) = 0;    // mnuWinnings
    virtual void SetTopMenusEnabled(bool enabled) = 0;                  // File, Players, Options, Help
};

namespace modGlobal {

extern MainFormLink* goMainForm;  // null until the main form is loaded

// Enables or disables the main form's four top menus together, with every
// entry and key under them.
void SetMenusEnabled(bool enabled);

}  // namespace modGlobal
