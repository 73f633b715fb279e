// Any text as the program's statements, one per line, against a fresh game
// database: every failure must be an engine error, never a crash, and no
// statement may take a table away. Each line is a connect string too.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "game_schema.h"
#include "platform/runtime/dao.h"
#include "platform/runtime/dao_dialect.h"
#include "platform/runtime_temp_dir.h"

namespace {

const char* const kFields[] = {"userid", "name", "player1", "skilllevel", "numgames", "winnings", "score",
                               "date",   "funds", "nextuserid", "action", "message", "errordate"};

// A plain copy of the schema, made once; each input starts from it.
const std::string& SeedBytes(const TempDir& dir) {
    static const std::string bytes = [&] {
        makedb::CreateGameDatabase(dir.File("seed.mdb"), "");
        return ReadBytes(dir.File("seed.mdb"));
    }();
    return bytes;
}

void Attempt(void (*statement)(dao::Database&, const std::string&), dao::Database& db, const std::string& text) {
    try {
        statement(db, text);
    } catch (const platform::RuntimeError&) {
    }
}

void WalkAndChange(dao::Database& db, const std::string& text) {
    auto rs = db.OpenRecordset(text, text.size() % 2 ? dao::dbOpenDynaset : dao::dbOpenSnapshot);
    for (int row = 0; !rs->Eof() && row < 64; ++row, rs->MoveNext())
        for (const char* field : kFields) try {
                rs->Fields(field).Value().ToString();
            } catch (const platform::RuntimeError&) {
            }
    rs->AddNew();
    for (const char* field : kFields) try {
            rs->Fields(field) = text.substr(0, 60);
        } catch (const platform::RuntimeError&) {
        }
    rs->Update();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static TempDir dir;
    const std::string file = dir.File("work.mdb");
    WriteBytes(file, SeedBytes(dir));
    auto db = dao::DBEngine::OpenDatabase(file, false, false, "");

    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    std::string line;
    for (int count = 0; count < 8 && std::getline(lines, line); ++count) {
        dao::ConnectPassword(line);  // the one piece of the dialect no statement reaches
        Attempt([](dao::Database& d, const std::string& t) { d.Execute(t); }, *db, line);
        Attempt(WalkAndChange, *db, line);
    }
    try {
        for (const char* table : {"user", "topten", "player", "system", "errorlog"})
            db->OpenRecordset(std::string("SELECT * FROM ") + table, dao::dbOpenSnapshot);
    } catch (const platform::RuntimeError&) {
        std::abort();
    }
    return 0;
}
