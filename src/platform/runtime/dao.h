// The database engine as the program uses it: a password-protected file
// opened by name, recordsets over one SELECT each (updatable dynasets and
// read-only snapshots) and statements run without a result. The statements
// are taken as the program writes them, in the engine's dialect: DELETE *
// FROM, Now, case-insensitive text comparisons (dao_dialect.h translates
// them). Every failure is a platform::RuntimeError with the engine's number
// and description.
//
// One statement per call: text behind it is an error. A statement reaches one
// table only, and only SELECT, INSERT, UPDATE and DELETE are accepted.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/runtime/runtime.h"

namespace dao {

enum RecordsetTypeEnum : int {
    dbOpenDynaset = 2,
    dbOpenSnapshot = 4,
};

// Numbers of the engine's errors.
enum EngineErrorNumber : std::int32_t {
    kErrReserved = 3000,
    kErrInvalidArgument = 3001,
    kErrUpdateWithoutEdit = 3020,
    kErrNoCurrentRecord = 3021,
    kErrCouldNotFindFile = 3024,
    kErrNoSpace = 3026,
    kErrReadOnly = 3027,
    kErrNotAValidPassword = 3031,
    kErrNoPermission = 3033,
    kErrResourceExceeded = 3035,
    kErrDiskOrNetwork = 3043,
    kErrNotAValidPath = 3044,
    kErrCannotOpenFile = 3051,
    kErrTooFewParameters = 3061,
    kErrCannotExecuteSelect = 3065,
    kErrSyntaxInExpression = 3075,
    kErrCannotFindTable = 3078,
    kErrUndefinedFunction = 3085,
    kErrInvalidStatement = 3129,
    kErrSyntaxInFromClause = 3131,
    kErrSyntaxInInsert = 3134,
    kErrSyntaxInSelect = 3141,
    kErrCharactersAfterEnd = 3142,
    kErrSyntaxInUpdate = 3144,
    kErrFieldTooSmall = 3163,
    kErrFieldCantBeUpdated = 3164,
    kErrCurrentlyLocked = 3218,
    kErrInvalidOperation = 3219,
    kErrItemNotFound = 3265,
    kErrUnrecognizedFormat = 3343,
    kErrValuesAndFieldsDiffer = 3346,
    kErrNumericFieldOverflow = 3349,
    kErrObjectInvalid = 3420,
    kErrDataTypeConversion = 3421,
};

// A field's value: Null, a whole number, a floating number, a text or a date
// (a date value as in platform::DateValue).
class Variant {
public:
    enum class Kind { Null, Integer, Double, Text, Date };

    Variant() = default;
    Variant(std::int16_t value) : kind_(Kind::Integer), integer_(value) {}
    Variant(std::int32_t value) : kind_(Kind::Integer), integer_(value) {}
    Variant(std::int64_t value) : kind_(Kind::Integer), integer_(value) {}
    Variant(double value) : kind_(Kind::Double), real_(value) {}
    Variant(std::string value) : kind_(Kind::Text), text_(std::move(value)) {}
    Variant(const char* value) : kind_(Kind::Text), text_(value) {}
    static Variant Date(double date);

    Kind GetKind() const { return kind_; }
    bool IsNull() const { return kind_ == Kind::Null; }

    // Conversions as the program makes them: error 94 for Null, 13 for a
    // text that isn't a number, 6 beyond the width.
    std::string ToString() const;
    double ToDouble() const;
    std::int16_t ToInt16() const { return platform::CInt(ToDouble()); }
    std::int32_t ToInt32() const { return platform::CLng(ToDouble()); }

    std::int64_t IntegerValue() const { return integer_; }
    double RealValue() const { return real_; }
    const std::string& TextValue() const { return text_; }

private:
    Kind kind_ = Kind::Null;
    std::int64_t integer_ = 0;
    double real_ = 0;
    std::string text_;
};

struct Connection;
class Recordset;

// One field of the current row, by name: read its value, or assign it while
// the recordset is in AddNew or Edit.
class Field {
public:
    Variant Value() const;
    Field& operator=(const Variant& value);

private:
    friend class Recordset;
    Field(Recordset& recordset, std::size_t column) : recordset_(recordset), column_(column) {}
    Recordset& recordset_;
    std::size_t column_;
};

// The rows of one SELECT, read when it opens. A cursor over rows starts on
// the first row; Bof() and Eof() both true mean no rows. (EOF is a macro of
// the C library, hence the spelling.)
class Recordset {
public:
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool Bof() const;
    bool Eof() const;
    void MoveNext();
    Field Fields(const std::string& name);
    void AddNew();
    void Edit();
    void Update();
    void Close();

private:
    friend class Database;
    friend class Field;
    struct Column {
        std::string name;     // as the SELECT names it
        std::string origin;   // the table's column, empty for an expression
        bool isDate = false;  // a date/time column
    };
    enum class EditMode { None, Edit, AddNew };

    Recordset(std::shared_ptr<Connection> connection, std::vector<Column> columns, std::string table);
    void CheckOpen() const;
    void CheckCurrentRow() const;

    std::shared_ptr<Connection> connection_;
    std::vector<Column> columns_;
    std::string table_;  // the one table behind an updatable recordset, else empty
    std::vector<std::vector<Variant>> rows_;
    std::vector<std::int64_t> rowIds_;
    std::size_t position_ = 0;
    bool closed_ = false;
    EditMode editMode_ = EditMode::None;
    std::vector<std::pair<std::size_t, Variant>> pending_;  // fields assigned since AddNew/Edit
};

class Database {
public:
    ~Database();
    std::unique_ptr<Recordset> OpenRecordset(const std::string& statement,
                                             RecordsetTypeEnum type = dbOpenDynaset);
    void Execute(const std::string& statement);

private:
    friend struct DBEngine;
    explicit Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}
    std::shared_ptr<Connection> connection_;
};

struct DBEngine {
    // The connect string carries the password as ";pwd=<password>".
    static std::unique_ptr<Database> OpenDatabase(const std::string& name, bool exclusive, bool readOnly,
                                                  const std::string& connect);
};

}  // namespace dao
