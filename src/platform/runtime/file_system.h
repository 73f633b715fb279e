// The file system the program was written for, on this one: its fixed paths
// ("C:\EMAIL\OUT") as places under the home folder, and names found whatever
// their letter case, since the old file system ignored it. No Qt here.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// A path of the old platform as a path here: "C:\EMAIL\OUT" is
// ~/EMAIL/OUT. A drive names the home folder, backslashes become slashes and
// the letter case stays as written. Four folders of the old system have
// their places here: its desktop folder is the user's desktop folder, its
// start menu's programs the folder of the desktop's launchers, and the two
// regular install directories are RegularInstallDirs() (empty, and so
// naming nothing, where there is none); a shortcut (.lnk) is a desktop
// entry (.desktop).
std::string OldPlatformPath(std::string_view path);

// Tests put the home folder of the old drive elsewhere; nullopt restores
// $HOME.
void SetOldDriveRoot(std::optional<std::string> folder);

// The user's desktop folder: the one xdg-user-dir names, else ~/Desktop if
// it exists; empty when the user has none. Tests set it; nullopt asks again.
std::string DesktopFolder();
void SetDesktopFolder(std::optional<std::string> folder);

// The path of the file or directory that the old file system would have
// found by this name: each part that doesn't exist as written is matched
// without regard to letter case. The path as given when nothing matches.
std::string FindIgnoringCase(const std::string& path);

// Whether a directory of this name exists, whatever its letter case.
bool DirExists(const std::string& path);

// Dir: the names of the regular files in a folder that match the pattern of
// the path's last part (* any run of characters, ? one), whatever their
// letter case, in the folder's order. Nothing for a folder that isn't there;
// 75 for one that is there but can't be read.
std::vector<std::string> Dir(const std::string& pattern);

// MkDir: error 75 when the directory is there already or can't be made,
// 76 when its parent is missing.
void MkDir(const std::string& path);

// Kill: deletes a file, or every file that a pattern matches; 53 when
// there is none, 75 when one is read-only (it has no write permission) or
// can't be removed.
void Kill(const std::string& path);

// RmDir: removes an empty directory; 76 when it isn't there, 75 when it
// can't be removed.
void RmDir(const std::string& path);

// FileCopy: copies a file, replacing the target; 53 when the source is
// missing, 76 when the target's directory is, 75 when the target is
// read-only or can't be written, 61 when the disk is full.
void FileCopy(const std::string& source, const std::string& target);

}  // namespace platform
