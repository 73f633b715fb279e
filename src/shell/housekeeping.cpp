#include "shell/housekeeping.h"

#include <spawn.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>

#include "platform/runtime/file_system.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"

extern char** environ;

namespace modGlobal {

using platform::OldPlatformPath;

namespace {

void PassOver(const platform::RuntimeError&) {}

// A launcher on the desktop runs only once it is marked trusted where the
// desktop asks for that; without gio nothing needs it.
void MarkTrusted(const std::string& path) {
    const char* argv[] = {"gio", "set", path.c_str(), "metadata::trusted", "true", nullptr};
    pid_t child = 0;
    if (::posix_spawnp(&child, "gio", nullptr, nullptr, const_cast<char* const*>(argv), environ) == 0)
        ::waitpid(child, nullptr, 0);
}

}  // namespace

bool OnDesktopFolderPlatform() { return !platform::DesktopFolder().empty(); }

void RemoveOlderVersion() {
    if (!platform::DirExists(OldPlatformPath("C:\\Program Files\\LANTERN! Dovrin v3.0"))) return;
    const std::string older = OldPlatformPath("C:\\Program Files\\Lantern! Dovrin");
    if (!platform::DirExists(older)) return;
    const int answer = platform::MsgBox(std::string("Older version of LANTERN! Dovrin found!") + platform::kCrLf +
                                            "Do you wish to remove older version?",
                                        platform::kYesNo | platform::kQuestion, "Older Version");
    if (answer != platform::kAnswerYes) return;
    platform::ResumeNext([&] { platform::Kill(older + "/*.*"); }, PassOver);
    platform::ResumeNext([&] { platform::RmDir(older); }, PassOver);
    const std::string startMenu = OldPlatformPath("C:\\WINDOWS\\Start Menu\\Programs\\Oakmere Software\\Lantern*.lnk");
    platform::ResumeNext([&] { if (!platform::Dir(startMenu).empty()) platform::Kill(startMenu); }, PassOver);
    // Whatever the search finds, only the one launcher of the older version goes.
    platform::ResumeNext(
        [&] {
            if (!platform::Dir(OldPlatformPath("C:\\WINDOWS\\DESKTOP\\Lantern*.LNK")).empty())
                platform::Kill(OldPlatformPath("C:\\WINDOWS\\DESKTOP\\Lantern! Dovrin.LNK"));
        },
        PassOver);
}

// The search stops a letter short of the product word, as it always has. A
// search that fails counts as found, so that no question is put.
bool HasDesktopShortcut() {
    const std::string word(kProductWord);
    try {
        return !platform::Dir(OldPlatformPath("C:\\Windows\\Desktop\\" + word.substr(0, word.size() - 1) + "*.lnk"))
                    .empty();
    } catch (const platform::RuntimeError&) {
        return true;
    }
}

void CopyLinkToDeskTop() {
    try {
        const std::string source = platform::AppPath() + "/" + kProductWord + ".lnx";
        if (!platform::FileExists(source)) return;
        const std::string target = OldPlatformPath("C:\\WINDOWS\\DESKTOP\\LANTERN! Dovrin v3.0.LNK");
        platform::FileCopy(source, target);
        ::chmod(target.c_str(), 0755);
        MarkTrusted(target);
    } catch (const platform::RuntimeError& error) {
        platform::MsgBox(std::to_string(error.Number()) + ": " + error.Description(), platform::kOKOnly,
                         "CopyLinkToDeskTop");
    }
}

}  // namespace modGlobal
