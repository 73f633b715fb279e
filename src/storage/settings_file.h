// The settings file dovrin.ini beside the program: the main form reads it
// once at start-up and writes it back; the start-up procedure reads the
// copy-link option from it before any form exists.
#pragma once

#include <string>

#include "link/main_form_link.h"

namespace storage {

// The application path followed by "/dovrin.ini".
std::string IniFileName();

// At start-up: reads the file when it exists; else beeps, says so and takes
// the defaults, all of them.
void LoadSettings(OptionEntries& form);

void Ini_Load(const std::string& fileName, OptionEntries& form);
void Ini_Save(const OptionEntries& form);

}  // namespace storage

namespace modGlobal {

// The copy-link option, read only when the program runs from one of the two
// regular install directories. pbNoUser becomes true when the file's user_id
// is 0.
bool ReadCopyLinkOption(bool& pbNoUser);

}  // namespace modGlobal
