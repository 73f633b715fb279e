#include "storage/database_check.h"

#include "engine/mod_global.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "storage/data_procedure.h"

using namespace platform;

namespace storage {

void CheckDatabaseFile() {
    const std::string current = DbFileName();
    if (FileExists(current)) return;
    const std::string fallback = DefaultDbFileName();
    const std::string unableToLocate =
        "Unable to locate database file..." + std::string(kCrLf) + UCase(current) + "!" + kCrLf + kCrLf;
    if (UCase(current) == UCase(fallback)) {
        MsgBox(unableToLocate + "Closing Dovrin.", kExclamation, "Fatal Error");
        EndProgramNow();
    }
    if (!FileExists(fallback)) {
        MsgBox(unableToLocate + "or application database file..." + kCrLf + UCase(fallback) + ".", kExclamation,
               "Database Path");
        MsgBox("Closing Dovrin.", kExclamation, "Fatal Error");
        EndProgramNow();
    }
    MsgBox(unableToLocate + "Switching to database file..." + kCrLf + UCase(fallback) + ".", kExclamation,
           "Database Path");
    modGlobal::gsDbPath = AppPath();
}

}  // namespace storage
