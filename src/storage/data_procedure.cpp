#include "storage/data_procedure.h"

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "storage/mod_global_db.h"

namespace storage {

std::string DbFileName() { return modGlobal::gsDbPath + "/Lantern.mdb"; }

std::string DefaultDbFileName() { return platform::AppPath() + "/Lantern.mdb"; }

std::unique_ptr<dao::Database> DataErrorHandler::OpenDatabase() {
    std::unique_ptr<dao::Database> db;
    (*this)([&] { db = dao::DBEngine::OpenDatabase(DbFileName(), false, false, kDbConnect); });
    return db;
}

std::unique_ptr<dao::Recordset> DataErrorHandler::OpenRecordset(dao::Database& db, const std::string& statement,
                                                                dao::RecordsetTypeEnum type) {
    std::unique_ptr<dao::Recordset> rs;
    (*this)([&] { rs = db.OpenRecordset(statement, type); });
    return rs;
}

bool DataErrorHandler::OpenFailed() {
    if (errNum <= 0) return false;
    modGlobal::IsValidPath(errNum, errDesc, errAction);
    modGlobal::gbDbFailed = true;
    return true;
}

bool DataErrorHandler::SelectFailed() {
    if (errNum <= 0) return false;
    platform::MsgBox(errDesc, platform::kExclamation, errAction);
    return true;
}

}  // namespace storage
