// Any text as a command of the media control interface. The parser must
// never crash; it answers either one of its own error numbers or a command
// whose device is named, whose status item is one it can report, and which
// reads back the same when written out again in our own spelling.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/audio/mci_command.h"

namespace {

using platform::MciCommand;

bool Same(const MciCommand& a, const MciCommand& b) {
    return a.verb == b.verb && a.device == b.device && a.alias == b.alias && a.item == b.item;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// A name as the parser reads it back: bare when it has no blanks and can't
// be taken for the start of a quoted name, else in quotes.
std::string Word(const std::string& name) {
    bool bare = !name.empty() && name.front() != '"';
    for (char c : name) bare = bare && !IsBlank(c);
    return bare ? name : "\"" + name + "\"";
}

std::string Spell(const MciCommand& command, bool upper) {
    static const char* const kVerbs[] = {"open", "play", "pause", "resume", "close", "status"};
    static const char* const kVerbsUpper[] = {"OPEN", "PLAY", "PAUSE", "RESUME", "CLOSE", "STATUS"};
    std::string text = (upper ? kVerbsUpper : kVerbs)[command.verb];
    text += " " + Word(command.device);
    if (command.verb == MciCommand::Open && command.alias != command.device)
        text += std::string(upper ? " ALIAS " : "\talias\t") + Word(command.alias);
    if (command.item == MciCommand::Length) text += upper ? " LENGTH" : " length";
    if (command.item == MciCommand::Position) text += upper ? " POSITION" : " position";
    return text;
}

bool OwnError(std::uint32_t error) {
    switch (error) {
        case platform::MCIERR_UNRECOGNIZED_KEYWORD:
        case platform::MCIERR_UNRECOGNIZED_COMMAND:
        case platform::MCIERR_MISSING_COMMAND_STRING:
        case platform::MCIERR_MISSING_STRING_ARGUMENT:
        case platform::MCIERR_MISSING_PARAMETER:
        case platform::MCIERR_MISSING_DEVICE_NAME:
        case platform::MCIERR_NO_CLOSING_QUOTE: return true;
        default: return false;
    }
}

void Check(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    MciCommand command;
    const std::uint32_t error = platform::ParseMciCommand(text, command);

    // Blanks around the command change nothing, and neither does what a
    // command object held before.
    MciCommand padded;
    padded.verb = MciCommand::Status;
    padded.device = padded.alias = "left over";
    padded.item = MciCommand::Position;
    Check(platform::ParseMciCommand(" \t" + std::string(text) + "\r\n", padded) == error);

    if (error != 0) {
        Check(OwnError(error) && !platform::MciErrorText(error).empty());
        return 0;
    }
    Check(Same(command, padded));
    Check(!command.device.empty() && !command.alias.empty());
    if (command.verb == MciCommand::Status)
        Check(command.item == MciCommand::Length || command.item == MciCommand::Position);
    else
        Check(command.item == MciCommand::None);
    if (command.verb != MciCommand::Open) Check(command.alias == command.device);

    for (bool upper : {false, true}) {
        MciCommand again;
        Check(platform::ParseMciCommand(Spell(command, upper), again) == 0 && Same(again, command));
    }
    return 0;
}
