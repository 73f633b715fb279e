// The sounds and tunes as the device plays them, read back from SDL's disk
// driver: effects that hold the program until heard, the options' gates, the
// one file sound, and the sequencer with its commands and its end.
#include <gtest/gtest.h>

#include <QWidget>

#include "disk_output.h"
#include "engine/mod_global.h"
#include "platform/audio/multimedia.h"
#include "platform/audio/wave_image.h"
#include "platform/display/platform_timer.h"
#include "platform/display/resource_data.h"
#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"
#include "sound/c_midi_file.h"
#include "sound/mod_global_music.h"
#include "sound/mod_sound_lib.h"
#include "test_sounds.h"

namespace {

constexpr std::size_t kRate = 44100;
constexpr std::size_t kBuffer = 256;

class AudioDeviceTest : public ::testing::Test {
protected:
    DiskOutput& output = DiskOutput::Instance();
    TempDir dir;

    void SetUp() override { modGlobal::ResetGlobals(); }
    void TearDown() override {
        platform::mciSendStringA("Close MIDIfile", nullptr, 0, nullptr);
        modGlobal::goMidi.reset();
        platform::SetAppPath(std::nullopt);
    }
    std::string WriteFile(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        WriteBytes(dir.File(name), std::string(bytes.begin(), bytes.end()));
        return dir.File(name);
    }
    // What a key played: the audible stretch of the output after a mark.
    std::vector<float> Heard(std::size_t mark, std::size_t frames) {
        const std::vector<float> out = output.From(mark, frames);
        const auto audible = AudibleFrames(out);
        if (audible.empty()) return {};
        return {out.begin() + audible.front(), out.begin() + audible.back() + 1};
    }
    // The first frame from a frame on where a square tone of this level
    // holds for a while, as none of its edges does.
    std::size_t WaitForLevel(std::size_t from, float level) {
        constexpr std::size_t kHeld = 32;
        for (std::size_t at = from;; at += kBuffer) {
            const std::vector<float> chunk = output.From(at, kBuffer + kHeld);
            for (std::size_t i = 0; i < kBuffer; ++i) {
                std::size_t held = 0;
                while (held < kHeld && std::fabs(std::fabs(chunk[i + held]) - level) < 0.002f) ++held;
                if (held == kHeld) return at + i;
            }
            if (::testing::Test::HasFailure() || at > from + 60 * kRate) return at;
        }
    }
    static std::uint32_t Send(const std::string& command, std::string* answer = nullptr) {
        char buffer[256] = {};
        const std::uint32_t result = platform::mciSendStringA(command.c_str(), buffer, 255, nullptr);
        if (answer) *answer = buffer;
        return result;
    }
    static std::int64_t Position() {
        std::string answer;
        EXPECT_EQ(Send("Status MIDIfile Position", &answer), 0u);
        return std::stoll(answer);
    }
};

// An effect holds the program until its wave has gone to the device; the
// keys sound under their own gates only.
TEST_F(AudioDeviceTest, AnEffectReturnsOnceItsWaveHasGoneToTheDeviceAndKeysSoundUnderTheirOwnGatesOnly) {
    const auto wave = test_sounds::ToneWave(440, 150);
    ASSERT_EQ(platform::sndPlaySoundA(wave.data(), platform::SND_MEMORY), 1);  // opens the device
    const std::size_t mark = output.Frames();
    ASSERT_EQ(platform::sndPlaySoundA(wave.data(), platform::SND_MEMORY), 1);
    const std::size_t atReturn = output.Frames();

    const auto audible = AudibleFrames(output.From(mark, atReturn - mark + 8 * kBuffer));
    ASSERT_FALSE(audible.empty());
    // All of it, at the device's rate, and written out by the time the call
    // returned, but for what the driver's file still buffered.
    EXPECT_NEAR(static_cast<double>(audible.back() - audible.front() + 1), 0.150 * kRate, 4.0);
    EXPECT_LE(mark + audible.back(), atReturn + 4 * kBuffer);

    modGlobal::gbSoundOn = true;
    std::size_t from = output.Frames();
    modSoundLib::PlayEffect("WRONGCRD");
    const std::vector<float> wrongCard = Heard(from, output.Frames() - from + 8 * kBuffer);
    from = output.Frames();
    modSoundLib::PlayEffect("MUSTPLAY");
    EXPECT_EQ(Heard(from, output.Frames() - from + 8 * kBuffer), wrongCard);
    EXPECT_GT(wrongCard.size(), kRate / 10);

    // Nothing of these is heard: the last one alone is.
    from = output.Frames();
    for (const char* key : {"playcard", "", "OVERPOT", "NOSUCHKEY"}) modSoundLib::PlayEffect(key);
    modSoundLib::PlayAnimalEffect("OVERPOT");  // animals off
    modGlobal::gbAnimalsOn = true;
    modSoundLib::PlayAnimalEffect("PLAYCARD");
    modGlobal::gbSoundOn = false;
    modSoundLib::PlayEffect("PLAYCARD");
    modSoundLib::PlaySoundFile("PENGUINSOUNDS", false, false);
    modSoundLib::PlayAnimalEffect("OVERPLAYER2");  // animals speak with the sound off
    const auto owlWave = platform::LoadResData(112, "WAVE");
    const auto owl = platform::audio::DecodeWave(owlWave.data(), owlWave.size(), kRate);
    ASSERT_TRUE(owl);
    const auto owlAudible = AudibleFrames(*owl);
    EXPECT_EQ(Heard(from, output.Frames() - from + 8 * kBuffer),
              std::vector<float>(owl->begin() + owlAudible.front(), owl->begin() + owlAudible.back() + 1));
}

// The program's one file sound is heard till a purge stops it. (A looped
// file sound, which the program never plays, isn't looked at.)
TEST_F(AudioDeviceTest, AFileSoundIsHeardTillAPurgeStopsIt) {
    modGlobal::gbSoundOn = true;
    constexpr float kSoft = 4000 / 32768.0f;
    platform::SetAppPath(dir.Path());
    WriteFile("PCluck.wav", test_sounds::ToneWave(300, 5000, 4000));
    EXPECT_EQ(platform::PlaySoundA(dir.File("missing.wav").c_str(), nullptr, platform::SND_ASYNC), 0);

    const std::size_t start = output.Frames();
    modSoundLib::PlaySoundFile("PENGUINSOUNDS", false, false);
    const std::size_t penguinsHeard = WaitForLevel(start, kSoft);
    modSoundLib::StopSounds();
    const std::size_t stopped = output.Frames();

    const auto audible = AudibleFrames(output.From(penguinsHeard, stopped - penguinsHeard + kRate / 4));
    ASSERT_FALSE(audible.empty());
    EXPECT_LE(penguinsHeard + audible.back(), stopped + 4 * kBuffer);  // and the penguins stop
}

// Files that can't be played, or no sound font, are errors; a tune that
// opens is heard, and its position stays at its length after its end.
TEST_F(AudioDeviceTest, ATuneIsHeardAndStaysAtItsLengthAndWhatCantBePlayedIsAnError) {
    const auto open = [](const std::string& file) { return Send("Open \"" + file + "\" Alias MIDIfile"); };
    EXPECT_EQ(open(dir.File("none.mid")), platform::MCIERR_FILE_NOT_FOUND);
    EXPECT_EQ(open(WriteFile("text.mid", {'M', 'T', 'h', 'd', 'o', 'o', 'p', 's'})), platform::MCIERR_INVALID_FILE);
    const std::string tune = WriteFile("short.mid", test_sounds::OneNoteMidi(500000, 480));
    platform::SetSoundFontPath(dir.File("no-such-font.sf2"));
    EXPECT_EQ(open(tune), platform::MCIERR_SEQ_NOMIDIPRESENT);
    platform::SetSoundFontPath(std::nullopt);
    ASSERT_EQ(open(tune), 0u);
    std::string length;
    ASSERT_EQ(Send("Status MIDIfile Length", &length), 0u);
    EXPECT_EQ(length, "500");
    EXPECT_EQ(open(tune), platform::MCIERR_DUPLICATE_ALIAS);
    EXPECT_EQ(Send("Play OtherAlias"), platform::MCIERR_INVALID_DEVICE_NAME);

    const std::size_t mark = output.Frames();
    ASSERT_EQ(Send("play midifile"), 0u);
    EXPECT_TRUE(QTest::qWaitFor([] { return Position() == 500; }, 10000));
    EXPECT_FALSE(AudibleFrames(output.From(mark, kRate / 2)).empty());
    // Well after the end it stands there still.
    output.From(output.Frames(), kRate);
    EXPECT_EQ(Position(), 500);
    EXPECT_EQ(Send("Close MIDIfile"), 0u);
    EXPECT_EQ(Send("Close MIDIfile"), platform::MCIERR_INVALID_DEVICE_NAME);
}

// A tune longer than a 16-bit count of milliseconds: its length reads 0, and
// so does its position once past 32767, which the watch takes for the end.
TEST_F(AudioDeviceTest, ATuneBeyondSixteenBitsRestartsOncePastThem) {
    platform::SetAppPath(dir.Path());
    WriteFile("long.mid", test_sounds::OneNoteMidi(1000000, 40 * 480));
    struct : TuneForm {
        QWidget window;
        platform::PlatformTimer* tmrMidi = new platform::PlatformTimer(&window);
        QWidget& Window() override { return window; }
        platform::PlatformTimer& MidiTimer() override { return *tmrMidi; }
    } form;
    platform::PlatformTimer* tmrMidi = form.tmrMidi;
    tmrMidi->SetEnabled(false);
    tmrMidi->SetInterval(500);
    QObject::connect(tmrMidi, &platform::PlatformTimer::Timer, [&] { modGlobal::WatchTune(form, "long.mid"); });
    modGlobal::goMidi = std::make_unique<CMidiFile>();
    modGlobal::goMidi->SetEnabled(true);
    modGlobal::goMidi->SetLoopMusic(true);

    modGlobal::goMidi->Play(form, "long.mid");
    ASSERT_TRUE(modGlobal::goMidi->Active());
    EXPECT_EQ(modGlobal::goMidi->EndOfFile(), 0);
    EXPECT_TRUE(QTest::qWaitFor([] { return Position() > 1000; }, 5000));
    ASSERT_TRUE(tmrMidi->Fire());
    EXPECT_GT(Position(), 1000);  // no restart while the position fits
    ASSERT_TRUE(QTest::qWaitFor([] { return Position() > 32767; }, 60000));
    ASSERT_TRUE(tmrMidi->Fire());
    EXPECT_LT(Position(), 1000);  // started again
    EXPECT_TRUE(modGlobal::goMidi->Enabled());

    modGlobal::goMidi->StopPlay(form);
    EXPECT_FALSE(tmrMidi->Enabled() || modGlobal::goMidi->Active());
}

}  // namespace
