#include "platform/runtime/program_place.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

#include "platform/runtime/file_system.h"
#include "platform/runtime/runtime.h"

namespace platform {

namespace {

constexpr char kFolderName[] = "lantern-dovrin";
bool gInstalled = false;

bool IsFolder(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// mkdir -p: each missing folder of the path in turn.
void MakeFolders(const std::string& path) {
    for (std::size_t slash = path.find('/', 1); ; slash = path.find('/', slash + 1)) {
        const std::string part = path.substr(0, slash);
        if (!IsFolder(part) && ::mkdir(part.c_str(), 0755) != 0)
            throw RuntimeError(kErrPathFileAccess, part + ": " + std::strerror(errno));
        if (slash == std::string::npos) return;
    }
}

}  // namespace

std::string PerUserFolder() {
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg == '/') return std::string(xdg) + "/" + kFolderName;
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : "") + "/.local/share/" + kFolderName;
}

std::string InstalledShareFolder(const std::string& exeDirectory) {
    const auto slash = exeDirectory.rfind('/');
    const std::string folder = slash == std::string::npos ? std::string() : exeDirectory.substr(slash + 1);
    if (folder != "games" && folder != "bin") return {};
    const std::string share = exeDirectory.substr(0, slash) + "/share/" + kFolderName;
    return IsFolder(share) ? share : std::string();
}

void FillPerUserFolder(const std::string& shareFolder, const std::string& userFolder) {
    MakeFolders(userFolder);
    std::unique_ptr<DIR, int (*)(DIR*)> dir(::opendir(shareFolder.c_str()), ::closedir);
    if (!dir) throw RuntimeError(kErrPathNotFound, shareFolder + ": " + std::strerror(errno));
    while (const dirent* entry = ::readdir(dir.get())) {
        const std::string name = entry->d_name;
        struct stat status {};
        if (::stat((shareFolder + "/" + name).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
        if (::stat((userFolder + "/" + name).c_str(), &status) == 0) continue;  // the user's own stays
        try {
            FileCopy(shareFolder + "/" + name, userFolder + "/" + name);
        } catch (const RuntimeError& error) {
            throw RuntimeError(error.Number(), userFolder + "/" + name + ": " + error.Description());
        }
    }
}

std::string SettleProgramPlace() {
    gInstalled = false;
    const std::string share = InstalledShareFolder(AppPath());
    if (share.empty()) return {};
    const std::string userFolder = PerUserFolder();
    try {
        FillPerUserFolder(share, userFolder);
    } catch (const RuntimeError& error) {
        return std::string("LANTERN! Dovrin can't make the folder where it keeps your games:") + kCrLf + userFolder +
               kCrLf + kCrLf + error.Description() + kCrLf + kCrLf + "Nothing has been changed.";
    }
    gInstalled = true;
    SetAppPath(userFolder);
    return {};
}

bool ProgramInstalled() { return gInstalled; }

}  // namespace platform
