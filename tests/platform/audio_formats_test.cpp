// What the audio platform reads: the sequencer's text commands, the timing
// of MIDI files, and wave images.
#include <gtest/gtest.h>

#include <tuple>

#include "platform/audio/mci_command.h"
#include "platform/audio/midi_timing.h"
#include "platform/audio/wave_image.h"
#include "test_sounds.h"

using namespace platform;

// The program's commands read in any letter case; malformed ones get their
// error numbers.
TEST(MciCommandTest, TheProgramsCommandsReadInAnyLetterCaseAndMalformedOnesGetTheirErrorNumbers) {
    MciCommand open;
    ASSERT_EQ(ParseMciCommand("Open \"/home/a user/Circus.mid\" Alias MIDIfile", open), 0u);
    EXPECT_EQ(open.verb, MciCommand::Open);
    EXPECT_EQ(open.device + "|" + open.alias, "/home/a user/Circus.mid|MIDIfile");
    const std::tuple<const char*, MciCommand::Verb, MciCommand::Item> read[] = {
        {"status MIDIfile LENGTH", MciCommand::Status, MciCommand::Length},
        {"Status MIDIfile position", MciCommand::Status, MciCommand::Position},
        {"Play MIDIfile", MciCommand::Play, MciCommand::None}, {"PAUSE MIDIfile", MciCommand::Pause, MciCommand::None},
        {"  Resume\tMIDIfile ", MciCommand::Resume, MciCommand::None}, {"close MIDIfile", MciCommand::Close, MciCommand::None}};
    for (const auto& [text, verb, item] : read) {
        MciCommand command;
        ASSERT_EQ(ParseMciCommand(text, command), 0u) << text;
        EXPECT_EQ(command.verb, verb) << text;
        EXPECT_EQ(command.item, item) << text;
        EXPECT_EQ(command.device, "MIDIfile") << text;
    }

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
        EXPECT_FALSE(MciErrorText(error).empty());
    }
    EXPECT_TRUE(MciErrorText(0).empty());
}

// The length follows the file's tempo; what is no whole MIDI file is refused.
TEST(MidiTimingTest, LengthFollowsTheTempoOfTheFileAndWhatIsNoWholeFileIsRefused) {
    // Two quarter notes at 120 a minute: one second.
    const std::vector<std::uint8_t> file = test_sounds::OneNoteMidi(500000, 960);
    auto timing = audio::MidiTiming::FromBytes(file);
    ASSERT_TRUE(timing);
    EXPECT_EQ(timing->LastTick(), 960);
    EXPECT_DOUBLE_EQ(timing->LengthMilliseconds(), 1000.0);
    EXPECT_DOUBLE_EQ(timing->TickToMilliseconds(240), 250.0);
    // Forty seconds at 60 a minute: beyond a 16-bit count of milliseconds.
    timing = audio::MidiTiming::FromBytes(test_sounds::OneNoteMidi(1000000, 40 * 480));
    ASSERT_TRUE(timing);
    EXPECT_DOUBLE_EQ(timing->LengthMilliseconds(), 40000.0);

    std::vector<std::uint8_t> cut(file.begin(), file.end() - 5);
    EXPECT_FALSE(audio::MidiTiming::FromBytes(cut));
    std::vector<std::uint8_t> timecode = file;
    timecode[12] = 0xe7;  // frames a second instead of ticks a quarter
    EXPECT_FALSE(audio::MidiTiming::FromBytes(timecode));
    const std::string text = "MThd is how this text begins, and nothing more";
    EXPECT_FALSE(audio::MidiTiming::FromBytes({text.begin(), text.end()}));
}

TEST(WaveImageTest, SamplesAreMixedToOneChannelAtTheDevicesRate) {
    // 8-bit stereo at 11,025 Hz: 32 frames whose channels cancel, 32 at half
    // the level and 32 at minus half.
    std::vector<std::uint8_t> image = test_sounds::WaveImage({}, 11025);
    image[22] = 2;  // channels
    image[34] = 8;  // bits
    for (auto [left, right] : {std::pair{255, 1}, std::pair{192, 192}, std::pair{64, 64}})
        for (int frame = 0; frame < 32; ++frame) image.insert(image.end(), {std::uint8_t(left), std::uint8_t(right)});
    image[40] = 192;  // data size
    image[4] = static_cast<std::uint8_t>(image.size() - 8);
    ASSERT_EQ(audio::WaveImageSize(image.data()), image.size());

    auto samples = audio::DecodeWave(image.data(), image.size(), 44100);
    ASSERT_TRUE(samples);
    EXPECT_NEAR(static_cast<double>(samples->size()), 4 * 96, 8);  // four times the frames
    EXPECT_NEAR((*samples)[4 * 16], 0.0f, 0.05f);
    EXPECT_NEAR((*samples)[4 * 48], 0.5f, 0.05f);
    EXPECT_NEAR((*samples)[4 * 80], -0.5f, 0.05f);

    image[20] = 3;  // not PCM
    EXPECT_FALSE(audio::DecodeWave(image.data(), image.size(), 44100));
}
