// The schema of the game database and its first contents: the five tables,
// a system row with the first user id, every other table empty.
#pragma once

#include <string>

namespace makedb {

// Creates the database file at `path`, encrypted with `key` (plain when the
// key is empty). Throws std::runtime_error when the file can't be made.
void CreateGameDatabase(const std::string& path, const std::string& key);

}  // namespace makedb
