#include "platform/runtime/runtime.h"

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/runtime/file_system.h"
#include "platform/runtime/program_place.h"

namespace platform {

RuntimeError::RuntimeError(std::int32_t number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

std::string ErrorDescription(std::int32_t number) {
    switch (number) {
        case kErrOverflow: return "Overflow";
        case kErrTypeMismatch: return "Type mismatch";
        case kErrBadFileNameOrNumber: return "Bad file name or number";
        case kErrFileNotFound: return "File not found";
        case kErrBadFileMode: return "Bad file mode";
        case kErrFileAlreadyOpen: return "File already open";
        case kErrDiskFull: return "Disk full";
        case kErrInputPastEndOfFile: return "Input past end of file";
        case kErrPermissionDenied: return "Permission denied";
        case kErrPathFileAccess: return "Path/File access error";
        case kErrPathNotFound: return "Path not found";
        case kErrInvalidUseOfNull: return "Invalid use of Null";
        default: return "Application-defined or object-defined error";
    }
}

void Raise(std::int32_t number) { throw RuntimeError(number, ErrorDescription(number)); }

// --- numbers ----------------------------------------------------------------

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

double Val(std::string_view text) {
    std::string s;
    for (char c : text)
        if (c != ' ' && c != '\t' && c != '\n') s += c;

    std::string number;
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) number += s[i++];
    bool anyDigit = false;
    for (; i < s.size() && IsDigit(s[i]); ++i, anyDigit = true) number += s[i];
    if (i < s.size() && s[i] == '.') {
        number += s[i++];
        for (; i < s.size() && IsDigit(s[i]); ++i, anyDigit = true) number += s[i];
    }
    if (!anyDigit) return 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
        std::size_t j = i + 1;
        std::string exponent = "e";
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exponent += s[j++];
        if (j < s.size() && IsDigit(s[j])) {
            for (; j < s.size() && IsDigit(s[j]); ++j) exponent += s[j];
            number += exponent;
        }
    }
    const double value = std::strtod(number.c_str(), nullptr);
    if (std::isinf(value)) Raise(kErrOverflow);
    return value;
}

double RoundToEven(double value) {
    double whole = std::floor(value);
    const double fraction = value - whole;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2.0) != 0.0)) whole += 1.0;
    return whole;
}

std::int16_t CInt(double value) {
    const double rounded = RoundToEven(value);
    if (!(rounded >= INT16_MIN && rounded <= INT16_MAX)) Raise(kErrOverflow);
    return static_cast<std::int16_t>(rounded);
}

std::int32_t CLng(double value) {
    const double rounded = RoundToEven(value);
    if (!(rounded >= INT32_MIN && rounded <= INT32_MAX)) Raise(kErrOverflow);
    return static_cast<std::int32_t>(rounded);
}

// --- strings ----------------------------------------------------------------

std::string Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(' ');
    return std::string(text.substr(first, last - first + 1));
}

std::string UCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

// --- where the program lives ------------------------------------------------

namespace {

std::optional<std::string> gAppPathOverride;
std::optional<std::array<std::string, 2>> gInstallDirsOverride;

std::string ExecutableDirectory() {
    std::string buffer(PATH_MAX, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (length <= 0) return ".";
    buffer.resize(static_cast<std::size_t>(length));
    const auto slash = buffer.rfind('/');
    return slash == 0 ? std::string("/") : buffer.substr(0, slash);
}

std::string ParentDirectory(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? std::string("/") : path.substr(0, slash);
}

bool IsDirectory(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::string AppPath() { return gAppPathOverride ? *gAppPathOverride : ExecutableDirectory(); }

void SetAppPath(std::optional<std::string> path) { gAppPathOverride = std::move(path); }

// An installed program's per-user folder; the development folder the
// program was once built in is none here.
std::array<std::string, 2> RegularInstallDirs() {
    if (gInstallDirsOverride) return *gInstallDirsOverride;
    return {ProgramInstalled() ? PerUserFolder() : std::string(), std::string()};
}

void SetRegularInstallDirs(std::optional<std::array<std::string, 2>> dirs) {
    gInstallDirsOverride = std::move(dirs);
}

// --- files ------------------------------------------------------------------

bool FileExists(const std::string& path) {
    struct stat status {};
    if (::stat(FindIgnoringCase(path).c_str(), &status) == 0) return S_ISREG(status.st_mode);
    if (errno == ENAMETOOLONG) Raise(kErrBadFileNameOrNumber);
    return false;
}

namespace {

[[noreturn]] void RaiseOpenError(int error, const std::string& path, bool forOutput) {
    switch (error) {
        case ENOENT:
            if (forOutput || !IsDirectory(ParentDirectory(path))) Raise(kErrPathNotFound);
            Raise(kErrFileNotFound);
        case EACCES:
        case EPERM:
        case EROFS: Raise(kErrPermissionDenied);
        case ENAMETOOLONG: Raise(kErrBadFileNameOrNumber);
        case ENOSPC: Raise(kErrDiskFull);
        default: Raise(kErrPathFileAccess);
    }
}

[[noreturn]] void RaiseWriteError(int error) { Raise(error == ENOSPC ? kErrDiskFull : kErrPathFileAccess); }

}  // namespace

TextFile::~TextFile() {
    if (file_) std::fclose(file_);
}

void TextFile::OpenForInput(const std::string& path) {
    if (file_) Raise(kErrFileAlreadyOpen);
    std::FILE* file = std::fopen(FindIgnoringCase(path).c_str(), "rb");
    if (!file) RaiseOpenError(errno, path, false);
    struct stat status {};
    if (::fstat(::fileno(file), &status) != 0 || S_ISDIR(status.st_mode)) {
        std::fclose(file);
        Raise(kErrPathFileAccess);
    }
    file_ = file;
    forOutput_ = false;
}

void TextFile::OpenForOutput(const std::string& path) {
    if (file_) Raise(kErrFileAlreadyOpen);
    std::FILE* file = std::fopen(FindIgnoringCase(path).c_str(), "wb");
    if (!file) RaiseOpenError(errno, path, true);
    file_ = file;
    forOutput_ = true;
}

bool TextFile::AtEnd() {
    if (!file_) Raise(kErrBadFileNameOrNumber);
    if (forOutput_) Raise(kErrBadFileMode);
    const int c = std::fgetc(file_);
    if (c == EOF) return true;
    std::ungetc(c, file_);
    return false;
}

std::string TextFile::LineInput() {
    if (!file_) Raise(kErrBadFileNameOrNumber);
    if (forOutput_) Raise(kErrBadFileMode);
    int c = std::fgetc(file_);
    if (c == EOF) Raise(std::ferror(file_) ? kErrPathFileAccess : kErrInputPastEndOfFile);
    std::string line;
    while (c != EOF && c != '\n' && c != '\r') {
        line += static_cast<char>(c);
        c = std::fgetc(file_);
    }
    if (c == '\r') {
        const int next = std::fgetc(file_);
        if (next != '\n' && next != EOF) std::ungetc(next, file_);
    }
    if (std::ferror(file_)) Raise(kErrPathFileAccess);
    return line;
}

void TextFile::PrintLine(std::string_view text) {
    if (!file_) Raise(kErrBadFileNameOrNumber);
    if (!forOutput_) Raise(kErrBadFileMode);
    const std::string line = std::string(text) + kCrLf;
    if (std::fwrite(line.data(), 1, line.size(), file_) != line.size()) RaiseWriteError(errno);
}

void TextFile::Close() {
    if (!file_) return;
    std::FILE* file = file_;
    file_ = nullptr;
    if (std::fclose(file) != 0) RaiseWriteError(errno);
}

// --- dates ------------------------------------------------------------------

namespace {

constexpr int kSecondsPerDay = 86400;

// Days since 1 January 1970 of a date of the proleptic Gregorian calendar.
long DaysFromCivil(long year, long month, long day) {
    year -= month <= 2;
    const long era = (year >= 0 ? year : year - 399) / 400;
    const long yearOfEra = year - era * 400;
    const long dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

struct DateParts {
    long year, month, day;
    int hour, minute, second;
};

DateParts SplitDate(double date) {
    long days = static_cast<long>(std::floor(date));
    long seconds = std::lround((date - static_cast<double>(days)) * kSecondsPerDay);
    if (seconds >= kSecondsPerDay) {
        ++days;
        seconds -= kSecondsPerDay;
    }
    // The inverse of DaysFromCivil, counted from the date value's day 0.
    const long z = days + DaysFromCivil(1899, 12, 30) + 719468;
    const long era = (z >= 0 ? z : z - 146096) / 146097;
    const long dayOfEra = z - era * 146097;
    const long yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const long dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const long mp = (5 * dayOfYear + 2) / 153;
    const long day = dayOfYear - (153 * mp + 2) / 5 + 1;
    const long month = mp + (mp < 10 ? 3 : -9);
    const long year = yearOfEra + era * 400 + (month <= 2);
    return {year, month, day, static_cast<int>(seconds / 3600), static_cast<int>(seconds / 60 % 60),
            static_cast<int>(seconds % 60)};
}

std::string TwoDigits(long value) {
    char text[16];
    std::snprintf(text, sizeof text, "%02ld", value);
    return text;
}

}  // namespace

double DateValue(int year, int month, int day, int hour, int minute, int second) {
    const long days = DaysFromCivil(year, month, day) - DaysFromCivil(1899, 12, 30);
    return static_cast<double>(days) + (hour * 3600.0 + minute * 60.0 + second) / kSecondsPerDay;
}

double Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return DateValue(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                     local.tm_sec);
}

std::string FormatDate(double date, std::string_view format) {
    const DateParts parts = SplitDate(date);
    std::string text;
    std::size_t i = 0;
    auto takes = [&](std::string_view token) {
        if (format.substr(i, token.size()) != token) return false;
        i += token.size();
        return true;
    };
    while (i < format.size()) {
        if (takes("yyyy")) {
            text += std::to_string(parts.year);
        } else if (takes("mmm")) {
            std::tm month{};
            month.tm_mon = static_cast<int>(parts.month - 1);
            char name[64];
            text += std::string(name, std::strftime(name, sizeof name, "%b", &month));
        } else if (takes("mm")) {
            text += TwoDigits(parts.month);
        } else if (takes("dd")) {
            text += TwoDigits(parts.day);
        } else if (takes("hh")) {
            text += TwoDigits(parts.hour);
        } else if (takes("nn")) {
            text += TwoDigits(parts.minute);
        } else if (takes("ss")) {
            text += TwoDigits(parts.second);
        } else {
            text += format[i++];
        }
    }
    return text;
}

}  // namespace platform
