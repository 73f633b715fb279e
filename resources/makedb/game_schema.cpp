#include "game_schema.h"

#include <sqlite3.h>

#include <initializer_list>
#include <stdexcept>

namespace makedb {

namespace {

// Whole numbers keep the program's widths: a 16-bit field refuses what a
// 16-bit variable can't hold, a 32-bit one likewise, and text is no number.
// Constraint names tell the database layer which rule a value broke.
std::string WholeNumberField(const std::string& name, const char* low, const char* high) {
    return name + " INTEGER DEFAULT 0 CONSTRAINT type_" + name + " CHECK (typeof(" + name +
           ") IN ('integer', 'null')) CONSTRAINT range_" + name + " CHECK (" + name + " BETWEEN " + low + " AND " +
           high + ")";
}
std::string LongField(const std::string& name) { return WholeNumberField(name, "-2147483648", "2147483647"); }
std::string IntegerField(const std::string& name) { return WholeNumberField(name, "-32768", "32767"); }

// Text compares and sorts without regard to case; a text field holds 50
// characters at most, a zero-length one is allowed; a memo has no limit.
std::string TextField(const std::string& name) {
    return name + " TEXT(50) COLLATE NOCASE CONSTRAINT size_" + name + " CHECK (length(" + name + ") <= 50)";
}
std::string MemoField(const std::string& name) { return name + " TEXT COLLATE NOCASE"; }

// A date is the date value (days and fraction), so it sorts by its whole
// date and time.
std::string DateField(const std::string& name) {
    return name + " DATETIME CONSTRAINT type_" + name + " CHECK (typeof(" + name + ") IN ('real', 'integer', 'null'))";
}

std::string Table(const std::string& name, std::initializer_list<std::string> fields) {
    std::string sql = "CREATE TABLE " + name + " (";
    for (const std::string& field : fields) sql += (sql.back() == '(' ? "" : ", ") + field;
    return sql + ");";
}

std::string Schema() {
    return Table("user", {LongField("userid"), TextField("name"), TextField("player1"), TextField("player2"),
                          TextField("player3"), TextField("skilllevel"), IntegerField("numgames"),
                          LongField("winnings")}) +
           Table("topten", {TextField("name"), IntegerField("score"), TextField("skilllevel"), DateField("date")}) +
           Table("player", {TextField("name"), IntegerField("funds")}) +
           Table("system", {LongField("nextuserid")}) +
           Table("errorlog", {TextField("action"), MemoField("message"), DateField("errordate")}) +
           "INSERT INTO system (nextuserid) VALUES (1);";
}

}  // namespace

void CreateGameDatabase(const std::string& path, const std::string& key) {
    sqlite3* db = nullptr;
    int code = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (code == SQLITE_OK && !key.empty()) code = sqlite3_key(db, key.data(), static_cast<int>(key.size()));
    if (code == SQLITE_OK) code = sqlite3_exec(db, Schema().c_str(), nullptr, nullptr, nullptr);
    const std::string message = db ? sqlite3_errmsg(db) : "out of memory";
    sqlite3_close(db);
    if (code != SQLITE_OK) throw std::runtime_error(path + ": " + message);
}

}  // namespace makedb
