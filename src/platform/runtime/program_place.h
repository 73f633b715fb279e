// Where the program keeps the files that lie beside it (the settings file,
// the database, the tunes, the guide). Run from its own folder (a build), it
// keeps them beside the executable. Installed, with its executable in
// P/games (or P/bin) and its delivered files in the share folder
// P/share/lantern-dovrin, it
// keeps each user's own copies in the per-user folder, which every start
// fills from the share folder with the delivered files it lacks, and
// nothing else: a user's settings and records are never overwritten. No Qt.
#pragma once

#include <string>

namespace platform {

// $XDG_DATA_HOME/lantern-dovrin, or ~/.local/share/lantern-dovrin.
std::string PerUserFolder();

// The share folder of a program whose executable lies in exeDirectory;
// empty when it has none (it isn't installed).
std::string InstalledShareFolder(const std::string& exeDirectory);

// Makes the per-user folder where it is missing and copies into it each
// file of the share folder that it lacks. A run-time error when the folder
// can't be made or a file can't be copied.
void FillPerUserFolder(const std::string& shareFolder, const std::string& userFolder);

// At the start: an installed program moves its application path to the
// per-user folder, filled. The text of the message to show and end with
// when that fails; empty when all is well.
std::string SettleProgramPlace();

// Whether the start found the program installed.
bool ProgramInstalled();

}  // namespace platform
