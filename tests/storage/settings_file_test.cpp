#include "storage/settings_file.h"

#include <unistd.h>

#include <array>
#include <optional>

#include "storage_fixture.h"

using namespace modGlobal;
using platform::ScriptedResponder;

namespace {

// The main form as the settings see it; menu entries not yet touched are nullopt.
class FakeSettingsForm : public storage::SettingsForm {
public:
    void SetOptionMenuVisible(int index, bool visible) override { menus.at(index) = visible; }
    bool MusicEnabled() const override { return music; }
    void SetMusicEnabled(bool enabled) override { music = enabled; }
    int WindowState() const override { return windowState; }
    void SetWindowState(int state) override { windowState = state; }

    std::array<std::optional<bool>, 7> menus;
    bool music = false;
    int windowState = -1;
};

class SettingsFileTest : public StorageTest {
protected:
    std::string IniFile() const { return app_.File("dovrin.ini"); }
    void WriteIni(const std::string& text) { WriteBytes(IniFile(), text); }

    FakeSettingsForm form_;
};

TEST_F(SettingsFileTest, AMissingFileGivesOneWarningAndAllTheDefaults) {
    glAnimSpeed = 5;
    gsDbPath = "/elsewhere";
    storage::LoadSettings(form_);

    const auto& events = responder_.Events();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[0].kind, ScriptedResponder::Event::Beep);
    EXPECT_EQ(events[1].text, IniFile() + " not found!\r\nLoading DOVRIN using defaults.");
    EXPECT_EQ(events[1].title, "The Dovrin Game");
    EXPECT_EQ(events[1].style, platform::kExclamation);

    EXPECT_EQ(gsDbPath, app_.Path());
    EXPECT_EQ(glLastUserId, 0);
    EXPECT_EQ(form_.windowState, 0);
    EXPECT_FALSE(gbAnimalsOn);
    EXPECT_TRUE(form_.music);
    EXPECT_TRUE(gbSoundOn);
    EXPECT_EQ(glAnimSpeed, 80000);
    const std::array<std::optional<bool>, 7> menus = {true, false, std::nullopt, false, true, false, true};
    EXPECT_EQ(form_.menus, menus);
}

TEST_F(SettingsFileTest, AnExistingFileHasNoDefaultsPerKey) {
    WriteIni("[Options]\r\n");
    storage::LoadSettings(form_);
    EXPECT_TRUE(responder_.Events().empty());
    EXPECT_EQ(gsDbPath, "");
    EXPECT_EQ(glAnimSpeed, 0);
    EXPECT_FALSE(gbSoundOn);
    EXPECT_FALSE(gbAnimalsOn);
    EXPECT_EQ(form_.windowState, -1);
    EXPECT_EQ(form_.menus, (std::array<std::optional<bool>, 7>{}));
}

TEST_F(SettingsFileTest, ReadsEachKeyByItsRules) {
    form_.music = true;
    WriteIni(
        "[Options]\r\n"
        "user_id=12abc\r\n"
        "db_path=APPPATH\r\n"
        "maxform=1\r\n"
        "soundon=True\r\n"
        "animspd=2.5\r\n"
        "animals_x = TRUE \r\n"
        "musicon=true\r\n"
        " soundon=TRUE\r\n"
        "SOUNDON=TRUE\r\n"
        "copylnk=TRUE\r\n");
    storage::LoadSettings(form_);
    EXPECT_TRUE(responder_.Events().empty());
    EXPECT_EQ(glLastUserId, 12);
    EXPECT_EQ(glUserId, 0);
    EXPECT_EQ(gsDbPath, app_.Path());
    EXPECT_EQ(form_.windowState, -1);  // maxform is never read back
    EXPECT_FALSE(gbSoundOn);           // only "TRUE" is true
    EXPECT_EQ(glAnimSpeed, 2000);      // 2.5 rounds to the even 2 before the factor
    EXPECT_TRUE(gbAnimalsOn);          // the key is the first seven characters
    EXPECT_FALSE(form_.music);
    EXPECT_FALSE(gbCopyLink);  // not a key of this reader
    const std::array<std::optional<bool>, 7> menus = {false, true, std::nullopt, true, false, true, false};
    EXPECT_EQ(form_.menus, menus);
}

TEST_F(SettingsFileTest, ValuesFollowTheFirstEqualsSignAndALaterLineWins) {
    WriteIni(
        "user_id=abc\n"
        "user_id = 7\n"
        "animspd=40\n"
        "db_path=apppath\n"
        "animspd=x=3\n"
        "soundon\n");
    storage::Ini_Load(IniFile(), form_);
    EXPECT_EQ(glLastUserId, 7);
    EXPECT_EQ(gsDbPath, "apppath");  // only the capitals are the symbol
    EXPECT_EQ(glAnimSpeed, 0);
    EXPECT_FALSE(gbSoundOn);
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(SettingsFileTest, AConversionErrorIsToldAndReadingGoesOn) {
    glAnimSpeed = 5000;
    glLastUserId = 3;
    WriteIni("animspd=3000000\r\nuser_id=1e12\r\nsoundon=TRUE\r\nanimspd=80\r\n");
    storage::Ini_Load(IniFile(), form_);
    const auto boxes = responder_.Boxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(responder_.BeepCount(), 2);
    EXPECT_EQ(boxes[0].text, "Overflow");
    EXPECT_EQ(boxes[0].title, "Ini File");
    EXPECT_EQ(boxes[0].style, platform::kExclamation);
    EXPECT_EQ(glLastUserId, 3);
    EXPECT_TRUE(gbSoundOn);
    EXPECT_EQ(glAnimSpeed, 80000);
}

TEST_F(SettingsFileTest, SaveWritesNineLinesWithCrLf) {
    glUserId = 42;
    glLastUserId = 7;
    gsDbPath = "  /games/data  ";
    form_.windowState = 2;
    gbSoundOn = true;
    glAnimSpeed = 80999;
    gbCopyLink = false;
    gbAnimalsOn = true;
    form_.music = false;
    storage::Ini_Save(form_);
    EXPECT_EQ(ReadBytes(IniFile()),
              "[Options]\r\nuser_id=42\r\ndb_path=/games/data\r\nmaxform=1\r\nsoundon=TRUE\r\nanimspd=80\r\n"
              "copylnk=FALSE\r\nanimals=TRUE\r\nmusicon=FALSE\r\n");

    form_.windowState = 0;
    gbSoundOn = false;
    glAnimSpeed = -1500;
    gbCopyLink = true;
    gbAnimalsOn = false;
    form_.music = true;
    glUserId = 0;
    gsDbPath.clear();
    storage::Ini_Save(form_);
    EXPECT_EQ(ReadBytes(IniFile()),
              "[Options]\r\nuser_id=0\r\ndb_path=\r\nmaxform=0\r\nsoundon=FALSE\r\nanimspd=-1\r\n"
              "copylnk=TRUE\r\nanimals=FALSE\r\nmusicon=TRUE\r\n");
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(SettingsFileTest, TheDeliveredFileResolvesToTheRealDirectoryAtTheNextSave) {
    Deliver("dovrin.ini", app_.Path());
    EXPECT_EQ(ReadBytes(IniFile()),
              "[Options]\r\nuser_id=0\r\ndb_path=APPPATH\r\nmaxform=0\r\nsoundon=TRUE\r\nanimspd=80\r\n"
              "copylnk=TRUE\r\nanimals=FALSE\r\nmusicon=TRUE\r\n");
    storage::LoadSettings(form_);
    EXPECT_EQ(gsDbPath, app_.Path());
    EXPECT_EQ(glAnimSpeed, 80000);
    EXPECT_TRUE(gbSoundOn);
    EXPECT_TRUE(form_.music);
    EXPECT_FALSE(gbAnimalsOn);
    storage::Ini_Save(form_);
    EXPECT_NE(ReadBytes(IniFile()).find("\r\ndb_path=" + app_.Path() + "\r\n"), std::string::npos);
    EXPECT_TRUE(responder_.Events().empty());
}

// A save that can't open its file tells every statement that fails after it.
void ExpectOneMessagePerFailingStatement(const ScriptedResponder& responder, const std::string& openError) {
    const auto boxes = responder.Boxes();
    ASSERT_EQ(boxes.size(), 10u);
    EXPECT_EQ(responder.BeepCount(), 10);
    EXPECT_EQ(boxes[0].text, openError);
    for (std::size_t i = 1; i < boxes.size(); ++i) EXPECT_EQ(boxes[i].text, "Bad file name or number");
    for (const auto& box : boxes) {
        EXPECT_EQ(box.title, "Ini Save Error");
        EXPECT_EQ(box.style, platform::kExclamation);
    }
}

TEST_F(SettingsFileTest, ASaveThatCantOpenItsFileTellsEachFailingStatement) {
    std::filesystem::create_directory(IniFile());
    storage::Ini_Save(form_);
    ExpectOneMessagePerFailingStatement(responder_, "Path/File access error");
}

TEST_F(SettingsFileTest, ASaveOverAReadOnlyFileTellsEachFailingStatement) {
    if (::geteuid() == 0) GTEST_SKIP() << "file permissions don't bind the superuser";
    WriteIni("[Options]\r\n");
    std::filesystem::permissions(IniFile(), std::filesystem::perms::owner_read);
    storage::Ini_Save(form_);
    ExpectOneMessagePerFailingStatement(responder_, "Permission denied");
    EXPECT_EQ(ReadBytes(IniFile()), "[Options]\r\n");
}

class CopyLinkOptionTest : public SettingsFileTest {
protected:
    void InstallHere() { platform::SetRegularInstallDirs({{"/opt/nowhere", platform::UCase(app_.Path())}}); }
    bool Read(bool& noUser) { return ReadCopyLinkOption(noUser); }
};

TEST_F(CopyLinkOptionTest, OutsideTheInstallDirectoriesNoFileIsRead) {
    WriteIni("copylnk=TRUE\r\nuser_id=0\r\n");
    bool noUser = false;
    EXPECT_FALSE(Read(noUser));
    EXPECT_FALSE(noUser);
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(CopyLinkOptionTest, InsideOnlyTheKeyIsFoldedToCapitals) {
    InstallHere();  // compared in capitals, so the case of the directory doesn't matter
    bool noUser = false;
    EXPECT_FALSE(Read(noUser));  // no file

    WriteIni("[Options]\r\nuser_id=0\r\n");
    EXPECT_TRUE(Read(noUser));  // no copylnk line
    EXPECT_TRUE(noUser);

    WriteIni("COPYLNK=TRUE\r\nUser_Id=5\r\n");
    EXPECT_TRUE(Read(noUser));
    EXPECT_FALSE(noUser);

    WriteIni("copylnk=TRUE\r\nCopylnk=true\r\n");
    EXPECT_FALSE(Read(noUser));

    WriteIni("copylnk=TRUE\r\nuser_id=0.5\r\n");
    noUser = true;
    EXPECT_TRUE(Read(noUser));
    EXPECT_FALSE(noUser);  // the numeric value, unrounded, isn't 0
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(CopyLinkOptionTest, AnErrorIsToldWithoutABeepAndGivesFalse) {
    InstallHere();
    WriteIni("copylnk=TRUE\r\nuser_id=1e999\r\n");
    bool noUser = false;
    EXPECT_FALSE(Read(noUser));
    ASSERT_EQ(responder_.Events().size(), 1u);
    EXPECT_EQ(responder_.Events()[0].text, "Overflow");
    EXPECT_EQ(responder_.Events()[0].title, "Ini File");
    EXPECT_EQ(responder_.BeepCount(), 0);
}

}  // namespace
