// FSendScore's copy of the database file to the outbox under the home
// folder, and the web address on the information forms.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include <sys/stat.h>

#include "engine/mod_global.h"
#include "platform/display/click_label.h"
#include "platform/display/shell_execute.h"
#include "platform/runtime/file_system.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"
#include "screens/f_contact.h"
#include "screens/f_distribute.h"
#include "screens/f_send_score.h"

using platform::kCrLf;

namespace {

class SendScoreTest : public ::testing::Test {
protected:
    TempDir home, program;
    platform::ScriptedResponder boxes;
    std::string outbox = home.Path() + "/EMAIL/OUT";

    void SetUp() override {
        platform::SetOldDriveRoot(home.Path());
        modGlobal::gsDbPath = program.Path();
        WriteBytes(program.File("Lantern.mdb"), "records");
    }
    void TearDown() override { platform::SetOldDriveRoot(std::nullopt); }

    platform::ScriptedResponder::Event Copy() {
        FSendScore form;
        form.cmdCopyScore->click();
        const auto shown = boxes.Boxes();
        return shown.empty() ? platform::ScriptedResponder::Event{} : shown.back();
    }
    std::string Refusal() const {
        return std::string("Unable to copy database file...") + kCrLf + platform::UCase(program.File("Lantern.mdb")) +
               kCrLf + kCrLf + "To destination directory..." + kCrLf + outbox;
    }
};

TEST_F(SendScoreTest, CopiesIntoAnOutboxItMakesAndNamesTheRealFolder) {
    const auto box = Copy();
    EXPECT_EQ(box.title, "File Successfully Copied");
    EXPECT_EQ(box.style, platform::kInformation);
    EXPECT_EQ(box.text, "Lantern.mdb copied to " + outbox + "." + kCrLf + kCrLf + "Send as attachment to your email.");
    EXPECT_EQ(ReadBytes(outbox + "/Lantern.mdb"), "records");
}

TEST_F(SendScoreTest, ReplacesAnEarlierCopyWhateverItsCaseButNotAReadOnlyOne) {
    std::filesystem::create_directories(outbox);
    WriteBytes(outbox + "/LANTERN.MDB", "old");
    EXPECT_EQ(Copy().title, "File Successfully Copied");
    EXPECT_FALSE(std::filesystem::exists(outbox + "/LANTERN.MDB"));
    EXPECT_EQ(ReadBytes(outbox + "/Lantern.mdb"), "records");

    ::chmod((outbox + "/Lantern.mdb").c_str(), 0444);
    WriteBytes(program.File("Lantern.mdb"), "newer");
    const auto box = Copy();
    EXPECT_EQ(box.title, "Copy Database File");
    EXPECT_EQ(box.style, platform::kExclamation);
    EXPECT_EQ(box.text, Refusal());
    EXPECT_EQ(ReadBytes(outbox + "/Lantern.mdb"), "records");
}

// The mail folder without its outbox: the first of the two folders it
// makes is there already, and that error ends the copy.
TEST_F(SendScoreTest, AMailFolderWithoutItsOutboxStopsTheCopy) {
    std::filesystem::create_directories(home.Path() + "/EMAIL");
    EXPECT_EQ(Copy().text, Refusal());
    EXPECT_FALSE(std::filesystem::exists(outbox));
}

TEST_F(SendScoreTest, NoDatabaseFileMakesNoFolders) {
    std::filesystem::remove(program.File("Lantern.mdb"));
    EXPECT_EQ(Copy().text, Refusal());
    EXPECT_FALSE(std::filesystem::exists(home.Path() + "/EMAIL"));
}

TEST(InformationFormsTest, TheWebAddressOpensTheGuideBesideTheProgram) {
    TempDir program;
    platform::SetAppPath(program.Path());
    std::vector<QUrl> opened;
    platform::SetDocumentOpener([&](const QUrl& url) {
        opened.push_back(url);
        return true;
    });
    FSendScore sendScore;
    QTest::mouseClick(sendScore.lblOpenWebPage, Qt::LeftButton);
    platform::SetDocumentOpener({});
    platform::SetAppPath(std::nullopt);
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0], QUrl::fromLocalFile(QString::fromStdString(program.File("guide.html"))));

    // The other forms show the same address, and the contact form keeps
    // its doubled word.
    EXPECT_EQ(FDistribute().lblDistribute4->text(), sendScore.lblOpenWebPage->text());
    FContact contact;
    EXPECT_EQ(contact.lblContact[6]->text(), sendScore.lblOpenWebPage->text());
    EXPECT_EQ(contact.lblContact[0]->text() + contact.lblContact[1]->text(),
              QStringLiteral("You can always contact us.  We welcome your your comments and suggestions."));
}

}  // namespace
