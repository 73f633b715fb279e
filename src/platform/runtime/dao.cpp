#include "platform/runtime/dao.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/runtime/dao_dialect.h"
#include "platform/runtime/file_system.h"

namespace dao {

using platform::RuntimeError;

// One open file. Shared by the Database and its recordsets, so that either
// may be released first.
struct Connection {
    sqlite3* db = nullptr;
    std::string fileName;

    // What the authorizer saw while the last statement compiled.
    std::string table;           // the one table the statement touches
    std::string deniedTable;     // a second table, or an internal one
    std::string deniedFunction;  // a function outside the engine's set

    ~Connection() { sqlite3_close_v2(db); }
};

namespace {

// --- errors -------------------------------------------------------------------

[[noreturn]] void Fail(std::int32_t number, const std::string& description) {
    throw RuntimeError(number, description);
}

[[noreturn]] void FailUnrecognizedFormat(const Connection& c) {
    Fail(kErrUnrecognizedFormat, "Unrecognized database format '" + c.fileName + "'.");
}

[[noreturn]] void FailInvalidStatement() {
    Fail(kErrInvalidStatement,
         "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'.");
}

[[noreturn]] void FailReserved(const std::string& detail) {
    Fail(kErrReserved, "Reserved error (" + detail + "); there is no message for this error.");
}

bool StartsWith(std::string_view text, std::string_view prefix) { return text.substr(0, prefix.size()) == prefix; }

std::string After(std::string_view text, std::string_view prefix) { return std::string(text.substr(prefix.size())); }

// A failure of the store while a statement runs or the file is read.
[[noreturn]] void FailStatus(const Connection& c, int code) {
    const std::string message = sqlite3_errmsg(c.db);
    switch (code & 0xFF) {
        case SQLITE_CONSTRAINT:
            if (message.find("range_") != std::string::npos) Fail(kErrNumericFieldOverflow, "Numeric field overflow.");
            if (message.find("type_") != std::string::npos) Fail(kErrDataTypeConversion, "Data type conversion error.");
            if (message.find("size_") != std::string::npos)
                Fail(kErrFieldTooSmall,
                     "The field is too small to accept the amount of data you attempted to add. "
                     "Try inserting or pasting less data.");
            FailReserved(message);
        case SQLITE_READONLY: Fail(kErrReadOnly, "Cannot update. Database or object is read-only.");
        case SQLITE_BUSY:
        case SQLITE_LOCKED: Fail(kErrCurrentlyLocked, "Could not update; currently locked.");
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB: FailUnrecognizedFormat(c);
        case SQLITE_FULL: Fail(kErrNoSpace, "Not enough space on disk.");
        case SQLITE_IOERR:
        case SQLITE_CANTOPEN: Fail(kErrDiskOrNetwork, "Disk or network error.");
        case SQLITE_NOMEM:
        case SQLITE_TOOBIG: Fail(kErrResourceExceeded, "System resource exceeded.");
        default: FailReserved(message);
    }
}

// A statement that doesn't compile.
[[noreturn]] void FailCompile(const Connection& c, int code, std::string_view statement) {
    if (!c.deniedFunction.empty())
        Fail(kErrUndefinedFunction, "Undefined function '" + c.deniedFunction + "' in expression.");
    if (!c.deniedTable.empty())
        Fail(kErrNoPermission, "You don't have the necessary permissions to use the '" + c.deniedTable + "' object.");
    if (code == SQLITE_AUTH) FailInvalidStatement();
    if (code != SQLITE_ERROR) FailStatus(c, code);
    const std::string message = sqlite3_errmsg(c.db);
    if (StartsWith(message, "no such table: "))
        Fail(kErrCannotFindTable, "The database engine cannot find the input table or query '" +
                                      After(message, "no such table: ") +
                                      "'. Make sure it exists and that its name is spelled correctly.");
    if (StartsWith(message, "no such column: ")) Fail(kErrTooFewParameters, "Too few parameters. Expected 1.");
    if (StartsWith(message, "no such function: "))
        Fail(kErrUndefinedFunction, "Undefined function '" + After(message, "no such function: ") + "' in expression.");
    if (message.find("values were supplied") != std::string::npos ||
        message.find("values for") != std::string::npos)
        Fail(kErrValuesAndFieldsDiffer, "Number of query values and destination fields are not the same.");
    const bool syntax = message.find("syntax error") != std::string::npos ||
                        StartsWith(message, "unrecognized token") || message == "incomplete input";
    if (!syntax) FailReserved(message);
    const std::string where = WhereExpression(statement);
    if (!where.empty()) Fail(kErrSyntaxInExpression, "Syntax error (missing operator) in query expression '" + where + "'.");
    const std::string kind = StatementKind(statement);
    if (kind == "SELECT")
        Fail(kErrSyntaxInSelect,
             "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, "
             "or the punctuation is incorrect.");
    if (kind == "INSERT") Fail(kErrSyntaxInInsert, "Syntax error in INSERT INTO statement.");
    if (kind == "UPDATE") Fail(kErrSyntaxInUpdate, "Syntax error in UPDATE statement.");
    Fail(kErrSyntaxInFromClause, "Syntax error in FROM clause.");
}

// --- what a statement may reach -----------------------------------------------

bool AdmitTable(Connection& c, const char* table, const char* database) {
    const std::string name = table ? table : "";
    if ((database && std::strcmp(database, "main") != 0) || SameName(std::string_view(name).substr(0, 7), "sqlite_")) {
        c.deniedTable = name;
        return false;
    }
    if (c.table.empty()) c.table = name;
    if (SameName(c.table, name)) return true;
    c.deniedTable = name;
    return false;
}

int Authorize(void* data, int action, const char* arg1, const char* arg2, const char* database, const char*) {
    Connection& c = *static_cast<Connection*>(data);
    switch (action) {
        case SQLITE_SELECT: return SQLITE_OK;
        case SQLITE_READ:
        case SQLITE_INSERT:
        case SQLITE_UPDATE:
        case SQLITE_DELETE: return AdmitTable(c, arg1, database) ? SQLITE_OK : SQLITE_DENY;
        case SQLITE_FUNCTION:
            if (IsEngineFunction(arg2)) return SQLITE_OK;
            c.deniedFunction = arg2;
            return SQLITE_DENY;
        default: return SQLITE_DENY;
    }
}

// --- compiling and running ----------------------------------------------------

struct Statement {
    sqlite3_stmt* handle = nullptr;
    Statement() = default;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(handle); }
};

// Compiles text the store understands; returns the store's code.
int Prepare(Connection& c, std::string_view text, Statement& statement, const char** tail) {
    c.table.clear();
    c.deniedTable.clear();
    c.deniedFunction.clear();
    return sqlite3_prepare_v2(c.db, text.data(), static_cast<int>(text.size()), &statement.handle, tail);
}

// Compiles one statement of the program: the engine's words translated, one
// statement only, and nothing but SELECT, INSERT, UPDATE and DELETE.
void CompileProgramStatement(Connection& c, const std::string& statement, Statement& compiled,
                             std::string& translated) {
    translated = TranslateStatement(statement, platform::Now());
    if (!IsRunnableKind(StatementKind(translated))) FailInvalidStatement();
    const char* tail = nullptr;
    const int code = Prepare(c, translated, compiled, &tail);
    if (code != SQLITE_OK) FailCompile(c, code, statement);
    // Names the engine doesn't know are parameters, and none are given.
    if (const int parameters = sqlite3_bind_parameter_count(compiled.handle); parameters > 0)
        Fail(kErrTooFewParameters, "Too few parameters. Expected " + std::to_string(parameters) + ".");
    const std::size_t compiledLength = static_cast<std::size_t>(tail - translated.data());
    if (!OnlySeparators(std::string_view(translated).substr(compiledLength)))
        Fail(kErrCharactersAfterEnd, "Characters found after end of SQL statement.");
}

void Bind(Connection& c, sqlite3_stmt* statement, int index, const Variant& value) {
    int code = SQLITE_OK;
    switch (value.GetKind()) {
        case Variant::Kind::Null: code = sqlite3_bind_null(statement, index); break;
        case Variant::Kind::Integer: code = sqlite3_bind_int64(statement, index, value.IntegerValue()); break;
        case Variant::Kind::Double:
        case Variant::Kind::Date: code = sqlite3_bind_double(statement, index, value.RealValue()); break;
        case Variant::Kind::Text:
            code = sqlite3_bind_text(statement, index, value.TextValue().data(),
                                     static_cast<int>(value.TextValue().size()), SQLITE_TRANSIENT);
            break;
    }
    if (code != SQLITE_OK) FailStatus(c, code);
}

void RunToEnd(Connection& c, sqlite3_stmt* statement) {
    int code;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
    }
    if (code != SQLITE_DONE) FailStatus(c, code);
}

Variant ReadColumn(sqlite3_stmt* statement, int column, bool isDate) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL: return {};
        case SQLITE_INTEGER: {
            const std::int64_t value = sqlite3_column_int64(statement, column);
            return isDate ? Variant::Date(static_cast<double>(value)) : Variant(value);
        }
        case SQLITE_FLOAT: {
            const double value = sqlite3_column_double(statement, column);
            return isDate ? Variant::Date(value) : Variant(value);
        }
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            return Variant(std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))));
        }
    }
}

std::string QuoteName(const std::string& name) {
    std::string quoted = "\"";
    for (char c : name) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

long long FileSize(const std::string& name) {
    struct stat status {};
    return ::stat(name.c_str(), &status) == 0 ? static_cast<long long>(status.st_size) : -1;
}

bool IsDirectory(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

[[noreturn]] void FailCantOpen(const std::string& name) {
    if (FileSize(name) >= 0)
        Fail(kErrCannotOpenFile, "The database engine cannot open the file '" + name +
                                     "'. It is already opened exclusively by another user, or you need "
                                     "permission to view its data.");
    const auto slash = name.rfind('/');
    const std::string directory = slash == std::string::npos ? "." : name.substr(0, std::max<std::size_t>(slash, 1));
    if (!IsDirectory(directory))
        Fail(kErrNotAValidPath, "'" + directory +
                                    "' isn't a valid path. Make sure that the path name is spelled correctly "
                                    "and that you are connected to the server on which the file resides.");
    Fail(kErrCouldNotFindFile, "Could not find file '" + name + "'.");
}

// Encrypted pages are this long; a file that isn't a whole number of them
// isn't one of ours at all, one that is was written with another password.
constexpr long long kPageSize = 1024;

// Reads the file's schema and checks every page: a wrong password, a file
// that is no database and a damaged file all fail here, at the open.
void CheckFile(Connection& c) {
    Statement check;
    int code = Prepare(c, "SELECT count(*) FROM sqlite_master", check, nullptr);
    if (code == SQLITE_OK) code = sqlite3_step(check.handle);
    if (code == SQLITE_NOTADB) {
        const long long size = FileSize(c.fileName);
        if (size > 0 && size % kPageSize == 0) Fail(kErrNotAValidPassword, "Not a valid password.");
        FailUnrecognizedFormat(c);
    }
    if (code != SQLITE_ROW) FailStatus(c, code);
    if (sqlite3_column_int(check.handle, 0) == 0) FailUnrecognizedFormat(c);

    Statement integrity;
    code = Prepare(c, "PRAGMA quick_check", integrity, nullptr);
    if (code == SQLITE_OK) code = sqlite3_step(integrity.handle);
    if (code != SQLITE_ROW) FailStatus(c, code);
    const auto* verdict = reinterpret_cast<const char*>(sqlite3_column_text(integrity.handle, 0));
    if (!verdict || std::strcmp(verdict, "ok") != 0) FailUnrecognizedFormat(c);
}

}  // namespace

// --- Variant ------------------------------------------------------------------

Variant Variant::Date(double date) {
    Variant value(date);
    value.kind_ = Kind::Date;
    return value;
}

std::string Variant::ToString() const {
    switch (kind_) {
        case Kind::Null: platform::Raise(platform::kErrInvalidUseOfNull);
        case Kind::Integer: return std::to_string(integer_);
        case Kind::Double: {
            char text[32];
            std::snprintf(text, sizeof text, "%.15g", real_);
            return text;
        }
        case Kind::Date: return platform::FormatDate(real_, "yyyy-mm-dd hh:nn:ss");
        case Kind::Text: break;
    }
    return text_;
}

double Variant::ToDouble() const {
    switch (kind_) {
        case Kind::Null: platform::Raise(platform::kErrInvalidUseOfNull);
        case Kind::Integer: return static_cast<double>(integer_);
        case Kind::Double:
        case Kind::Date: return real_;
        case Kind::Text: break;
    }
    const std::string trimmed = platform::Trim(text_);
    char* end = nullptr;
    const double value = std::strtod(trimmed.c_str(), &end);
    if (trimmed.empty() || *end != '\0' || !std::isfinite(value)) platform::Raise(platform::kErrTypeMismatch);
    return value;
}

// --- Database -----------------------------------------------------------------

std::unique_ptr<Database> DBEngine::OpenDatabase(const std::string& name, bool exclusive, bool readOnly,
                                                  const std::string& connect) {
    auto c = std::make_shared<Connection>();
    c->fileName = platform::FindIgnoringCase(name);
    const int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    const int code = sqlite3_open_v2(c->fileName.c_str(), &c->db, flags, nullptr);
    if (code == SQLITE_CANTOPEN) FailCantOpen(name);
    if (code != SQLITE_OK) FailStatus(*c, code);
    const std::string password = ConnectPassword(connect);
    if (!password.empty()) sqlite3_key(c->db, password.data(), static_cast<int>(password.size()));
    sqlite3_busy_timeout(c->db, 1000);
    sqlite3_limit(c->db, SQLITE_LIMIT_LENGTH, 1 << 20);
    if (exclusive) sqlite3_exec(c->db, "PRAGMA locking_mode=EXCLUSIVE", nullptr, nullptr, nullptr);
    CheckFile(*c);
    sqlite3_set_authorizer(c->db, Authorize, c.get());
    return std::unique_ptr<Database>(new Database(std::move(c)));
}

Database::~Database() = default;

void Database::Execute(const std::string& statement) {
    Statement compiled;
    std::string translated;
    CompileProgramStatement(*connection_, statement, compiled, translated);
    if (sqlite3_column_count(compiled.handle) > 0) Fail(kErrCannotExecuteSelect, "Cannot execute a select query.");
    RunToEnd(*connection_, compiled.handle);
}

std::unique_ptr<Recordset> Database::OpenRecordset(const std::string& statement, RecordsetTypeEnum type) {
    if (type != dbOpenDynaset && type != dbOpenSnapshot) Fail(kErrInvalidArgument, "Invalid argument.");
    Connection& c = *connection_;
    Statement compiled;
    std::string translated;
    CompileProgramStatement(c, statement, compiled, translated);
    const int count = sqlite3_column_count(compiled.handle);
    if (count == 0) Fail(kErrInvalidOperation, "Invalid operation.");

    std::vector<Recordset::Column> columns;
    std::string table;
    bool oneTable = true;
    for (int i = 0; i < count; ++i) {
        const char* declared = sqlite3_column_decltype(compiled.handle, i);
        const char* origin = sqlite3_column_origin_name(compiled.handle, i);
        const char* from = sqlite3_column_table_name(compiled.handle, i);
        columns.push_back({sqlite3_column_name(compiled.handle, i), origin ? origin : "",
                           declared && platform::UCase(declared).find("DATE") != std::string::npos});
        if (!from || (!table.empty() && !SameName(table, from))) oneTable = false;
        if (from && table.empty()) table = from;
    }

    // A dynaset over the rows of one table can be changed: it reads each
    // row's id beside the fields, from the same statement with the id in front.
    bool updatable = type == dbOpenDynaset && oneTable && !MergesRows(translated);
    Statement withIds;
    if (updatable) updatable = Prepare(c, WithLeadingColumn(translated, "_rowid_"), withIds, nullptr) == SQLITE_OK;
    sqlite3_stmt* reader = updatable ? withIds.handle : compiled.handle;
    const int first = updatable ? 1 : 0;

    std::unique_ptr<Recordset> recordset(new Recordset(connection_, std::move(columns), updatable ? table : ""));
    int code;
    while ((code = sqlite3_step(reader)) == SQLITE_ROW) {
        std::vector<Variant> row;
        for (int i = 0; i < count; ++i) row.push_back(ReadColumn(reader, first + i, recordset->columns_[i].isDate));
        recordset->rows_.push_back(std::move(row));
        recordset->rowIds_.push_back(updatable ? sqlite3_column_int64(reader, 0) : 0);
    }
    if (code != SQLITE_DONE) FailStatus(c, code);
    return recordset;
}

// --- Recordset ----------------------------------------------------------------

Recordset::Recordset(std::shared_ptr<Connection> connection, std::vector<Column> columns, std::string table)
    : connection_(std::move(connection)), columns_(std::move(columns)), table_(std::move(table)) {}

Recordset::~Recordset() = default;

void Recordset::CheckOpen() const {
    if (closed_) Fail(kErrObjectInvalid, "Object invalid or no longer set.");
}

void Recordset::CheckCurrentRow() const {
    CheckOpen();
    if (position_ >= rows_.size()) Fail(kErrNoCurrentRecord, "No current record.");
}

bool Recordset::Bof() const {
    CheckOpen();
    return rows_.empty();
}

bool Recordset::Eof() const {
    CheckOpen();
    return position_ >= rows_.size();
}

void Recordset::MoveNext() {
    CheckCurrentRow();
    editMode_ = EditMode::None;
    ++position_;
}

Field Recordset::Fields(const std::string& name) {
    CheckOpen();
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (SameName(columns_[i].name, name)) return Field(*this, i);
    Fail(kErrItemNotFound, "Item not found in this collection.");
}

void Recordset::AddNew() {
    CheckOpen();
    if (table_.empty()) Fail(kErrReadOnly, "Cannot update. Database or object is read-only.");
    editMode_ = EditMode::AddNew;
    pending_.clear();
}

void Recordset::Edit() {
    CheckCurrentRow();
    if (table_.empty()) Fail(kErrReadOnly, "Cannot update. Database or object is read-only.");
    editMode_ = EditMode::Edit;
    pending_.clear();
}

void Recordset::Update() {
    CheckOpen();
    if (editMode_ == EditMode::None) Fail(kErrUpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit.");
    const EditMode mode = editMode_;
    editMode_ = EditMode::None;
    if (mode == EditMode::Edit && pending_.empty()) return;

    std::string text;
    if (mode == EditMode::Edit) {
        text = "UPDATE " + QuoteName(table_) + " SET ";
        for (std::size_t i = 0; i < pending_.size(); ++i)
            text += (i ? ", " : "") + QuoteName(columns_[pending_[i].first].origin) + " = ?";
        text += " WHERE _rowid_ = ?";
    } else if (pending_.empty()) {
        text = "INSERT INTO " + QuoteName(table_) + " DEFAULT VALUES";
    } else {
        std::string names, values;
        for (std::size_t i = 0; i < pending_.size(); ++i) {
            names += (i ? ", " : "") + QuoteName(columns_[pending_[i].first].origin);
            values += i ? ", ?" : "?";
        }
        text = "INSERT INTO " + QuoteName(table_) + " (" + names + ") VALUES (" + values + ")";
    }

    Connection& c = *connection_;
    Statement statement;
    const int code = Prepare(c, text, statement, nullptr);
    if (code != SQLITE_OK) FailStatus(c, code);
    int index = 1;
    for (const auto& [column, value] : pending_) Bind(c, statement.handle, index++, value);
    if (mode == EditMode::Edit) {
        const int rowIdCode = sqlite3_bind_int64(statement.handle, index, rowIds_[position_]);
        if (rowIdCode != SQLITE_OK) FailStatus(c, rowIdCode);
    }
    RunToEnd(c, statement.handle);
    if (mode == EditMode::Edit)
        for (const auto& [column, value] : pending_) rows_[position_][column] = value;
    pending_.clear();
}

void Recordset::Close() {
    CheckOpen();
    closed_ = true;
    rows_.clear();
}

// --- Field --------------------------------------------------------------------

Variant Field::Value() const {
    recordset_.CheckCurrentRow();
    return recordset_.rows_[recordset_.position_][column_];
}

Field& Field::operator=(const Variant& value) {
    recordset_.CheckOpen();
    if (recordset_.editMode_ == Recordset::EditMode::None)
        Fail(kErrUpdateWithoutEdit, "Update or CancelUpdate without AddNew or Edit.");
    if (recordset_.columns_[column_].origin.empty()) Fail(kErrFieldCantBeUpdated, "Field can't be updated.");
    auto& pending = recordset_.pending_;
    const auto same = std::find_if(pending.begin(), pending.end(), [&](const auto& p) { return p.first == column_; });
    if (same != pending.end())
        same->second = value;
    else
        pending.emplace_back(column_, value);
    return *this;
}

}  // namespace dao
