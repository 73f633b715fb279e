// Times the game database on a copy of the delivered file:
//  - one open with its key plus the first select, beside the same on a file
//    without a key, which shows what the key derivation costs;
//  - the whole end of a game at the statement level: the user's row saved,
//    the four players ranked through the table player, the top ten loaded
//    and saved.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <vector>

#include "engine/mod_global.h"
#include "game_schema.h"
#include "platform/msgbox.h"
#include "platform/runtime_temp_dir.h"
#include "storage/data_procedure.h"
#include "storage/mod_global_db.h"

using namespace modGlobal;
using Clock = std::chrono::steady_clock;

namespace {

struct Figures {
    double median, best, worst;
};

Figures Time(int runs, const std::function<void()>& work) {
    std::vector<double> ms;
    for (int i = 0; i < runs; ++i) {
        const auto start = Clock::now();
        work();
        ms.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    std::sort(ms.begin(), ms.end());
    return {ms[ms.size() / 2], ms.front(), ms.back()};
}

void Report(const char* what, const Figures& f) {
    std::printf("%-58s median %7.2f ms   best %7.2f ms   worst %7.2f ms\n", what, f.median, f.best, f.worst);
}

void OpenAndFirstSelect(const std::string& file, const std::string& connect) {
    auto db = dao::DBEngine::OpenDatabase(file, false, false, connect);
    auto rs = db->OpenRecordset("SELECT nextuserid FROM system", dao::dbOpenSnapshot);
    rs->Fields("nextuserid").Value().ToInt32();
}

// The user's record, as the game-over form writes it.
void SaveUserRow() {
    storage::DataErrorHandler on("SaveUserData");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    auto rs = on.OpenRecordset(*db, "SELECT * FROM user WHERE name='" + platform::Trim(gsUserName) + "'",
                               dao::dbOpenDynaset);
    if (on.SelectFailed()) return;
    if (rs->Bof() && rs->Eof()) {
        on([&] { rs->AddNew(); });
        on([&] { rs->Fields("name") = gsUserName; });
    } else {
        on([&] { rs->Edit(); });
    }
    on([&] { rs->Fields("player1") = gsOpponent1; });
    on([&] { rs->Fields("player2") = gsOpponent2; });
    on([&] { rs->Fields("player3") = gsOpponent3; });
    on([&] { rs->Fields("skilllevel") = gsSkillLevel; });
    on([&] { rs->Fields("numgames") = giNumGames; });
    on([&] { rs->Fields("winnings") = glWinnings; });
    on([&] { rs->Update(); });
}

struct TopTenRow {
    std::string name, skilllevel;
    std::int16_t score = 0;
    double date = 0;
};

void LoadTopTen(std::vector<TopTenRow>& rows) {
    storage::DataErrorHandler on("TopTenLoad");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    auto rs = on.OpenRecordset(*db, "SELECT * FROM topten ORDER BY score DESC", dao::dbOpenSnapshot);
    if (on.SelectFailed()) return;
    std::size_t i = 0;
    for (; !rs->Eof() && i < rows.size(); ++i, rs->MoveNext()) {
        on([&] { rows[i].name = rs->Fields("name").Value().ToString(); });
        on([&] { rows[i].score = rs->Fields("score").Value().ToInt16(); });
        on([&] { rows[i].skilllevel = rs->Fields("skilllevel").Value().ToString(); });
        on([&] { rows[i].date = rs->Fields("date").Value().ToDouble(); });
    }
    for (; i < rows.size(); ++i) rows[i] = {"", "", 0, platform::Now()};
}

void SaveTopTen(const std::vector<TopTenRow>& rows) {
    storage::DataErrorHandler on("TopTenSave");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    on([&] { db->Execute("DELETE FROM topten"); });
    auto rs = on.OpenRecordset(*db, "SELECT * FROM topten", dao::dbOpenDynaset);
    if (on.SelectFailed()) return;
    for (const TopTenRow& row : rows) {
        on([&] { rs->AddNew(); });
        on([&] { rs->Fields("name") = row.name; });
        on([&] { rs->Fields("score") = row.score; });
        on([&] { rs->Fields("skilllevel") = row.skilllevel; });
        on([&] { rs->Fields("date") = dao::Variant::Date(row.date); });
        on([&] { rs->Update(); });
    }
}

}  // namespace

int main() {
    TempDir dir;
    platform::ScriptedResponder responder;
    platform::SetAppPath(dir.Path());
    const std::string file = dir.File("Lantern.mdb");
    std::filesystem::copy_file(std::string(DOVRIN_PROGRAM_DIR) + "/Lantern.mdb", file);
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
    std::vector<TopTenRow> topTen(10);
    Figures save{}, standings{}, load{}, store{};
    const Figures whole = Time(15, [&] {
        ++giNumGames;
        glWinnings += 75;
        save = Time(1, SaveUserRow);
        standings = Time(1, [] { GetStandings({180, 95, 250, 275}); });
        load = Time(1, [&] { LoadTopTen(topTen); });
        topTen[0] = {gsUserName, gsSkillLevel, 275, platform::Now()};
        store = Time(1, [&] { SaveTopTen(topTen); });
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
