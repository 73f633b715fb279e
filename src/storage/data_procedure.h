// The shape of every procedure that touches the game database. A run-time
// error in any statement is noted (number, description, the procedure's
// action word) and the procedure runs on; the note is tested after the open
// and after the select, nowhere else:
//
//     DataErrorHandler on("GetNextUserID");
//     auto db = on.OpenDatabase();
//     if (on.OpenFailed()) return 0;           // IsValidPath, gbDbFailed
//     auto rs = on.OpenRecordset(*db, "SELECT nextuserid FROM system", dao::dbOpenDynaset);
//     if (on.SelectFailed()) return 0;         // message box, title the action
//     if (rs->Bof() && rs->Eof()) ...          // no rows: each procedure's own way
//     on([&] { rs->Edit(); });                 // every other step fails silently
//
// The recordset and the database are released when they go out of scope.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/runtime/dao.h"
#include "platform/runtime/runtime.h"

namespace storage {

// The password of the game database, as the connect string of each open.
inline constexpr char kDbConnect[] = ";pwd=qmvtrla";

// gsDbPath followed by "/Lantern.mdb": the database in use.
std::string DbFileName();
// The application path followed by "/Lantern.mdb": the default database.
std::string DefaultDbFileName();

class DataErrorHandler {
public:
    explicit DataErrorHandler(std::string action) : action_(std::move(action)) {}

    // Runs one statement; an error in it is noted and execution runs on.
    template <class Statement>
    void operator()(Statement&& statement) {
        platform::ResumeNext(statement, [this](const platform::RuntimeError& error) {
            errNum = error.Number();
            errDesc = error.Description();
            errAction = action_;
        });
    }

    // Opens the database in use; null when the open failed.
    std::unique_ptr<dao::Database> OpenDatabase();
    // Opens a recordset; null when the select failed.
    std::unique_ptr<dao::Recordset> OpenRecordset(dao::Database& db, const std::string& statement,
                                                  dao::RecordsetTypeEnum type = dao::dbOpenDynaset);

    // After the open: when an error is noted, IsValidPath weighs it and
    // gbDbFailed is set. True when the procedure must leave.
    bool OpenFailed();
    // After the select: when an error is noted, a message box tells its
    // description. True when the procedure must leave.
    bool SelectFailed();

    std::int32_t errNum = 0;
    std::string errDesc;
    std::string errAction;

private:
    std::string action_;
};

}  // namespace storage
