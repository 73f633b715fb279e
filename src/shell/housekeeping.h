// The start-up's care of the installation, before the main form exists: the
// removal of an older version of the program, and the offer of a launcher on
// the desktop. The paths are those of the older desktop the program was
// written for; the file system maps them (platform/runtime/file_system.h),
// so on a Linux desktop the older version's folders are not found, and the
// desktop is the user's desktop folder.
#pragma once

namespace modGlobal {

// The product word that the launcher's names come from.
inline constexpr char kProductWord[] = "LANTERN";

// The platform with a desktop folder: here, a user who has one.
bool OnDesktopFolderPlatform();

// Offers to remove the older version when both its folder and this
// version's stand; every failing step is passed over.
void RemoveOlderVersion();

// Whether the desktop holds a launcher of the product already; true too
// when the search fails, so that nobody is asked.
bool HasDesktopShortcut();

// Copies the launcher that lies beside the program to the desktop, made
// executable and trusted; nothing when there is none beside the program.
void CopyLinkToDeskTop();

}  // namespace modGlobal
