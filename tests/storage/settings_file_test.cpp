#include "storage/settings_file.h"

#include <optional>

#include "storage_fixture.h"
#include "support/recording_main_form.h"

using namespace modGlobal;
using platform::kExclamation;

namespace {

class SettingsFileTest : public StorageTest {
protected:
    std::string IniFile() const { return app_.File("dovrin.ini"); }
    void WriteIni(const std::string& text) { WriteBytes(IniFile(), text); }

    // Everything a load may set; the menu entries as T (shown), F (hidden) or - (untouched).
    std::string Loaded() const {
        std::string menus;
        for (const auto& menu : form_.menus) menus += menu ? (*menu ? 'T' : 'F') : '-';
        return "ids " + std::to_string(glUserId) + "/" + std::to_string(glLastUserId) + ", path " + gsDbPath +
               ", window " + std::to_string(form_.windowState) + ", sound " + std::to_string(gbSoundOn) +
               ", speed " + std::to_string(glAnimSpeed) + ", animals " + std::to_string(gbAnimalsOn) +
               ", music " + std::to_string(form_.music) + ", copylnk " + std::to_string(gbCopyLink) +
               ", menus " + menus;
    }

    void ResetForm() {
        form_.menus = {};
        form_.music = false;
        form_.windowState = -1;
    }

    RecordingMainForm form_;
};

// A missing file gives one warning and all the defaults. A conversion error
// is told with a beep, and the value it was for kept.
TEST_F(SettingsFileTest, EachKeyIsReadByItsRulesAKeyNotInTheFileKeepsItsValueAndReadingGoesOnPastAnError) {
    const std::vector<std::pair<std::optional<std::string>, std::string>> cases = {
        {std::nullopt, "ids 0/0, path " + app_.Path() +
                           ", window 0, sound 1, speed 80000, animals 0, music 1, copylnk 0, menus TF-FTFT"},
        {"[Options]\r\n"
         "user_id=12abc\r\n"
         "db_path=APPPATH\r\n"
         "maxform=1\r\n"          // never read back
         "soundon=True\r\n"       // only "TRUE" is true
         "animspd=2.5\r\n"        // rounds to the even 2 before the factor
         "animals_x = TRUE \r\n"  // the key is the first seven characters
         "musicon=true\r\n"
         " soundon=TRUE\r\n"
         "SOUNDON=TRUE\r\n"
         "copylnk=TRUE\r\n",  // not a key of this reader
         "ids 0/12, path " + app_.Path() +
             ", window -1, sound 0, speed 2000, animals 1, music 0, copylnk 0, menus FT-TFTF"},
        // The value follows the first equals sign, a later line wins, a line
        // may end in LF or CR alone, and only the capitals are the symbol of
        // the program's directory.
        {"user_id=abc\nuser_id = 7\nanimspd=40\rdb_path=apppath\nanimspd=x=3\nsoundon\n",
         "ids 0/7, path apppath, window -1, sound 0, speed 0, animals 0, music 0, copylnk 0, menus -----TF"},
        {"user_id=7\r\nanimspd=3000000\r\nuser_id=1e12\r\nsoundon=TRUE\r\nanimspd=80\r\nmusicon=TRUE\r\n",
         "ids 0/7, path , window -1, sound 1, speed 80000, animals 0, music 1, copylnk 0, menus ---FTFT"},
    };
    for (const auto& [ini, loaded] : cases) {
        SCOPED_TRACE(ini.value_or("no file"));
        ResetGlobals();
        ResetForm();
        if (ini) WriteIni(*ini);
        storage::LoadSettings(form_);
        EXPECT_EQ(Loaded(), loaded);
        std::filesystem::remove(IniFile());
    }
    const Box overflow{"Ini File", kExclamation, "Overflow"};
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"The Dovrin Game", kExclamation,
                                          IniFile() + " not found!\r\nLoading DOVRIN using defaults."},
                                         overflow, overflow}));
    EXPECT_EQ(responder_.BeepCount(), 3);
}

TEST_F(SettingsFileTest, SaveWritesNineLinesWithCrLfOverWhatWasThere) {
    glUserId = 42;
    glLastUserId = 7;  // not what is written
    gsDbPath = "  /games/data  ";
    form_.windowState = 2;
    gbSoundOn = gbAnimalsOn = true;
    glAnimSpeed = 80999;
    form_.music = true;
    storage::Ini_Save(form_);
    EXPECT_EQ(ReadBytes(IniFile()),
              "[Options]\r\nuser_id=42\r\ndb_path=/games/data\r\nmaxform=1\r\nsoundon=TRUE\r\nanimspd=80\r\n"
              "copylnk=FALSE\r\nanimals=TRUE\r\nmusicon=TRUE\r\n");

    ResetGlobals();
    ResetForm();
    glAnimSpeed = -1500;
    gbCopyLink = true;
    storage::Ini_Save(form_);
    EXPECT_EQ(ReadBytes(IniFile()),
              "[Options]\r\nuser_id=0\r\ndb_path=\r\nmaxform=0\r\nsoundon=FALSE\r\nanimspd=-1\r\n"
              "copylnk=TRUE\r\nanimals=FALSE\r\nmusicon=FALSE\r\n");
    EXPECT_TRUE(responder_.Events().empty());
}

TEST_F(SettingsFileTest, ASaveThatCantOpenItsFileTellsEachStatementThatFailsAfterIt) {
    std::filesystem::create_directory(IniFile());
    storage::Ini_Save(form_);
    std::vector<Box> expected{{"Ini Save Error", kExclamation, "Path/File access error"}};
    expected.insert(expected.end(), 9, {"Ini Save Error", kExclamation, "Bad file name or number"});
    EXPECT_EQ(Boxes(), expected);
    EXPECT_EQ(responder_.BeepCount(), 10);
}

// The directories are compared in capitals, so their case doesn't matter. An
// error is told without a beep.
TEST_F(SettingsFileTest, OnlyInsideTheInstallDirectoriesIsTheCopyLinkOptionReadAndOnlyItsKeysFolded) {
    struct Case {
        bool installed;
        const char* ini;  // nullptr: no file
        bool noUserBefore, result, noUser;
    };
    for (const Case& c : std::vector<Case>{{false, "copylnk=TRUE\r\nuser_id=0\r\n", false, false, false},
                                           {true, "copylnk=TRUE\r\nuser_id=0\r\n", false, true, true},
                                           {true, nullptr, true, false, true},
                                           {true, "COPYLNK=TRUE\r\nUser_Id=5\r\n", true, true, false},
                                           {true, "copylnk=TRUE\r\nCopylnk=true\r\n", true, false, true},
                                           // No copylnk line; the numeric value, unrounded, isn't 0.
                                           {true, "[Options]\r\nuser_id=0.5\r\n", true, true, false},
                                           {true, "copylnk=TRUE\r\nuser_id=1e999\r\n", false, false, false}}) {
        SCOPED_TRACE(c.ini ? c.ini : "no file");
        if (c.installed) platform::SetRegularInstallDirs({{"/opt/nowhere", platform::UCase(app_.Path())}});
        std::filesystem::remove(IniFile());
        if (c.ini) WriteIni(c.ini);
        bool noUser = c.noUserBefore;
        EXPECT_EQ(ReadCopyLinkOption(noUser), c.result);
        EXPECT_EQ(noUser, c.noUser);
    }
    EXPECT_EQ(Boxes(), (std::vector<Box>{{"Ini File", kExclamation, "Overflow"}}));
    EXPECT_EQ(responder_.BeepCount(), 0);
}

}  // namespace
