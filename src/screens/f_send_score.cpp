#include "screens/f_send_score.h"

#include <QPushButton>

#include "engine/mod_global.h"
#include "platform/display/click_label.h"
#include "platform/display/twips.h"
#include "platform/runtime/file_system.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "screens/info_form.h"
#include "screens/maker.h"

using platform::kCrLf;
using screens::LabelDesign;

namespace {

constexpr int kFormWidth = 5475;
constexpr int kFormHeight = 5310;
constexpr int kWebAddressRow = 4;

// The outbox of the mail program, as the old platform named it.
constexpr char kMailOutbox[] = "C:\\EMAIL\\OUT";
constexpr char kDatabaseName[] = "\\Lantern.mdb";

LabelDesign Line(const char* text, int top, bool bold = false) {
    return {QString::fromUtf8(text), QRect(180, top, 5115, 240), Qt::AlignCenter, 0, bold};
}

LabelDesign ListItem(const char* text, int top) {
    return {QString::fromUtf8(text), QRect(1500, top, 3795, 240), Qt::AlignLeft | Qt::AlignVCenter};
}

}  // namespace

FSendScore::FSendScore(QWidget* parent) : platform::ArtDialog(parent, kFormWidth, kFormHeight) {
    setWindowTitle(QStringLiteral("Submitting a Top Score..."));
    const std::array<LabelDesign, 13> labels = {{
        Line("Email your score to Oakmere Software.", 150, true),
        Line("If you are in the Top Ten scores received", 510),
        Line("for that month, you will be listed in our", 750),
        Line("International Top Ten List.", 990),
        Line(screens::kMakerWebAddress, 1320),
        Line("Send your email to:", 1680),
        Line(screens::kScoresMailAddress, 1920, true),
        Line("and include the following:", 2250),
        ListItem("1) Your name", 2550),
        ListItem("2) City / State / Country", 2790),
        ListItem("3) Your player name (eg. Batman)", 3030),
        ListItem("4) Your score", 3270),
        Line("please attach the file \"Lantern.mdb\" to verify score.", 3600),
    }};
    for (std::size_t index = 0; index < labels.size(); ++index) {
        if (index == kWebAddressRow) continue;
        lblSendScore[index] = screens::PlaceLabel(*this, labels[index]);
    }
    lblOpenWebPage = new platform::ClickLabel(labels[kWebAddressRow].text, this);
    lblOpenWebPage->setGeometry(platform::TwipsRect(1800, 1320, 1875, 240));
    lblOpenWebPage->setAlignment(Qt::AlignCenter);
    lblOpenWebPage->setCursor(Qt::PointingHandCursor);
    screens::ShowAsLink(*lblOpenWebPage);
    connect(lblOpenWebPage, &platform::ClickLabel::clicked, this, &FSendScore::OpenWebPage);

    cmdCopyScore = new QPushButton(QStringLiteral("Copy Lantern.mdb to... C:\\EMAIL\\OUT"), this);
    cmdCopyScore->setGeometry(platform::TwipsRect(900, 4020, 3675, 405));
    connect(cmdCopyScore, &QPushButton::clicked, this, &FSendScore::cmdCopyScore_Click);
    cmdSendScore = screens::PlaceClosingButton(*this, QStringLiteral("&Close"), QRect(2055, 4650, 1365, 405));
    Form_Load();
}

void FSendScore::Form_Load() { screens::LoadWithBackground(*this); }

void FSendScore::OpenWebPage() { screens::OpenWebPage(*this); }

// The old file system ignored letter case, so the upper-case name finds the
// file; it also shows in upper case in the failure message. Any run-time
// error in the steps gives that message: so a first make-directory that
// fails because only the outbox itself is missing stops the copy, as it did.
void FSendScore::cmdCopyScore_Click() {
    const std::string source = platform::UCase(modGlobal::gsDbPath + "/Lantern.mdb");
    const std::string oldTarget = std::string(kMailOutbox) + kDatabaseName;
    const std::string outbox = platform::OldPlatformPath(kMailOutbox);
    const std::string target = platform::OldPlatformPath(oldTarget);
    try {
        if (platform::FileExists(source)) {
            if (platform::FileExists(target)) {
                platform::Kill(target);
            } else if (!platform::DirExists(outbox)) {
                platform::MkDir(platform::OldPlatformPath(oldTarget.substr(0, 8)));
                platform::MkDir(platform::OldPlatformPath(oldTarget.substr(0, 12)));
            }
            platform::FileCopy(source, target);
            if (platform::FileExists(target)) {
                platform::MsgBox(std::string("Lantern.mdb copied to ") + outbox + "." + kCrLf + kCrLf +
                                     "Send as attachment to your email.",
                                 platform::kInformation, "File Successfully Copied");
                return;
            }
        }
    } catch (const platform::RuntimeError&) {
    }
    platform::MsgBox(std::string("Unable to copy database file...") + kCrLf + source + kCrLf + kCrLf +
                         "To destination directory..." + kCrLf + platform::OldPlatformPath(oldTarget.substr(0, 12)),
                     platform::kExclamation, "Copy Database File");
}
