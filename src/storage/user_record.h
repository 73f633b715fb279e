// The fields of a user's row that the current user's globals fill.
#pragma once

#include "platform/runtime/dao.h"
#include "storage/data_procedure.h"

namespace storage {

// Writes the opponents, skill level and totals of the current user into the
// row being added or edited, then stores it; each step a statement of its own.
void WriteCurrentUserTotals(DataErrorHandler& on, dao::Recordset& rs);

}  // namespace storage
