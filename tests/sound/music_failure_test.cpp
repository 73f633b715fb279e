// Music on a machine where no audio device opens: the first tune fails at
// its open, and the program goes on without music, having said so once.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include "platform/audio/mci_command.h"
#include "shell/f_dovrin.h"
#include "sound/f_midi_err.h"
#include "sound/mod_global_music.h"
#include "sound/mod_sound_lib.h"
#include "storage/storage_fixture.h"

namespace {

class MusicFailureTest : public DeliveredDbTest {
protected:
    int midiErrShown = 0;
    QTimer okPresser;

    void SetUp() override {
        ::setenv("SDL_AUDIODRIVER", "no-such-driver", 1);
        DeliveredDbTest::SetUp();
        Deliver("dovrin.ini", app_.Path());
        std::filesystem::copy_file(std::string(DOVRIN_PROGRAM_DIR) + "/Circus.mid", app_.File("Circus.mid"));
        // Presses OK on each music error form that shows.
        QObject::connect(&okPresser, &QTimer::timeout, [this] {
            if (auto* form = qobject_cast<FMidiErr*>(QApplication::activeModalWidget())) {
                ++midiErrShown;
                form->cmdOK->click();
            }
        });
        okPresser.start(10);
    }
    std::vector<std::string> ErrorLog() { return Rows("SELECT * FROM errorlog", {"action", "message"}); }
};

// Once off, the music tries nothing more; and the win's wave, which lasts
// seconds, isn't waited for without a device.
TEST_F(MusicFailureTest, TheFirstTuneFailsOnceAndTheMusicStaysOffIntoTheSettings) {
    FDovrin form;
    form.Form_Load();
    ASSERT_TRUE(modGlobal::goMidi->Enabled());  // musicon=TRUE as delivered
    ASSERT_TRUE(form.mnuOption[4]->isVisible());

    // What the fanfare of a high score does.
    modGlobal::goMidi->Play(form, "Circus.mid");
    EXPECT_FALSE(modGlobal::goMidi->Enabled() || modGlobal::goMidi->Active());
    modGlobal::MusicFailed(form);

    EXPECT_EQ(midiErrShown, 1);
    EXPECT_FALSE(form.tmrMidi->Enabled());
    // "Turn &Music On" is offered, "Turn M&usic Off" not.
    EXPECT_EQ(std::pair(form.mnuOption[3]->isVisible(), form.mnuOption[4]->isVisible()), std::pair(true, false));
    const std::vector<std::string> logged{"Play|" + platform::MciErrorText(platform::MCIERR_SEQ_NOMIDIPRESENT)};
    EXPECT_EQ(ErrorLog(), logged);

    modGlobal::goMidi->Play(form, "Circus.mid");
    EXPECT_FALSE(modGlobal::goMidi->Active() || form.tmrMidi->Enabled());
    EXPECT_EQ(ErrorLog(), logged);
    modGlobal::gbSoundOn = true;
    const auto start = std::chrono::steady_clock::now();
    modSoundLib::PlayEffect("USERWON");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
    EXPECT_EQ(midiErrShown, 1);

    form.close();
    EXPECT_NE(ReadBytes(app_.File("dovrin.ini")).find("musicon=FALSE\r\n"), std::string::npos);
}

}  // namespace
