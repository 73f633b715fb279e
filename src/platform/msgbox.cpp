#include "platform/msgbox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace platform {

namespace {

ScriptedResponder* gResponder = nullptr;

constexpr int kButtonsMask = 0x0F;
constexpr int kIconMask = 0x70;

QMessageBox::Icon IconOf(int style) {
    switch (style & kIconMask) {
        case kQuestion: return QMessageBox::Question;
        case kExclamation: return QMessageBox::Warning;
        case kInformation: return QMessageBox::Information;
        default: return QMessageBox::NoIcon;
    }
}

QString TextOf(const std::string& text) {
    return QString::fromStdString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

int ShowQMessageBox(const std::string& text, int style, const std::string& title) {
    QMessageBox box(IconOf(style), QString::fromStdString(title), TextOf(text), QMessageBox::NoButton,
                    QApplication::activeWindow());
    if ((style & kButtonsMask) == kYesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    const int clicked = box.exec();
    if (clicked == QMessageBox::Yes) return kAnswerYes;
    if (clicked == QMessageBox::No) return kAnswerNo;
    return kAnswerOK;
}

}  // namespace

int MsgBox(const std::string& text, int style, const std::string& title) {
    if (!gResponder) return ShowQMessageBox(text, style, title);
    gResponder->events_.push_back({ScriptedResponder::Event::Box, text, title, style});
    if (!gResponder->answers_.empty()) {
        const int answer = gResponder->answers_.front();
        gResponder->answers_.pop_front();
        return answer;
    }
    if ((style & kButtonsMask) == kYesNo) throw std::logic_error("no scripted answer for the question: " + text);
    return kAnswerOK;
}

void Beep() {
    if (gResponder)
        gResponder->events_.push_back({ScriptedResponder::Event::Beep, {}, {}, 0});
    else if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        QApplication::beep();
}

void EndProgramNow() {
    if (gResponder) {
        gResponder->events_.push_back({ScriptedResponder::Event::End, {}, {}, 0});
        throw ProgramEnded{};
    }
    std::fflush(nullptr);
    std::_Exit(0);
}

ScriptedResponder::ScriptedResponder() {
    if (gResponder) throw std::logic_error("a scripted responder is already installed");
    gResponder = this;
}

ScriptedResponder::~ScriptedResponder() { gResponder = nullptr; }

std::vector<ScriptedResponder::Event> ScriptedResponder::Boxes() const {
    std::vector<Event> boxes;
    for (const Event& event : events_)
        if (event.kind == Event::Box) boxes.push_back(event);
    return boxes;
}

int ScriptedResponder::BeepCount() const {
    int count = 0;
    for (const Event& event : events_) count += event.kind == Event::Beep;
    return count;
}

bool ScriptedResponder::Ended() const {
    for (const Event& event : events_)
        if (event.kind == Event::End) return true;
    return false;
}

}  // namespace platform
