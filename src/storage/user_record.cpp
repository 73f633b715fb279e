#include "storage/user_record.h"

#include "engine/mod_global.h"

namespace storage {

void WriteCurrentUserTotals(DataErrorHandler& on, dao::Recordset& rs) {
    using namespace modGlobal;
    on([&] { rs.Fields("player1") = gsOpponent1; });
    on([&] { rs.Fields("player2") = gsOpponent2; });
    on([&] { rs.Fields("player3") = gsOpponent3; });
    on([&] { rs.Fields("skilllevel") = gsSkillLevel; });
    on([&] { rs.Fields("numgames") = giNumGames; });
    on([&] { rs.Fields("winnings") = glWinnings; });
    on([&] { rs.Update(); });
}

}  // namespace storage
