// The file system the program was written for, on this one: its fixed paths
// ("C:\EMAIL\OUT") as places under the home folder, and names found whatever
// their letter case, since the old file system ignored it. No Qt here.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

// A path of the old platform as a path here: "C:\EMAIL\OUT" is
// ~/EMAIL/OUT. A drive names the home folder, backslashes become slashes and
// the letter case stays as written.
std::string OldPlatformPath(std::string_view path);

// Tests put the home folder of the old drive elsewhere; nullopt restores
// $HOME.
void SetOldDriveRoot(std::optional<std::string> folder);

// The path of the file or directory that the old file system would have
// found by this name: each part that doesn't exist as written is matched
// without regard to letter case. The path as given when nothing matches.
std::string FindIgnoringCase(const std::string& path);

// Whether a directory of this name exists, whatever its letter case.
bool DirExists(const std::string& path);

// MkDir: error 75 when the directory is there already or can't be made,
// 76 when its parent is missing.
void MkDir(const std::string& path);

// Kill: deletes a file; 53 when there is none, 75 when it is read-only
// (it has no write permission) or can't be removed.
void Kill(const std::string& path);

// FileCopy: copies a file, replacing the target; 53 when the source is
// missing, 76 when the target's directory is, 75 when the target is
// read-only or can't be written, 61 when the disk is full.
void FileCopy(const std::string& source, const std::string& target);

}  // namespace platform
