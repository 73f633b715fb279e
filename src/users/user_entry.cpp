#include "users/user_entry.h"

#include <functional>

#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QStyle>
#include <QStyleOptionFrame>

#include "engine/mod_global.h"
#include "platform/display/name_font.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "link/main_form_link.h"

using platform::kCrLf;

namespace users {

namespace {

constexpr double kDesignPointSize = 8.0;
// A line edit leaves this much room on either side of its text.
constexpr int kLineEditMargin = 2;
// The cursor's pixel behind the last character counts to the text's width.
constexpr int kCursorWidth = 1;

// The width a line edit's text may take before it scrolls: the inside of its
// frame, less the text margins and the edit's own margins.
int TextRoom(const QLineEdit& box) {
    QStyleOptionFrame frame;
    frame.initFrom(&box);
    frame.rect = box.contentsRect();
    frame.lineWidth = box.hasFrame() ? box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, &box) : 0;
    frame.state |= QStyle::State_Sunken;
    const QRect inside =
        box.style()->subElementRect(QStyle::SE_LineEditContents, &frame, &box).marginsRemoved(box.textMargins());
    return inside.width() - 2 * kLineEditMargin - kCursorWidth;
}

// The keys that reach a KeyPress handler are those that type a character:
// Tab moves the focus and Delete edits without one.
bool TypesCharacter(const QKeyEvent& key) {
    return !key.text().isEmpty() && key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab &&
           key.key() != Qt::Key_Delete;
}

int SortedPlace(int count, const std::function<QString(int)>& textAt, const QString& text) {
    int place = count;
    while (place > 0 && QString::compare(textAt(place - 1), text, Qt::CaseInsensitive) > 0) --place;
    return place;
}

}  // namespace

bool DropsKey(const QString& boxText, const QKeyEvent& key) {
    return boxText.size() >= kMaxNameLength && TypesCharacter(key) && key.key() != Qt::Key_Backspace;
}

void UseNameFont(QLineEdit& box) {
    const auto fit = [&box] { box.setFont(platform::NameFontToFit(box.text(), TextRoom(box), kDesignPointSize)); };
    fit();
    QObject::connect(&box, &QLineEdit::textChanged, &box, fit);
}

ControlFocus::Change ControlFocus::OnFocusEvent(QObject* control, const QFocusEvent& event) {
    Change change;
    if (event.type() == QEvent::FocusOut) {
        const bool withWindow =
            event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
        if (!withWindow && holder_ == control) {
            change.lost = control;
            holder_ = nullptr;
        }
        return change;
    }
    if (holder_ == control) return change;
    change.lost = holder_;
    change.got = control;
    holder_ = control;
    return change;
}

bool HasListBracket(const std::string& name) {
    return !name.empty() && (name.back() == '>' || name.front() == '<');
}

bool NamesAreValid(const std::array<std::string, 4>& names, const std::array<QWidget*, 4>& fields) {
    static const std::array<const char*, 4> kBlank = {
        "User name cannot be blank!", "1st Opponent name cannot be blank!",
        "2nd Opponent name cannot be blank!", "3rd Opponent name cannot be blank!"};
    static const std::array<const char*, 4> kTooLong = {
        "User name cannot be more", "1st Opponent name cannot be", "2nd Opponent name cannot be",
        "3rd Opponent name cannot be"};
    static const std::array<const char*, 4> kTooLongEnd = {
        "than 12 characters!", "more than 12 characters!", "more than 12 characters!",
        "more than 12 characters!"};
    auto refuse = [&fields](std::size_t field, const std::string& message) {
        platform::MsgBox(message, platform::kExclamation, "Invalid name");
        fields[field]->setFocus();
        return false;
    };
    for (std::size_t field = 0; field < names.size(); ++field)
        if (names[field].empty()) return refuse(field, kBlank[field]);
    for (std::size_t field = 0; field < names.size(); ++field)
        if (QString::fromStdString(names[field]).size() > kMaxNameLength)
            return refuse(field, std::string(kTooLong[field]) + kCrLf + kTooLongEnd[field]);
    return true;
}

std::string RenameQuestion(const std::string& oldName, const std::string& newName) {
    return std::string("Do you wish to change the user") + kCrLf + "name " + oldName + " -> " + newName + "?" +
           kCrLf + kCrLf + "Note: To add a NEW user select" + kCrLf + "<New User> from the user list.";
}

void AddSorted(QComboBox& list, const std::string& text, std::int32_t itemData) {
    const QString entry = QString::fromStdString(text);
    const int place = SortedPlace(list.count(), [&list](int index) { return list.itemText(index); }, entry);
    list.insertItem(place, entry, itemData);
}

void AddSorted(QListWidget& list, const std::string& text, std::int32_t itemData) {
    const QString entry = QString::fromStdString(text);
    const int place = SortedPlace(list.count(), [&list](int row) { return list.item(row)->text(); }, entry);
    auto* item = new QListWidgetItem(entry);
    item->setData(Qt::UserRole, itemData);
    list.insertItem(place, item);
}

std::int32_t ItemData(const QComboBox& list, int index) { return list.itemData(index).toInt(); }

std::int32_t ItemData(const QListWidgetItem& item) { return item.data(Qt::UserRole).toInt(); }

void ShowCurrentUserOnTable() {
    using namespace modGlobal;
    if (!goMainForm) return;
    goMainForm->SetPlayerName(0, gsOpponent1);
    goMainForm->SetPlayerName(1, gsOpponent2);
    goMainForm->SetPlayerName(2, gsOpponent3);
    goMainForm->SetPlayerName(3, gsUserName);
    goMainForm->SetWinningsCaption(platform::UCase(platform::Trim(gsUserName)) + "'s Stats...");
}

}  // namespace users
