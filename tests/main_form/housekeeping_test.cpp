// The start-up's care of the installation, in folders of the test's own: the
// desktop's launchers, the question about the desktop and the older version.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPushButton>

#include <array>
#include <filesystem>

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
        platform::SetRegularInstallDirs(std::nullopt);
    }
    // Ticks the box or not, then presses a button, or with -1 the close box.
    void Answer(int button, bool tick) {
        FCopyIcon form;
        form.chkDontAsk->setChecked(tick);
        if (button < 0) form.close();
        else form.cmdYesNo[button]->click();
    }
};

// The tick counts for either answer; only Yes copies; the close box does
// nothing. Any launcher whose name begins with the product counts as one,
// whatever its case.
TEST_F(HousekeepingTest, TheQuestionCopiesTheLauncherOnYesAndTheTickEndsTheAsking) {
    Answer(1, false);
    EXPECT_TRUE(modGlobal::gbCopyLink);
    EXPECT_FALSE(modGlobal::HasDesktopShortcut());  // no launcher
    Answer(-1, true);
    EXPECT_TRUE(modGlobal::gbCopyLink);
    Answer(0, true);
    EXPECT_FALSE(modGlobal::gbCopyLink);
    EXPECT_EQ(ReadBytes(launcher), "[Desktop Entry]\n");
    EXPECT_NE(fs::status(launcher).permissions() & fs::perms::owner_exec, fs::perms::none);

    fs::remove(launcher);
    fs::remove(program.File("LANTERN.lnx"));
    modGlobal::CopyLinkToDeskTop();  // nothing beside the program: nothing said
    EXPECT_FALSE(fs::exists(launcher));
    EXPECT_TRUE(boxes.Boxes().empty());  // nor by the copy before
    WriteBytes(desktop.File("lantern.txt"), "");
    EXPECT_FALSE(modGlobal::HasDesktopShortcut());
    WriteBytes(desktop.File("Lantern Extra.DESKTOP"), "");
    EXPECT_TRUE(modGlobal::HasDesktopShortcut());

    // A desktop folder that can't be searched counts as holding one, so that
    // no question is put. (A loop of links: unreadable even to root.)
    const std::string loop = home.File("loop");
    fs::create_directory_symlink(loop, loop);
    platform::SetDesktopFolder(loop);
    EXPECT_THROW(platform::Dir(loop + "/*"), platform::RuntimeError);
    EXPECT_TRUE(modGlobal::HasDesktopShortcut());
}

TEST_F(HousekeepingTest, TheOlderVersionGoesWithItsOneLauncherOnlyWhenBothVersionsStandAndTheUserSaysYes) {
    const std::string older = home.File("Program Files/Lantern! Dovrin");
    fs::create_directories(older);
    WriteBytes(older + "/dovrin.exe", "old");
    WriteBytes(desktop.File("Lantern! Dovrin.desktop"), "");
    WriteBytes(desktop.File("Lantern Two.desktop"), "");
    // This version's home is the installed program's folder, the same that
    // the settings reader trusts.
    const std::string thisVersion = home.File("share/lantern-dovrin");
    platform::SetRegularInstallDirs(std::array<std::string, 2>{thisVersion, ""});
    fs::create_directories(home.File("Program Files/LANTERN! Dovrin v3.0"));
    modGlobal::RemoveOlderVersion();  // this version's folder isn't there
    EXPECT_TRUE(boxes.Boxes().empty());

    fs::create_directories(thisVersion);
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
