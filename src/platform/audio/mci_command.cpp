#include "platform/audio/mci_command.h"

#include <cctype>
#include <vector>

namespace platform {

namespace {

bool SameWord(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Splits at blanks; a word in double quotes keeps its blanks and loses the
// quotes.
std::uint32_t Split(std::string_view text, std::vector<std::string>& words) {
    std::size_t at = 0;
    while (true) {
        while (at < text.size() && IsBlank(text[at])) ++at;
        if (at == text.size()) return 0;
        if (text[at] == '"') {
            const std::size_t close = text.find('"', at + 1);
            if (close == std::string_view::npos) return MCIERR_NO_CLOSING_QUOTE;
            words.emplace_back(text.substr(at + 1, close - at - 1));
            at = close + 1;
        } else {
            const std::size_t start = at;
            while (at < text.size() && !IsBlank(text[at])) ++at;
            words.emplace_back(text.substr(start, at - start));
        }
    }
}

}  // namespace

std::uint32_t ParseMciCommand(std::string_view text, MciCommand& command) {
    std::vector<std::string> words;
    if (const std::uint32_t error = Split(text, words)) return error;
    if (words.empty()) return MCIERR_MISSING_COMMAND_STRING;

    static constexpr std::pair<const char*, MciCommand::Verb> kVerbs[] = {
        {"open", MciCommand::Open},     {"play", MciCommand::Play},   {"pause", MciCommand::Pause},
        {"resume", MciCommand::Resume}, {"close", MciCommand::Close}, {"status", MciCommand::Status}};
    bool known = false;
    for (const auto& [word, verb] : kVerbs) {
        if (SameWord(words[0], word)) {
            command.verb = verb;
            known = true;
        }
    }
    if (!known) return MCIERR_UNRECOGNIZED_COMMAND;
    if (words.size() < 2 || words[1].empty()) return MCIERR_MISSING_DEVICE_NAME;
    command.device = words[1];
    command.alias = words[1];
    command.item = MciCommand::None;

    std::size_t next = 2;
    if (command.verb == MciCommand::Open && next < words.size() && SameWord(words[next], "alias")) {
        if (next + 1 >= words.size() || words[next + 1].empty()) return MCIERR_MISSING_STRING_ARGUMENT;
        command.alias = words[next + 1];
        next += 2;
    } else if (command.verb == MciCommand::Status) {
        if (next >= words.size()) return MCIERR_MISSING_PARAMETER;
        if (SameWord(words[next], "length"))
            command.item = MciCommand::Length;
        else if (SameWord(words[next], "position"))
            command.item = MciCommand::Position;
        else
            return MCIERR_UNRECOGNIZED_KEYWORD;
        ++next;
    }
    if (next != words.size()) return MCIERR_UNRECOGNIZED_KEYWORD;
    return 0;
}

std::string MciErrorText(std::uint32_t code) {
    switch (code) {
        case MCIERR_UNRECOGNIZED_KEYWORD: return "The command holds a word the device does not understand.";
        case MCIERR_UNRECOGNIZED_COMMAND: return "The device does not know this command.";
        case MCIERR_INVALID_DEVICE_NAME: return "No device is open under this name.";
        case MCIERR_MISSING_COMMAND_STRING: return "The command is empty.";
        case MCIERR_PARAM_OVERFLOW: return "The answer is longer than the space given for it.";
        case MCIERR_MISSING_STRING_ARGUMENT: return "A word of the command needs a name after it.";
        case MCIERR_MISSING_PARAMETER: return "The command needs one more word.";
        case MCIERR_FILE_NOT_FOUND: return "The file to play was not found.";
        case MCIERR_DUPLICATE_ALIAS: return "A device is already open under this name.";
        case MCIERR_MISSING_DEVICE_NAME: return "The command names no device.";
        case MCIERR_NO_CLOSING_QUOTE: return "A name in quotes has no closing quote.";
        case MCIERR_INVALID_FILE: return "The file is not a MIDI file the sequencer can play.";
        case MCIERR_SEQ_PORT_INUSE: return "The sequencer is busy with another tune.";
        case MCIERR_SEQ_NOMIDIPRESENT: return "No sound device or MIDI sound font could be opened.";
        default: return "";
    }
}

}  // namespace platform
