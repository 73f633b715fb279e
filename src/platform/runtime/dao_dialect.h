// The engine's dialect as the program writes it, and what becomes of it
// before the store sees a statement: text in, text or a verdict out. Nothing
// here runs a statement or raises an error; the database layer does both.
#pragma once

#include <string>
#include <string_view>

namespace dao {

// Names and key words compare without regard to case.
bool SameName(std::string_view a, std::string_view b);

// The statement as the store runs it: DELETE * FROM becomes DELETE FROM, Now
// (and Now()) becomes the date value `now`; string literals stay untouched.
// The engine knows no comments, so "--" and "/*" are kept apart as operators.
std::string TranslateStatement(std::string_view statement, double now);

// The first word of a statement in capitals, empty if it starts otherwise.
std::string StatementKind(std::string_view statement);

// SELECT, INSERT, UPDATE and DELETE: the only statements the engine takes.
bool IsRunnableKind(std::string_view kind);

// What may stand behind the end of a statement: blanks and semicolons.
bool OnlySeparators(std::string_view rest);

// The condition of a statement, as an error message quotes it: from behind
// WHERE up to ORDER BY or the end. Empty without a WHERE.
std::string WhereExpression(std::string_view statement);

// A SELECT that merges or groups rows (DISTINCT, GROUP BY, UNION and the
// like) has no one row of a table behind each of its own.
bool MergesRows(std::string_view select);

// The SELECT with `column` as its first column.
std::string WithLeadingColumn(std::string_view select, std::string_view column);

// The functions a statement may call.
bool IsEngineFunction(std::string_view name);

// The password of a connect string ";pwd=<password>", empty without one.
std::string ConnectPassword(std::string_view connect);

}  // namespace dao
