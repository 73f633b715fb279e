#include "platform/runtime/msgbox.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace platform {

namespace {

ScriptedResponder* gResponder = nullptr;
MessageDesk* gDesk = nullptr;

}  // namespace

void SetMessageDesk(MessageDesk* desk) { gDesk = desk; }

int MsgBox(const std::string& text, int style, const std::string& title) {
    if (!gResponder) {
        if (gDesk) return gDesk->ShowBox(text, style, title);
        std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
        return AsksYesNo(style) ? kAnswerYes : kAnswerOK;
    }
    gResponder->events_.push_back({ScriptedResponder::Event::Box, text, title, style});
    if (!gResponder->answers_.empty()) {
        const int answer = gResponder->answers_.front();
        gResponder->answers_.pop_front();
        return answer;
    }
    if (AsksYesNo(style)) throw std::logic_error("no scripted answer for the question: " + text);
    return kAnswerOK;
}

void Beep() {
    if (gResponder)
        gResponder->events_.push_back({ScriptedResponder::Event::Beep, {}, {}, 0});
    else if (gDesk)
        gDesk->Beep();
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
