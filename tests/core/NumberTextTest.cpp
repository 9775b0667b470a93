#include "NumberText.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

TEST(NumberParsing, TakesTheLeadingNumberOrZero) {
    const std::pair<const char*, double> cases[] = {
        {"12abc", 12}, {" \t3.5", 3.5}, {"-2.25", -2.25}, {"+4", 4},    {".5", 0.5},
        {"5.", 5},     {"1e3x", 1000},  {"1 2", 1},       {"0,25", 0},  {"", 0},
        {"  ", 0},     {"abc", 0},      {".e1", 0},       {"--1", 0},   {"+-1", 0},
        {"inf", 0},    {"-nan", 0},     {"0x1", 0},       {"1e999", 0}, {"1e39", 1e39}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(ParseNumber(text), expected) << '"' << text << '"';
    EXPECT_EQ(ParseSingle("1e39"), 0.0f) << "too large for single precision";
    EXPECT_EQ(ParseSingle("0.3"), 0.3f);
}

TEST(NumberParsing, WholeNumbersRoundToEvenWithinSixteenBits) {
    const std::pair<const char*, int> cases[] = {{"2.5", 2},      {"3.5", 4},       {"-2.6", -3},
                                                 {"7 apples", 7}, {"99999", 32767}, {"-1e300", -32768}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(ParseWholeNumber(text), expected) << text;
}

TEST(BooleanText, WordsInAnyCaseOrNumbers) {
    for (const char* yes : {"True", "tRuE", "1", "-1", "0.1", "2 times"})
        EXPECT_TRUE(ParseBoolean(yes)) << yes;
    for (const char* no : {"False", "FALSE", "0", "0.0", "", "yes", "Truth"})
        EXPECT_FALSE(ParseBoolean(no)) << no;
    EXPECT_EQ(FormatBoolean(true) + FormatBoolean(false), "TrueFalse");
}

TEST(NumberFormatting, AtMostFiveDecimalsWithoutTrailingZeros) {
    std::string written;
    for (const double value :
         {0.75, 1.0, 0.0, 0.996094, 255 / 256.0, 0.333333, 0.999996, -1.25, -0.000004, 1234567890.5,
          double{0.3f}, 0.015625, std::numeric_limits<double>::quiet_NaN()}) {
        written += FormatNumber(value) + " ";
    }
    // No sign on a value that rounds to 0, an exact half rounds to even, NaN is written as 0.
    EXPECT_EQ(written, "0.75 1 0 0.99609 0.99609 0.33333 1 -1.25 0 1234567890.5 0.3 0.01562 0 ");
    EXPECT_EQ(FormatNumber(1e300).find_first_not_of("0123456789"), std::string::npos);
}

TEST(NumberFormatting, FiveDecimalValuesReadBackExactly) {
    for (int i = -200000; i <= 200000; ++i) {
        const double value = i / 100000.0;
        ASSERT_EQ(ParseNumber(FormatNumber(value)), value) << i;
    }
    for (int byte = 0; byte < 256; ++byte) {
        const std::string once = FormatNumber(static_cast<float>(byte) / 256.0f);
        ASSERT_EQ(FormatNumber(ParseSingle(once)), once) << "a stored colour must not drift on re-saving";
    }
}
