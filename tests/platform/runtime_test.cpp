#include "platform/runtime/runtime.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <ctime>
#include <filesystem>

#include "dao_fixture.h"

using namespace platform;

namespace {

TEST(Val, ReadsTheLeadingNumberIgnoringBlanksAnywhereAndOverflowsBeyondADouble) {
    for (const auto& [text, value] :
         std::vector<std::pair<const char*, double>>{{"12abc", 12}, {"abc", 0}, {"", 0}, {"-", 0}, {"2.5", 2.5},
                                                     {".5x", 0.5}, {"+7", 7}, {"-2.5e1x", -25}, {"1d2", 100},
                                                     {"3e", 3}, {"1,5", 1}, {"$5", 0}, {" 1 2\t3\n4", 1234},
                                                     {"  - 7", -7}})
        EXPECT_EQ(Val(text), value) << text;
    EXPECT_EQ(ErrorOf([] { Val("1e999"); }).first, kErrOverflow);
}

TEST(Conversion, RoundsHalvesToEvenAndOverflowsOutsideTheWidthAfterRounding) {
    for (const auto& [value, rounded] : std::vector<std::pair<double, double>>{
             {2.5, 2}, {3.5, 4}, {-2.5, -2}, {-3.5, -4}, {2.4999, 2}, {2.5001, 3}})
        EXPECT_EQ(RoundToEven(value), rounded) << value;
    EXPECT_EQ(CInt(0.5), 0);
    EXPECT_EQ(CLng(1.5), 2);
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(CInt(-32768.5), -32768);  // rounds to the even -32768, which fits
    EXPECT_EQ(CLng(2147483647.0), 2147483647);
    for (const double value : {32767.5, -32769.0}) EXPECT_EQ(ErrorOf([=] { CInt(value); }).first, kErrOverflow);
    for (const double value : {2147483647.5, -2147483649.0, std::nan("")})
        EXPECT_EQ(ErrorOf([=] { CLng(value); }).first, kErrOverflow) << value;
}

TEST(Strings, TrimRemovesSpacesOnlyAndUCaseFoldsLetters) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\tx "), "\tx");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(UCase("/opt/Lantern! v3.0"), "/OPT/LANTERN! V3.0");
}

TEST(RuntimeErrors, CarryThePlatformsDescriptions) {
    for (auto [number, text] : {std::pair{6, "Overflow"}, {53, "File not found"}, {70, "Permission denied"},
                                {75, "Path/File access error"}, {76, "Path not found"}})
        EXPECT_EQ(ErrorOf([number = number] { Raise(number); }), std::make_pair(number, std::string(text)));
}

TEST(Files, AppPathIsTheExecutablesDirectoryUnlessOverriddenAndFileExistsFindsRegularFilesOnly) {
    EXPECT_TRUE(FileExists(AppPath() + "/platform_tests"));
    SetAppPath("/somewhere/else");
    EXPECT_EQ(AppPath(), "/somewhere/else");
    SetAppPath(std::nullopt);
    EXPECT_TRUE(FileExists(AppPath() + "/platform_tests"));

    TempDir dir;
    WriteBytes(dir.File("a.txt"), "x");
    std::filesystem::create_directory(dir.File("sub"));
    EXPECT_TRUE(FileExists(dir.File("a.txt")));
    EXPECT_FALSE(FileExists(dir.File("sub")));
    EXPECT_FALSE(FileExists(dir.File("missing.txt")));
    EXPECT_FALSE(FileExists(dir.File("missing/a.txt")));
    EXPECT_EQ(ErrorOf([&] { FileExists(dir.Path() + "/" + std::string(5000, 'x')); }).first, kErrBadFileNameOrNumber);
}

TEST(TextFile, WritesLinesWithCrLfOverWhatWasThereAndReadsAnyLineEnd) {
    TempDir dir;
    WriteBytes(dir.File("t.txt"), "old contents, longer than the new\r\n");
    TextFile out;
    out.OpenForOutput(dir.File("t.txt"));
    out.PrintLine("first");
    out.PrintLine("");
    out.PrintLine("third line");
    out.Close();
    EXPECT_EQ(ReadBytes(dir.File("t.txt")), "first\r\n\r\nthird line\r\n");

    WriteBytes(dir.File("mixed.txt"), "a\r\nb\nc\rd");
    TextFile in;
    in.OpenForInput(dir.File("mixed.txt"));
    std::vector<std::string> lines;
    while (!in.AtEnd()) lines.push_back(in.LineInput());
    EXPECT_EQ(lines, (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(ErrorOf([&] { in.LineInput(); }).first, kErrInputPastEndOfFile);
    in.Close();
}

TEST(TextFile, RaisesThePlatformsFileErrors) {
    TempDir dir;
    std::filesystem::create_directory(dir.File("sub"));
    TextFile file;
    EXPECT_EQ(ErrorOf([&] { file.OpenForInput(dir.File("missing.txt")); }).first, kErrFileNotFound);
    EXPECT_EQ(ErrorOf([&] { file.OpenForInput(dir.File("nodir/a.txt")); }).first, kErrPathNotFound);
    EXPECT_EQ(ErrorOf([&] { file.OpenForOutput(dir.File("nodir/a.txt")); }).first, kErrPathNotFound);
    EXPECT_EQ(ErrorOf([&] { file.OpenForInput(dir.File("sub")); }).first, kErrPathFileAccess);
    EXPECT_EQ(ErrorOf([&] { file.OpenForOutput(dir.File("sub")); }).first, kErrPathFileAccess);
    EXPECT_FALSE(file.IsOpen());

    // A file that isn't open: every statement but Close fails.
    EXPECT_EQ(ErrorOf([&] { file.PrintLine("x"); }).first, kErrBadFileNameOrNumber);
    EXPECT_EQ(ErrorOf([&] { file.LineInput(); }).first, kErrBadFileNameOrNumber);
    EXPECT_EQ(ErrorOf([&] { file.AtEnd(); }).first, kErrBadFileNameOrNumber);
    EXPECT_EQ(ErrorOf([&] { file.Close(); }).first, 0);

    file.OpenForOutput(dir.File("w.txt"));
    EXPECT_EQ(ErrorOf([&] { file.LineInput(); }).first, kErrBadFileMode);
    EXPECT_EQ(ErrorOf([&] { file.OpenForOutput(dir.File("w.txt")); }).first, kErrFileAlreadyOpen);
    file.Close();
    file.OpenForInput(dir.File("w.txt"));
    EXPECT_EQ(ErrorOf([&] { file.PrintLine("x"); }).first, kErrBadFileMode);
}

TEST(TextFile, ReadOnlyFileRefusesOutput) {
    if (::geteuid() == 0) GTEST_SKIP() << "file permissions don't bind the superuser";
    TempDir dir;
    WriteBytes(dir.File("ro.txt"), "x");
    std::filesystem::permissions(dir.File("ro.txt"), std::filesystem::perms::owner_read);
    TextFile file;
    EXPECT_EQ(ErrorOf([&] { file.OpenForOutput(dir.File("ro.txt")); }).first, kErrPermissionDenied);
}

TEST(Dates, CountDaysFromTheEndOf1899AndFormatTokensAndLiterals) {
    EXPECT_EQ(DateValue(1899, 12, 30), 0);
    EXPECT_EQ(DateValue(1900, 1, 1), 2);
    EXPECT_EQ(DateValue(2000, 1, 1), 36526);
    EXPECT_EQ(DateValue(2000, 3, 1) - DateValue(2000, 2, 28), 2);  // a leap year
    EXPECT_EQ(DateValue(2000, 1, 1, 12), 36526.5);
    EXPECT_LT(DateValue(2023, 12, 31, 23, 59, 59), DateValue(2024, 1, 1));
    const double date = DateValue(2024, 1, 5, 13, 4, 9);
    EXPECT_EQ(FormatDate(date, "yyyy-mm-dd hh:nn:ss"), "2024-01-05 13:04:09");
    EXPECT_EQ(FormatDate(date, "mmm dd"), "Jan 05");
    EXPECT_EQ(FormatDate(DateValue(1999, 12, 31, 23, 59, 59), "mmm dd yyyy hh:nn:ss"), "Dec 31 1999 23:59:59");
}

TEST(Dates, NowIsTheLocalTimeToTheSecond) {
    const std::time_t before = std::time(nullptr);
    const double now = Now();
    std::tm local{};
    ::localtime_r(&before, &local);
    const double expected = DateValue(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                                      local.tm_min, local.tm_sec);
    EXPECT_NEAR(now, expected, 2.0 / 86400);
}

}  // namespace
