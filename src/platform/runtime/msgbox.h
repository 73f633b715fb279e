// The one way the program shows a message box, sounds the beep, and ends at
// once. The desktop that shows the boxes is installed from above (the display
// half of the platform); without one, a box goes to standard error and is
// answered with its first button. Tests install a ScriptedResponder that
// records all three and answers the boxes from a script.
#pragma once

#include <deque>
#include <string>
#include <vector>

namespace platform {

// Styles: one of the button sets plus one icon.
enum MsgBoxStyle : int {
    kOKOnly = 0,
    kYesNo = 4,
    kCritical = 16,
    kQuestion = 32,
    kExclamation = 48,
    kInformation = 64,
};

// Answers.
enum MsgBoxAnswer : int {
    kAnswerOK = 1,
    kAnswerYes = 6,
    kAnswerNo = 7,
};

// Whether a style's buttons are Yes and No.
constexpr bool AsksYesNo(int style) { return (style & 0x0F) == kYesNo; }

// Shows a modal message box; lines in the text are separated by CR LF.
int MsgBox(const std::string& text, int style, const std::string& title);

// The system beep.
void Beep();

// Ends the program at once: no unload step runs, nothing is saved.
[[noreturn]] void EndProgramNow();

// Where the boxes are shown and the beep is heard.
class MessageDesk {
public:
    virtual ~MessageDesk() = default;
    virtual int ShowBox(const std::string& text, int style, const std::string& title) = 0;
    virtual void Beep() = 0;
};
// Installs the desk, or with nullptr goes back to standard error.
void SetMessageDesk(MessageDesk* desk);

// What EndProgramNow throws while a ScriptedResponder is installed.
struct ProgramEnded {};

// Installed for its lifetime: records every box, beep and end in order,
// answers the boxes from the script (an OK-only box needs no scripted answer)
// and turns the end of the program into a thrown ProgramEnded.
class ScriptedResponder {
public:
    struct Event {
        enum Kind { Box, Beep, End } kind;
        std::string text;
        std::string title;
        int style = 0;
    };

    ScriptedResponder();
    ~ScriptedResponder();
    ScriptedResponder(const ScriptedResponder&) = delete;
    ScriptedResponder& operator=(const ScriptedResponder&) = delete;

    void Answer(int answer) { answers_.push_back(answer); }

    const std::vector<Event>& Events() const { return events_; }
    std::vector<Event> Boxes() const;
    int BeepCount() const;
    bool Ended() const;

private:
    friend int MsgBox(const std::string&, int, const std::string&);
    friend void Beep();
    friend void EndProgramNow();

    std::vector<Event> events_;
    std::deque<int> answers_;
};

}  // namespace platform
