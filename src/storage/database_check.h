#pragma once

namespace storage {

// At start-up, once the settings are in: finds the database file. Goes on
// without a word when it is there, switches to the default database with a
// message when only that one is there, and else tells and ends the program.
void CheckDatabaseFile();

}  // namespace storage
