#pragma once
// Numbers and booleans as they stand in the settings and preset files. The decimal separator is
// always ".", whatever the C or C++ locale says, so a file written on one machine reads the same on
// every other; nothing here calls a locale-dependent function.

#include <string>
#include <string_view>

// The number a text starts with, or 0 when it does not start with one. Leading spaces and tabs are
// skipped; then an optional "+" or "-", digits with an optional "." fraction (".5" counts) and an
// optional exponent ("1e3"). Reading stops at the first character that cannot continue the number,
// so "12abc" is 12 and "1 2" is 1. Words such as "inf" or "nan" are not numbers, and a number too
// large for the result type reads as 0, so the result is always finite.
double ParseNumber(std::string_view text);
float ParseSingle(std::string_view text);

// ParseNumber rounded to the nearest whole number, ties to even, and held to the range of the
// 16-bit whole numbers the files carry (-32768 to 32767).
int ParseWholeNumber(std::string_view text);

// "True" and "False" in any letter case; any other text is a number, true when not 0.
bool ParseBoolean(std::string_view text);

// At least one integer digit, at most five decimals rounded to nearest (ties to even), no
// trailing zeros and no trailing ".": 0.75 -> "0.75", 1 -> "1", 0.996094 -> "0.99609". A value
// that rounds to zero is "0" without a sign; infinities and NaN are written as "0", since they
// could not be read back.
std::string FormatNumber(double value);

std::string FormatWholeNumber(int value);

// "True" or "False".
std::string FormatBoolean(bool value);
