// What the audio platform reads: the sequencer's text commands. (A MIDI
// file's length and refusal: AudioDeviceTest's tunes; a wave brought to the
// device's rate: AudioDeviceTest's effects.)
#include <gtest/gtest.h>

#include "platform/audio/mci_command.h"

using namespace platform;

// Each malformed command gets its own error number. (That the program's
// commands read in any letter case is FuzzCorpus.mci_command's round trip.)
TEST(MciCommandTest, MalformedCommandsGetTheirErrorNumbers) {
    const std::pair<const char*, std::uint32_t> refused[] = {
        {"", MCIERR_MISSING_COMMAND_STRING},
        {"Stop MIDIfile", MCIERR_UNRECOGNIZED_COMMAND},
        {"Play", MCIERR_MISSING_DEVICE_NAME},
        {"Open \"/tmp/a.mid Alias MIDIfile", MCIERR_NO_CLOSING_QUOTE},
        {"Open \"/tmp/a.mid\" Alias", MCIERR_MISSING_STRING_ARGUMENT},
        {"Status MIDIfile", MCIERR_MISSING_PARAMETER},
        {"Status MIDIfile Tempo", MCIERR_UNRECOGNIZED_KEYWORD},
        {"Play MIDIfile from 0", MCIERR_UNRECOGNIZED_KEYWORD},
    };
    for (const auto& [text, error] : refused) {
        MciCommand command;
        EXPECT_EQ(ParseMciCommand(text, command), error) << text;
    }
    EXPECT_TRUE(MciErrorText(0).empty());
}
