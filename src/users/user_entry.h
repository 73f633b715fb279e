// What the two user forms have in common: the marker entry of a new user,
// the typing rule and the checks of the four names, the rename question,
// the sorted lists with their item data, and the current user shown on the
// table.
#pragma once

#include <array>
#include <cstdint>
#include <string>

class QComboBox;
class QFocusEvent;
class QKeyEvent;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QObject;
class QString;
class QWidget;

namespace users {

// The list entry for adding a user, and its item data.
inline constexpr char kNewUserEntry[] = "<New User>";
inline constexpr std::int32_t kNewUserId = 9999;

inline constexpr int kMaxNameLength = 12;

// The KeyPress rule of the name boxes: once a box holds 12 characters, every
// key but Backspace is dropped, Enter and Escape included; a selection in
// the box doesn't count.
bool DropsKey(const QString& boxText, const QKeyEvent& key);

// Gives a name box the name face, refitted as the text changes: the form's
// size for a name that fits, smaller for a wide one, so that any name the
// forms accept shows whole without scrolling.
void UseNameFont(QLineEdit& box);

// Which control of a form holds the focus, as its GotFocus and LostFocus
// handlers see it. The focus stays with a control while the window is
// inactive: when it comes back with the window to the same control, nothing
// changed; a control given the focus meanwhile gets it when the window
// returns, and the one before loses it then.
class ControlFocus {
public:
    struct Change {
        QObject* lost = nullptr;
        QObject* got = nullptr;
    };
    // For each FocusIn and FocusOut of the watched controls.
    Change OnFocusEvent(QObject* control, const QFocusEvent& event);

private:
    QObject* holder_ = nullptr;
};

// A name that looks like the list's own entry: it begins with "<" or ends
// with ">".
bool HasListBracket(const std::string& name);

// The blank checks, then the length checks, of the user's name and the three
// opponents in this order. The first failing one shows its message and puts
// the focus on its field.
bool NamesAreValid(const std::array<std::string, 4>& names, const std::array<QWidget*, 4>& fields);

// The question before a user is renamed.
inline constexpr char kRenameTitle[] = "User Name has changed...";
std::string RenameQuestion(const std::string& oldName, const std::string& newName);

// Adds an entry where the list's sorting puts it: after every entry that
// doesn't sort behind it, without regard to case.
void AddSorted(QComboBox& list, const std::string& text, std::int32_t itemData);
void AddSorted(QListWidget& list, const std::string& text, std::int32_t itemData);
std::int32_t ItemData(const QComboBox& list, int index);
std::int32_t ItemData(const QListWidgetItem& item);

// The seat names and the statistics entry of the main form, from the
// current user's globals; nothing without a main form.
void ShowCurrentUserOnTable();

}  // namespace users
