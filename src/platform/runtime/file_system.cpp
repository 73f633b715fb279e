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

}  // namespace

std::string OldPlatformPath(std::string_view path) {
    std::string rest(path);
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

void Kill(const std::string& path) {
    const std::string found = FindIgnoringCase(path);
    struct stat status {};
    if (::stat(found.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) Raise(kErrFileNotFound);
    if (IsReadOnly(status) || ::unlink(found.c_str()) != 0) Raise(kErrPathFileAccess);
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
