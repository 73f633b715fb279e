// The database procedures of modGlobal: the id generator, the ranking of the
// four players, and the failure protocol (IsValidPath weighs a failed open,
// RecoverDatabase acts on it).
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

namespace modGlobal {

// The next free user id, consumed at once; 0 when there is none or the
// select failed.
std::int32_t GetNextUserID();

// Ranks the four players through the table player, best first, into
// gaStanding. paFunds holds their money in player order, the human last.
void GetStandings(const std::array<std::int16_t, 4>& paFunds);

// After a failed open: tells why, and sets gbDbSwitched when the default
// database can take over.
void IsValidPath(std::int32_t plErrNum, const std::string& psErrDesc, const std::string& psAction);

// Acts on gbDbFailed: ends the program unless IsValidPath found the default
// database; else switches to it and lets the user choose again.
void RecoverDatabase();

// What a repeat on the default database does when it fails again.
enum class RepeatFailure {
    EndsProgram,    // the program ends at once
    RecoversAgain,  // the repeat has run a recovery of its own
};

// The fall-back to the program's own database after a failed open, one for
// every place that takes it: ends the program at once unless IsValidPath
// found the default database; else clears both flags, points gsDbPath at the
// application path and repeats there what failed.
void FallBackToDefaultDatabase(const std::function<void()>& repeat, RepeatFailure onFailure);

}  // namespace modGlobal
