// Where the program's files lie: beside a build's executable, or in a user's
// own folder that an installed program fills from its share folder.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/runtime/file_system.h"
#include "platform/runtime/program_place.h"
#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"

namespace {

namespace fs = std::filesystem;

class ProgramPlaceTest : public ::testing::Test {
protected:
    TempDir prefix, data;
    std::string userFolder = data.Path() + "/lantern-dovrin";

    void SetUp() override { ::setenv("XDG_DATA_HOME", data.Path().c_str(), 1); }
    void TearDown() override {
        ::unsetenv("XDG_DATA_HOME");
        platform::SetAppPath(std::nullopt);
    }
    void Install() {
        fs::create_directories(prefix.File("bin"));
        fs::create_directories(prefix.File("share/lantern-dovrin"));
        WriteBytes(prefix.File("share/lantern-dovrin/dovrin.ini"), "delivered settings");
        WriteBytes(prefix.File("share/lantern-dovrin/Circus.mid"), "new tune");
        platform::SetAppPath(prefix.File("bin"));
    }
};

TEST_F(ProgramPlaceTest, ABuildKeepsItsFilesBesideTheExecutable) {
    platform::SetAppPath(prefix.Path());
    EXPECT_EQ(platform::SettleProgramPlace(), "");
    EXPECT_EQ(std::pair(platform::AppPath(), platform::ProgramInstalled()), std::pair(prefix.Path(), false));
    EXPECT_FALSE(fs::exists(userFolder));
    // No regular install directory: the old paths of the two name nothing.
    EXPECT_EQ(platform::OldPlatformPath("C:\\Program Files\\LANTERN! Dovrin v3.0"), "");
    EXPECT_EQ(platform::OldPlatformPath("C:\\MYPROGS\\LANTERN30\\dovrin.ini"), "");
}

// The user's own settings stay; what the user lacks arrives, a new version's
// tune among it.
TEST_F(ProgramPlaceTest, AnInstalledProgramFillsTheUsersFolderWithWhatItLacksOnly) {
    Install();
    fs::create_directories(userFolder);
    WriteBytes(userFolder + "/dovrin.ini", "my settings");
    EXPECT_EQ(platform::SettleProgramPlace(), "");
    EXPECT_EQ(std::pair(platform::AppPath(), platform::ProgramInstalled()), std::pair(userFolder, true));
    EXPECT_EQ(platform::RegularInstallDirs()[0], userFolder);
    // The old path of this version leads there, whatever its letter case;
    // the older version's, and a folder that only begins alike, by the drive.
    platform::SetOldDriveRoot(prefix.Path());
    EXPECT_EQ(platform::OldPlatformPath("C:\\PROGRAM FILES\\LANTERN! DOVRIN V3.0\\dovrin.ini"),
              userFolder + "/dovrin.ini");
    EXPECT_EQ(platform::OldPlatformPath("C:\\Program Files\\Lantern! Dovrin"), prefix.File("Program Files/Lantern! Dovrin"));
    EXPECT_EQ(platform::OldPlatformPath("C:\\Program Files\\LANTERN! Dovrin v3.01"),
              prefix.File("Program Files/LANTERN! Dovrin v3.01"));
    platform::SetOldDriveRoot(std::nullopt);
    EXPECT_EQ(ReadBytes(userFolder + "/dovrin.ini"), "my settings");
    EXPECT_EQ(ReadBytes(userFolder + "/Circus.mid"), "new tune");
}

TEST_F(ProgramPlaceTest, AUsersFolderThatCantBeMadeIsToldAndNothingMoves) {
    Install();
    WriteBytes(userFolder, "a file where the folder would be");
    const std::string message = platform::SettleProgramPlace();
    EXPECT_NE(message.find(userFolder), std::string::npos) << message;
    EXPECT_EQ(std::pair(platform::AppPath(), platform::ProgramInstalled()), std::pair(prefix.File("bin"), false));
    EXPECT_EQ(ReadBytes(userFolder), "a file where the folder would be");
}

}  // namespace
