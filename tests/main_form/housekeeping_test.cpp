// The start-up's care of the installation, in folders of the test's own: the
// desktop's launchers, the question about the desktop and the older version.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPushButton>

#include <filesystem>
#include <sys/stat.h>

#include "engine/mod_global.h"
#include "platform/runtime/file_system.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"
#include "shell/f_copy_icon.h"
#include "shell/housekeeping.h"

namespace {

namespace fs = std::filesystem;

class HousekeepingTest : public ::testing::Test {
protected:
    TempDir home, program, desktop;
    platform::ScriptedResponder boxes;
    const std::string launcher = desktop.File("LANTERN! Dovrin v3.0.desktop");

    void SetUp() override {
        platform::SetOldDriveRoot(home.Path());
        platform::SetDesktopFolder(desktop.Path());
        platform::SetAppPath(program.Path());
        WriteBytes(program.File("LANTERN.lnx"), "[Desktop Entry]\n");
        modGlobal::gbCopyLink = true;
    }
    void TearDown() override {
        platform::SetOldDriveRoot(std::nullopt);
        platform::SetDesktopFolder(std::nullopt);
        platform::SetAppPath(std::nullopt);
    }
    void Answer(int button, bool tick) {
        FCopyIcon form;
        form.chkDontAsk->setChecked(tick);
        form.cmdYesNo[button]->click();
    }
};

TEST_F(HousekeepingTest, AnyLauncherWhoseNameBeginsWithTheProductCountsWhateverItsCase) {
    EXPECT_FALSE(modGlobal::HasDesktopShortcut());
    WriteBytes(desktop.File("lantern.txt"), "");
    EXPECT_FALSE(modGlobal::HasDesktopShortcut());
    WriteBytes(desktop.File("Lantern Extra.DESKTOP"), "");
    EXPECT_TRUE(modGlobal::HasDesktopShortcut());
}

// The tick counts for either answer; only Yes copies; the close box does nothing.
TEST_F(HousekeepingTest, TheQuestionCopiesTheLauncherOnYesAndTheTickEndsTheAsking) {
    Answer(1, false);
    EXPECT_TRUE(modGlobal::gbCopyLink);
    EXPECT_FALSE(fs::exists(launcher));
    {
        FCopyIcon form;
        form.chkDontAsk->setChecked(true);
        form.close();
    }
    EXPECT_TRUE(modGlobal::gbCopyLink);
    Answer(0, true);
    EXPECT_FALSE(modGlobal::gbCopyLink);
    EXPECT_EQ(ReadBytes(launcher), "[Desktop Entry]\n");
    struct stat status {};
    ASSERT_EQ(::stat(launcher.c_str(), &status), 0);
    EXPECT_TRUE(status.st_mode & S_IXUSR);
    EXPECT_TRUE(modGlobal::HasDesktopShortcut());
    EXPECT_TRUE(boxes.Boxes().empty());

    fs::remove(launcher);
    fs::remove(program.File("LANTERN.lnx"));
    modGlobal::CopyLinkToDeskTop();  // nothing beside the program: nothing said
    EXPECT_FALSE(fs::exists(launcher));
    EXPECT_TRUE(boxes.Boxes().empty());
}

TEST_F(HousekeepingTest, TheOlderVersionGoesWithItsOneLauncherOnlyWhenBothVersionsStandAndTheUserSaysYes) {
    const std::string older = home.File("Program Files/Lantern! Dovrin");
    fs::create_directories(older);
    WriteBytes(older + "/dovrin.exe", "old");
    WriteBytes(desktop.File("Lantern! Dovrin.desktop"), "");
    WriteBytes(desktop.File("Lantern Two.desktop"), "");
    modGlobal::RemoveOlderVersion();  // this version's folder isn't there
    EXPECT_TRUE(boxes.Boxes().empty());

    fs::create_directories(home.File("Program Files/LANTERN! Dovrin v3.0"));
    boxes.Answer(platform::kAnswerNo);
    modGlobal::RemoveOlderVersion();
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Boxes()[0].title, "Older Version");
    EXPECT_TRUE(fs::exists(older + "/dovrin.exe"));

    boxes.Answer(platform::kAnswerYes);
    modGlobal::RemoveOlderVersion();
    EXPECT_FALSE(fs::exists(older));
    EXPECT_FALSE(fs::exists(desktop.File("Lantern! Dovrin.desktop")));
    EXPECT_TRUE(fs::exists(desktop.File("Lantern Two.desktop")));
}

}  // namespace
