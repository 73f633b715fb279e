// FSendScore's copy of the database file to the outbox under the home
// folder, and its web address, which opens the guide.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QUrl>

#include "engine/mod_global.h"
#include "platform/display/click_label.h"
#include "platform/display/shell_execute.h"
#include "platform/runtime/file_system.h"
#include "platform/runtime/runtime.h"
#include "runtime_temp_dir.h"
#include "screens/f_send_score.h"
#include "support/boxes.h"

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

    // The last box of a copy.
    Box Copy() {
        FSendScore form;
        form.cmdCopyScore->click();
        const auto shown = BoxesOf(boxes);
        return shown.empty() ? Box{} : shown.back();
    }
    Box Refusal() const {
        return {"Copy Database File", platform::kExclamation,
                std::string("Unable to copy database file...") + kCrLf + platform::UCase(program.File("Lantern.mdb")) +
                    kCrLf + kCrLf + "To destination directory..." + kCrLf + outbox};
    }
};

// The copy makes the outbox and names the real folder; it replaces an
// earlier copy whatever its case, but not a read-only one.
TEST_F(SendScoreTest, CopiesIntoAnOutboxItMakesAndReplacesAnEarlierCopyWhateverItsCaseButNotAReadOnlyOne) {
    const Box copied{"File Successfully Copied", platform::kInformation,
                     "Lantern.mdb copied to " + outbox + "." + kCrLf + kCrLf + "Send as attachment to your email."};
    EXPECT_EQ(Copy(), copied);
    EXPECT_EQ(ReadBytes(outbox + "/Lantern.mdb"), "records");

    std::filesystem::rename(outbox + "/Lantern.mdb", outbox + "/LANTERN.MDB");
    WriteBytes(program.File("Lantern.mdb"), "newer");
    EXPECT_EQ(Copy(), copied);
    EXPECT_FALSE(std::filesystem::exists(outbox + "/LANTERN.MDB"));
    EXPECT_EQ(ReadBytes(outbox + "/Lantern.mdb"), "newer");

    std::filesystem::permissions(outbox + "/Lantern.mdb", std::filesystem::perms::owner_read);
    WriteBytes(program.File("Lantern.mdb"), "newest");
    EXPECT_EQ(Copy(), Refusal());
    EXPECT_EQ(ReadBytes(outbox + "/Lantern.mdb"), "newer");
}

// Without a database file no folder is made; a mail folder without its
// outbox stops the copy, as the first of the two folders it makes is there.
TEST_F(SendScoreTest, NoDatabaseFileOrAMailFolderWithoutItsOutboxStopsTheCopy) {
    std::filesystem::remove(program.File("Lantern.mdb"));
    EXPECT_EQ(Copy(), Refusal());
    EXPECT_FALSE(std::filesystem::exists(home.Path() + "/EMAIL"));
    WriteBytes(program.File("Lantern.mdb"), "records");
    std::filesystem::create_directories(home.Path() + "/EMAIL");
    EXPECT_EQ(Copy(), Refusal());
    EXPECT_FALSE(std::filesystem::exists(outbox));
}

TEST_F(SendScoreTest, TheWebAddressOpensTheGuideBesideTheProgram) {
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
}

}  // namespace
