// Times the game database on a copy of the delivered file:
//  - one open with its key plus the first select, beside the same on a file
//    without a key, which shows what the key derivation costs;
//  - the whole end of a game through the program's own procedures: the
//    user's row saved, the four players ranked through the table player, the
//    top ten loaded, the score placed and the list saved.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <vector>

#include "bench_timing.h"
#include "engine/mod_global.h"
#include "game_schema.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime_temp_dir.h"
#include "storage/data_procedure.h"
#include "storage/mod_global_db.h"
#include "storage/top_ten.h"
#include "table/f_game_over.h"

using namespace modGlobal;

namespace {

struct Figures {
    double median, best, worst;
};

Figures Time(int runs, const std::function<void()>& work) {
    const Spread spread = SpreadOf(TimeRuns<std::milli>(runs, work));
    return {spread.median, spread.best, spread.worst};
}

void Report(const char* what, const Figures& f) {
    std::printf("%-58s median %7.2f ms   best %7.2f ms   worst %7.2f ms\n", what, f.median, f.best, f.worst);
}

void OpenAndFirstSelect(const std::string& file, const std::string& connect) {
    auto db = dao::DBEngine::OpenDatabase(file, false, false, connect);
    auto rs = db->OpenRecordset("SELECT nextuserid FROM system", dao::dbOpenSnapshot);
    rs->Fields("nextuserid").Value().ToInt32();
}

}  // namespace

int main() {
    TempDir dir;
    platform::ScriptedResponder responder;
    platform::SetAppPath(dir.Path());
    const std::string file = dir.File("Lantern.mdb");
    std::filesystem::copy_file(std::string(DOVRIN_DELIVERED_DIR) + "/Lantern.mdb", file);
    const std::string plain = dir.File("plain.mdb");
    makedb::CreateGameDatabase(plain, "");
    gsDbPath = dir.Path();

    Report("open with the key + first select", Time(20, [&] { OpenAndFirstSelect(file, storage::kDbConnect); }));
    Report("open without a key + first select (same schema)", Time(20, [&] { OpenAndFirstSelect(plain, ""); }));

    gsUserName = "Ann";
    gsOpponent1 = "Lu";
    gsOpponent2 = "Mo";
    gsOpponent3 = "Ned";
    gsSkillLevel = "Easy";
    Figures save{}, standings{}, load{}, store{};
    const Figures whole = Time(15, [&] {
        ++giNumGames;
        glWinnings += 75;
        save = Time(1, FGameOver::SaveUserData);
        standings = Time(1, [] { GetStandings({180, 95, 250, 275}); });
        storage::TopTenList topTen;
        load = Time(1, [&] { topTen.TopTenLoad(); });
        topTen.CheckHighScore();
        store = Time(1, [&] { topTen.TopTenSave(); });
    });
    Report("end of a game: save user, standings, top ten load + save", whole);
    std::printf("  last run: save user %.2f ms, standings %.2f ms, top ten load %.2f ms, top ten save %.2f ms\n",
                save.median, standings.median, load.median, store.median);
    if (!responder.Events().empty() || gbDbFailed || gaStanding[0].name != "Ann") {
        std::fprintf(stderr, "the sequence didn't run cleanly\n");
        return 1;
    }
    return 0;
}
