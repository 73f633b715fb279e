// The text commands of the media control interface, as far as the sequencer
// understands them: open a file under an alias, play, pause, resume, close,
// and ask for the length or the position. Words are matched whatever their
// letter case; a name with blanks stands in double quotes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

// The platform's error numbers for the commands, and those of the sequencer.
enum MciError : std::uint32_t {
    MCIERR_UNRECOGNIZED_KEYWORD = 259,
    MCIERR_UNRECOGNIZED_COMMAND = 261,
    MCIERR_INVALID_DEVICE_NAME = 263,
    MCIERR_MISSING_COMMAND_STRING = 267,
    MCIERR_PARAM_OVERFLOW = 268,
    MCIERR_MISSING_STRING_ARGUMENT = 269,
    MCIERR_MISSING_PARAMETER = 273,
    MCIERR_FILE_NOT_FOUND = 275,
    MCIERR_DUPLICATE_ALIAS = 289,
    MCIERR_MISSING_DEVICE_NAME = 292,
    MCIERR_NO_CLOSING_QUOTE = 294,
    MCIERR_INVALID_FILE = 296,
    MCIERR_SEQ_PORT_INUSE = 337,
    MCIERR_SEQ_NOMIDIPRESENT = 343,
};

struct MciCommand {
    enum Verb { Open, Play, Pause, Resume, Close, Status };
    enum Item { None, Length, Position };
    Verb verb = Open;
    std::string device;   // the alias, or for Open the file
    std::string alias;    // Open only: the name the device is known by afterwards
    Item item = None;     // Status only
};

// Reads one command. 0 and the command, or the error number the device
// answers such a text with.
std::uint32_t ParseMciCommand(std::string_view text, MciCommand& command);

// Our wording of an error number; empty for a number that is none of ours.
std::string MciErrorText(std::uint32_t code);

}  // namespace platform
