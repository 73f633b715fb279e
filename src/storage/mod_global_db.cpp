#include "storage/mod_global_db.h"

#include <stdexcept>

#include "engine/mod_global.h"
#include "link/main_form_link.h"
#include "platform/runtime/msgbox.h"
#include "platform/runtime/runtime.h"
#include "storage/data_procedure.h"

using namespace platform;

namespace modGlobal {

std::int32_t GetNextUserID() {
    storage::DataErrorHandler on("GetNextUserID");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return 0;
    auto rs = on.OpenRecordset(*db, "SELECT nextuserid FROM system", dao::dbOpenDynaset);
    if (on.SelectFailed()) return 0;
    if (rs->Bof() && rs->Eof()) return 0;
    std::int32_t id = 0;
    on([&] { id = rs->Fields("nextuserid").Value().ToInt32(); });
    on([&] { rs->Edit(); });
    on([&] { rs->Fields("nextuserid") = CLng(id + 1.0); });
    on([&] { rs->Update(); });
    return id;
}

void GetStandings(const std::array<std::int16_t, 4>& paFunds) {
    storage::DataErrorHandler on("GetStandings");
    auto db = on.OpenDatabase();
    if (on.OpenFailed()) return;
    on([&] { db->Execute("DELETE FROM player"); });
    auto rs = on.OpenRecordset(*db, "SELECT * from player");
    if (on.SelectFailed()) return;
    const std::array<const std::string*, 4> names = {&gsOpponent1, &gsOpponent2, &gsOpponent3, &gsUserName};
    for (std::size_t i = 0; i < names.size(); ++i) {
        on([&] { rs->AddNew(); });
        on([&] { rs->Fields("name") = *names[i]; });
        on([&] { rs->Fields("funds") = paFunds[i]; });
        on([&] { rs->Update(); });
    }
    on([&] { rs->Close(); });
    rs = on.OpenRecordset(*db, "SELECT * from player ORDER BY funds DESC");
    if (on.SelectFailed()) return;
    if (rs->Bof() && rs->Eof()) {
        Beep();
        MsgBox("Error accessing database!", kExclamation, "Database Error");
        return;
    }
    // Rows beyond the fourth have no place to go and are passed over.
    for (std::size_t i = 0; !rs->Eof(); ++i) {
        if (i < gaStanding.size()) {
            on([&] { gaStanding[i].name = rs->Fields("name").Value().ToString(); });
            on([&] { gaStanding[i].funds = rs->Fields("funds").Value().ToInt16(); });
        }
        on([&] { rs->MoveNext(); });
    }
}

void IsValidPath(std::int32_t plErrNum, const std::string& psErrDesc, const std::string& psAction) {
    try {
        const bool inAppDirectory = UCase(Trim(gsDbPath)) == UCase(Trim(AppPath()));
        const std::string current = storage::DbFileName();
        const std::string fallback = storage::DefaultDbFileName();
        if (FileExists(current)) {
            MsgBox(std::to_string(plErrNum) + ": " + psErrDesc, kExclamation, psAction);
            gbDbSwitched = false;
            return;
        }
        const std::string cannotLocate = "Cannot locate the current database..." + std::string(kCrLf) +
                                         UCase(current) + "!" + kCrLf + kCrLf;
        if (inAppDirectory) {
            MsgBox(cannotLocate + "Closing Dovrin", kExclamation, "Fatal Error");
            gbDbSwitched = false;
            return;
        }
        if (FileExists(fallback)) {
            // Deliberately silent: the switch to the default database isn't announced.
            gbDbSwitched = true;
            return;
        }
        MsgBox(cannotLocate + "or the default database..." + kCrLf + UCase(fallback), kExclamation, psAction);
        MsgBox(std::string("Dovrin cannot operate unless it has") + kCrLf + "access to the database file Lantern.mdb!" +
                   kCrLf + kCrLf + "Closing Dovrin.",
               kExclamation, "Fatal Error");
        gbDbSwitched = false;
    } catch (const RuntimeError& error) {
        MsgBox(std::to_string(error.Number()) + ": " + error.Description(), kExclamation, "IsValidPath");
        gbDbSwitched = false;
    }
}

void RecoverDatabase() {
    FallBackToDefaultDatabase(
        [] {
            if (!goMainForm) throw std::logic_error("RecoverDatabase: no main form to change the user on");
            goMainForm->ChangeUser(true);
        },
        RepeatFailure::RecoversAgain);
}

void FallBackToDefaultDatabase(const std::function<void()>& repeat, RepeatFailure onFailure) {
    if (!gbDbSwitched) EndProgramNow();
    gbDbFailed = false;
    gbDbSwitched = false;
    gsDbPath = AppPath();
    repeat();
    if (gbDbFailed && onFailure == RepeatFailure::EndsProgram) EndProgramNow();
}

}  // namespace modGlobal
