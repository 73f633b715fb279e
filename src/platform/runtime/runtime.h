// The small runtime the program was written against: run-time errors with a
// number and a description, the numeric conversions with their rounding and
// overflow, string helpers, the application path, file existence, text files
// and the date value. No Qt here.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace platform {

// Numbers of the run-time errors raised by this runtime.
enum RuntimeErrorNumber : std::int32_t {
    kErrOverflow = 6,
    kErrTypeMismatch = 13,
    kErrBadFileNameOrNumber = 52,
    kErrFileNotFound = 53,
    kErrBadFileMode = 54,
    kErrFileAlreadyOpen = 55,
    kErrDiskFull = 61,
    kErrInputPastEndOfFile = 62,
    kErrPermissionDenied = 70,
    kErrPathFileAccess = 75,
    kErrPathNotFound = 76,
    kErrInvalidUseOfNull = 94,
};

// A run-time error: what a local handler notes is its number and description.
class RuntimeError : public std::runtime_error {
public:
    RuntimeError(std::int32_t number, const std::string& description);
    std::int32_t Number() const { return number_; }
    std::string Description() const { return what(); }

private:
    std::int32_t number_;
};

// The standard description of one of the numbers above.
std::string ErrorDescription(std::int32_t number);

// Raises the error with its standard description.
[[noreturn]] void Raise(std::int32_t number);

// Runs one statement; a run-time error in it goes to onError and execution
// runs on with whatever follows, like a handler that resumes at the next
// statement.
template <class Statement, class Handler>
void ResumeNext(Statement&& statement, Handler&& onError) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        onError(error);
    }
}

// --- numbers ----------------------------------------------------------------

// The number at the start of a text: an optional sign, digits, a decimal
// point and an exponent; blanks, tabs and line feeds anywhere are ignored.
// 0 when the text doesn't start with a number; error 6 beyond a double.
double Val(std::string_view text);

// Rounds to the nearest whole number, halves to the even neighbour.
double RoundToEven(double value);

// Conversions to 16 and 32 bits: rounded to even, error 6 out of range.
std::int16_t CInt(double value);
std::int32_t CLng(double value);

// --- strings ----------------------------------------------------------------

// The line break of the program's texts and files.
inline constexpr char kCrLf[] = "\r\n";

// Removes leading and trailing blanks (spaces only).
std::string Trim(std::string_view text);
std::string UCase(std::string_view text);

// --- where the program lives ------------------------------------------------

// The directory that holds the executable, without a trailing separator.
std::string AppPath();
// Tests place the program elsewhere; nullopt restores the real directory.
void SetAppPath(std::optional<std::string> path);

// The two directories a regular installation uses, where the old paths of
// the two lead (OldPlatformPath). The settings reader only trusts a
// copy-link option found in one of them.
std::array<std::string, 2> RegularInstallDirs();
void SetRegularInstallDirs(std::optional<std::array<std::string, 2>> dirs);

// --- files ------------------------------------------------------------------

// Whether a directory search finds this name, whatever its letter case: a
// regular file, not a directory. Error 52 for a name too long to search for.
bool FileExists(const std::string& path);

// One text file open for reading or for writing, line by line, with the
// platform's file errors; an existing file is found whatever its letter
// case. Lines are written with CR LF; reading accepts CR LF, LF or CR.
class TextFile {
public:
    TextFile() = default;
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;
    ~TextFile();

    void OpenForInput(const std::string& path);
    void OpenForOutput(const std::string& path);  // creates or empties
    bool IsOpen() const { return file_ != nullptr; }
    bool AtEnd();
    std::string LineInput();
    void PrintLine(std::string_view text);
    void Close();  // closing a file that isn't open does nothing

private:
    std::FILE* file_ = nullptr;
    bool forOutput_ = false;
};

// --- dates ------------------------------------------------------------------

// A date is a double: whole days since 30 December 1899, the time of day as
// the fraction.
double DateValue(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

// The present local date and time, to the second.
double Now();

// Formats a date with the tokens yyyy, mmm (month's short name), mm, dd,
// hh, nn (minutes) and ss; every other character stands as it is.
std::string FormatDate(double date, std::string_view format);

}  // namespace platform
