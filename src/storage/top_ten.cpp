#include "storage/top_ten.h"

#include "engine/mod_global.h"
#include "platform/runtime/runtime.h"
#include "storage/data_procedure.h"

namespace storage {

namespace {

constexpr std::size_t kListRows = 10;
constexpr std::int16_t kFanfareScore = 500;

}  // namespace

void LoadTopTenRows(TopTenRows& rows, const std::string& statement) {
    DataErrorHandler on("TopTenLoad");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    auto rs = on.OpenRecordset(*db, statement, dao::dbOpenSnapshot);
    if (on.SelectFailed()) return;
    std::size_t row = 0;
    // Rows beyond the spare have no place to go and are passed over.
    for (; !rs->Eof(); ++row) {
        if (row < rows.size()) {
            TopTenEntry& entry = rows[row];
            on([&] { entry.name = rs->Fields("name").Value().ToString(); });
            on([&] { entry.score = rs->Fields("score").Value().ToInt16(); });
            on([&] { entry.skilllevel = rs->Fields("skilllevel").Value().ToString(); });
            on([&] { entry.date = rs->Fields("date").Value().ToDouble(); });
        }
        on([&] { rs->MoveNext(); });
    }
    const double loaded = platform::Now();
    for (; row < kListRows; ++row) rows[row] = {"", 0, "", loaded};
}

void TopTenList::TopTenLoad() { LoadTopTenRows(maTopTen, "SELECT * FROM topten ORDER BY score DESC"); }

bool TopTenList::CheckHighScore() {
    const std::int16_t score = modGlobal::gaStanding[0].funds;
    std::size_t place = 0;
    while (place < kListRows && maTopTen[place].score >= score) ++place;
    if (place == kListRows) return false;
    modGlobal::giTopTenRow = static_cast<std::int16_t>(place);

    if (score >= kFanfareScore && highScoreFanfare_) highScoreFanfare_();

    TopTenRows placed = maTopTen;
    for (std::size_t row = 0; row < kListRows; ++row) {
        if (row == place)
            placed[row] = {modGlobal::gsUserName, score, modGlobal::gsSkillLevel, platform::Now()};
        else if (row > place)
            placed[row] = maTopTen[row - 1];
    }
    maTopTen = placed;
    return true;
}

void TopTenList::TopTenSave() {
    DataErrorHandler on("TopTenSave");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    on([&] { db->Execute("DELETE FROM topten"); });
    auto rs = on.OpenRecordset(*db, "SELECT * FROM topten", dao::dbOpenDynaset);
    if (on.SelectFailed()) return;
    for (std::size_t row = 0; row < kListRows; ++row) {
        const TopTenEntry& entry = maTopTen[row];
        on([&] { rs->AddNew(); });
        on([&] { rs->Fields("name") = entry.name; });
        on([&] { rs->Fields("score") = entry.score; });
        on([&] { rs->Fields("skilllevel") = entry.skilllevel; });
        on([&] { rs->Fields("date") = dao::Variant::Date(entry.date); });
        on([&] { rs->Update(); });
    }
}

}  // namespace storage
