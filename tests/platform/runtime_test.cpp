#include "platform/runtime/runtime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>

#include "dao_fixture.h"

using namespace platform;

namespace {

TEST(Val, ReadsTheLeadingNumberIgnoringBlanksAnywhere) {
    for (const auto& [text, value] :
         std::vector<std::pair<const char*, double>>{{"12abc", 12}, {"abc", 0}, {"", 0}, {"-", 0}, {"2.5", 2.5},
                                                     {".5x", 0.5}, {"+7", 7}, {"-2.5e1x", -25}, {"1d2", 100},
                                                     {"3e", 3}, {"1,5", 1}, {"$5", 0}, {" 1 2\t3\n4", 1234},
                                                     {"  - 7", -7}})
        EXPECT_EQ(Val(text), value) << text;
}

TEST(Conversion, RoundsHalvesToEvenAndOverflowsOutsideTheWidthAfterRounding) {
    for (const auto& [value, rounded] : std::vector<std::pair<double, double>>{
             {2.5, 2}, {3.5, 4}, {-2.5, -2}, {-3.5, -4}, {2.4999, 2}, {2.5001, 3}, {0.5, 0}})
        EXPECT_EQ(RoundToEven(value), rounded) << value;
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(CInt(-32768.5), -32768);  // rounds to the even -32768, which fits
    EXPECT_EQ(CLng(2147483647.0), 2147483647);
    ExpectErrors({{[] { Val("1e999"); }, {6, "Overflow"}},
                  {[] { CInt(32767.5); }, {6, ""}},
                  {[] { CInt(-32769); }, {6, ""}},
                  {[] { CLng(2147483647.5); }, {6, ""}},
                  {[] { CLng(-2147483649.0); }, {6, ""}},
                  {[] { CLng(std::nan("")); }, {6, ""}}});
}

TEST(Now, IsTheLocalTimeToTheSecond) {
    const std::time_t before = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&before, &local);
    EXPECT_NEAR(Now(), DateValue(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                                 local.tm_sec), 2.0 / 86400);
}

}  // namespace
