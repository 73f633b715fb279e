// The program's entry: settles where the program's files lie, measures the
// screen, looks after the installation (an older version, a launcher on the
// desktop), and shows the main form, whose events then carry the run.
#include <cstdlib>
#include <optional>

#include <QScreen>
#include <QTextStream>

#include "engine/mod_global.h"
#include "platform/display/program_application.h"
#include "platform/display/zoom.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/program_place.h"
#include "platform/runtime/runtime.h"
#include "shell/f_copy_icon.h"
#include "shell/f_dovrin.h"
#include "shell/housekeeping.h"
#include "storage/settings_file.h"

#ifdef DOVRIN_STACKED_DEAL
namespace {

// A test build plays one deal again and again, to reach what chance rarely
// gives, such as a win of $500.
void StackTheDeck() {
    static std::optional<modGlobal::StackedDeckRandom> stacked;
    const char* order = std::getenv("DOVRIN_DEAL");
    if (!order) return;
    if (const auto cards = modGlobal::ParseDeckOrder(order)) {
        stacked.emplace(*cards);
        modGlobal::SetDeckSource(&*stacked);
    }
}

}  // namespace
#endif

namespace {

// The zoom of this run: the command line's, else the user's kept choice.
void StartZoom() {
    QString error;
    const std::optional<platform::ZoomChoice> forThisRun =
        platform::ZoomArgument(QCoreApplication::arguments(), error);
    if (!error.isEmpty()) QTextStream(stderr) << "dovrin: " << error << Qt::endl;
    platform::StartZoom(forThisRun.value_or(platform::ReadZoomChoice()), FDovrin::DesignSize());
}

}  // namespace

int main(int argc, char** argv) {
#ifdef DOVRIN_STACKED_DEAL
    StackTheDeck();
#endif
    platform::PreferX11Platform();
    platform::ProgramApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lantern! Dovrin"));
    QApplication::setDesktopFileName(QStringLiteral("com.example.LanternDovrin"));
    // An installed program keeps each user's files in a folder of their own.
    if (const std::string failure = platform::SettleProgramPlace(); !failure.empty()) {
        platform::MsgBox(failure, platform::kExclamation, "LANTERN! Dovrin");
        return 1;
    }
    try {
        const QSize screen = QGuiApplication::primaryScreen()->geometry().size();
        modGlobal::gbMaximize = screen.width() == 640 && screen.height() == 480;
        StartZoom();
        modGlobal::gsWordPadPath = "/usr/bin/xdg-open";
        bool noUser = false;
        modGlobal::gbCopyLink = modGlobal::ReadCopyLinkOption(noUser);
        if (noUser) modGlobal::RemoveOlderVersion();
        // Asking for the desktop folder starts a process: only when it matters.
        if (modGlobal::gbCopyLink && modGlobal::OnDesktopFolderPlatform() && !modGlobal::HasDesktopShortcut()) {
            FCopyIcon copyIcon;
            copyIcon.exec();
        }
    } catch (const platform::RuntimeError& error) {
        platform::MsgBox(std::to_string(error.Number()) + ": " + error.Description(),
                         platform::kExclamation, "Dovrin (Sub Main)");
        return 0;
    }
    auto* form = new FDovrin;
    form->setAttribute(Qt::WA_DeleteOnClose);
    platform::InstallZoomKeys(*form);
    form->Form_Load();
    form->show();
    return QApplication::exec();
}
