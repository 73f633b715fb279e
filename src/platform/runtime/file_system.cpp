#include "platform/runtime/file_system.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/runtime.h"

namespace platform {

namespace {

std::optional<std::string> gOldDriveRoot;
std::optional<std::string> gDesktopFolder;

std::string HomeFolder() {
    if (gOldDriveRoot) return *gOldDriveRoot;
    const char* home = std::getenv("HOME");
    return home && *home ? home : "/";
}

bool Exists(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

bool SameIgnoringCase(std::string_view a, std::string_view b) { return UCase(a) == UCase(b); }

// The entry of directory whose name equals name but for letter case; the
// first in the directory's order when there are several.
std::optional<std::string> MatchInDirectory(const std::string& directory, const std::string& name) {
    std::unique_ptr<DIR, int (*)(DIR*)> dir(::opendir(directory.empty() ? "/" : directory.c_str()), ::closedir);
    if (!dir) return std::nullopt;
    while (const dirent* entry = ::readdir(dir.get()))
        if (SameIgnoringCase(entry->d_name, name)) return std::string(entry->d_name);
    return std::nullopt;
}

bool IsReadOnly(const struct stat& status) { return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0; }

bool StartsWithIgnoringCase(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && SameIgnoringCase(text.substr(0, start.size()), start);
}

// The wildcards of a directory search, without regard to letter case.
bool Matches(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") return true;  // every file, with an ending or without
    if (pattern.empty()) return name.empty();
    if (pattern.front() == '*')
        return Matches(name, pattern.substr(1)) || (!name.empty() && Matches(name.substr(1), pattern));
    if (name.empty()) return false;
    const bool same = pattern.front() == '?' || UCase(name.substr(0, 1)) == UCase(pattern.substr(0, 1));
    return same && Matches(name.substr(1), pattern.substr(1));
}

std::string AskedDesktopFolder() {
    std::string named;
    if (std::FILE* pipe = ::popen("xdg-user-dir DESKTOP 2>/dev/null", "r")) {
        char buffer[4096];
        while (std::fgets(buffer, sizeof buffer, pipe)) named += buffer;
        ::pclose(pipe);
    }
    while (!named.empty() && (named.back() == '\n' || named.back() == '\r')) named.pop_back();
    // Without a desktop of its own the tool names the home folder.
    if (!named.empty() && named != HomeFolder() && DirExists(named)) return named;
    const std::string usual = HomeFolder() + "/Desktop";
    return DirExists(usual) ? usual : std::string();
}

}  // namespace

std::string DesktopFolder() {
    if (!gDesktopFolder) gDesktopFolder = AskedDesktopFolder();
    return *gDesktopFolder;
}

void SetDesktopFolder(std::optional<std::string> folder) { gDesktopFolder = std::move(folder); }

std::string OldPlatformPath(std::string_view path) {
    struct Folder {
        std::string_view old;
        std::string here;
    };
    const auto installDirs = RegularInstallDirs();
    const Folder folders[] = {
        {"C:\\WINDOWS\\DESKTOP", DesktopFolder().empty() ? HomeFolder() + "/Desktop" : DesktopFolder()},
        {"C:\\WINDOWS\\Start Menu\\Programs", HomeFolder() + "/.local/share/applications"},
        // The home of this version, and the development path.
        {"C:\\PROGRAM FILES\\LANTERN! DOVRIN V3.0", installDirs[0]},
        {"C:\\MYPROGS\\LANTERN30", installDirs[1]},
    };
    std::string rest(path);
    if (rest.size() >= 4 && SameIgnoringCase(std::string_view(rest).substr(rest.size() - 4), ".lnk"))
        rest.replace(rest.size() - 4, 4, ".desktop");
    for (const Folder& folder : folders) {
        if (!StartsWithIgnoringCase(rest, folder.old)) continue;
        std::string tail = rest.substr(folder.old.size());
        if (!tail.empty() && tail.front() != '\\') continue;  // another folder that begins alike
        // A folder that has no place here names nothing.
        if (folder.here.empty()) return {};
        for (char& c : tail)
            if (c == '\\') c = '/';
        return folder.here + tail;
    }
    const bool onDrive = rest.size() >= 2 && rest[1] == ':' &&
                         ((rest[0] >= 'A' && rest[0] <= 'Z') || (rest[0] >= 'a' && rest[0] <= 'z'));
    if (onDrive) rest.erase(0, 2);
    for (char& c : rest)
        if (c == '\\') c = '/';
    if (!onDrive) return rest;
    const std::string home = HomeFolder();
    if (rest.empty() || rest == "/") return home;
    return (home == "/" ? "" : home) + (rest.front() == '/' ? rest : "/" + rest);
}

void SetOldDriveRoot(std::optional<std::string> folder) { gOldDriveRoot = std::move(folder); }

std::string FindIgnoringCase(const std::string& path) {
    if (path.empty() || Exists(path)) return path;
    std::string found = path.front() == '/' ? "" : ".";
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find('/', start);
        if (end == std::string::npos) end = path.size();
        const std::string part = path.substr(start, end - start);
        start = end + 1;
        if (part.empty()) continue;
        const std::string asWritten = found + "/" + part;
        if (Exists(asWritten)) {
            found = asWritten;
        } else if (const auto match = MatchInDirectory(found, part)) {
            found += "/" + *match;
        } else {
            return path;
        }
    }
    return path.front() == '/' ? found : found.substr(2);
}

bool DirExists(const std::string& path) {
    struct stat status {};
    return ::stat(FindIgnoringCase(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void MkDir(const std::string& path) {
    if (Exists(FindIgnoringCase(path))) Raise(kErrPathFileAccess);
    if (::mkdir(path.c_str(), 0777) == 0) return;
    Raise(errno == ENOENT ? kErrPathNotFound : kErrPathFileAccess);
}

std::vector<std::string> Dir(const std::string& pattern) {
    const auto slash = pattern.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : FindIgnoringCase(pattern.substr(0, slash));
    const std::string wanted = slash == std::string::npos ? pattern : pattern.substr(slash + 1);
    std::vector<std::string> names;
    std::unique_ptr<DIR, int (*)(DIR*)> dir(::opendir(folder.empty() ? "/" : folder.c_str()), ::closedir);
    if (!dir) {
        if (errno == ENOENT || errno == ENOTDIR) return names;
        Raise(kErrPathFileAccess);  // a folder that is there but can't be read
    }
    while (const dirent* entry = ::readdir(dir.get())) {
        struct stat status {};
        const std::string name = entry->d_name;
        if (Matches(name, wanted) && ::stat((folder + "/" + name).c_str(), &status) == 0 && S_ISREG(status.st_mode))
            names.push_back(name);
    }
    return names;
}

void Kill(const std::string& path) {
    if (path.find_first_of("*?", path.rfind('/') + 1) != std::string::npos) {
        const std::vector<std::string> names = Dir(path);
        if (names.empty()) Raise(kErrFileNotFound);
        const std::string folder = path.substr(0, path.rfind('/') + 1);
        for (const std::string& name : names) Kill(folder + name);
        return;
    }
    const std::string found = FindIgnoringCase(path);
    struct stat status {};
    if (::stat(found.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) Raise(kErrFileNotFound);
    if (IsReadOnly(status) || ::unlink(found.c_str()) != 0) Raise(kErrPathFileAccess);
}

void RmDir(const std::string& path) {
    if (::rmdir(FindIgnoringCase(path).c_str()) == 0) return;
    Raise(errno == ENOENT ? kErrPathNotFound : kErrPathFileAccess);
}

void FileCopy(const std::string& source, const std::string& target) {
    using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
    File in(std::fopen(FindIgnoringCase(source).c_str(), "rb"), std::fclose);
    if (!in) Raise(errno == ENOENT ? kErrFileNotFound : kErrPathFileAccess);

    const std::string found = FindIgnoringCase(target);
    struct stat status {};
    if (::stat(found.c_str(), &status) == 0 && IsReadOnly(status)) Raise(kErrPathFileAccess);
    File out(std::fopen(found.c_str(), "wb"), std::fclose);
    if (!out) Raise(errno == ENOENT ? kErrPathNotFound : kErrPathFileAccess);

    char buffer[1 << 16];
    std::size_t count;
    while ((count = std::fread(buffer, 1, sizeof buffer, in.get())) > 0)
        if (std::fwrite(buffer, 1, count, out.get()) != count) Raise(errno == ENOSPC ? kErrDiskFull : kErrPathFileAccess);
    if (std::ferror(in.get())) Raise(kErrPathFileAccess);
    if (std::fclose(out.release()) != 0) Raise(errno == ENOSPC ? kErrDiskFull : kErrPathFileAccess);
}

}  // namespace platform
