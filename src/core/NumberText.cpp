#include "NumberText.h"

#include "PathUtil.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

template <typename Number> Number ParseLeading(std::string_view text) {
    std::size_t at = text.find_first_not_of(" \t");
    if (at == std::string_view::npos) return 0;
    const bool negative = text[at] == '-';
    if (text[at] == '-' || text[at] == '+') ++at;
    // from_chars alone would also take "inf", "nan" and a second sign; a number must start with a
    // digit, or with "." and a digit.
    const bool startsNumber =
        at < text.size() &&
        (IsDigit(text[at]) || (text[at] == '.' && at + 1 < text.size() && IsDigit(text[at + 1])));
    if (!startsNumber) return 0;
    Number value = 0;
    const std::from_chars_result result =
        std::from_chars(text.data() + at, text.data() + text.size(), value, std::chars_format::general);
    if (result.ec != std::errc{}) return 0;
    return negative ? -value : value;
}

} // namespace

double ParseNumber(std::string_view text) {
    return ParseLeading<double>(text);
}

float ParseSingle(std::string_view text) {
    return ParseLeading<float>(text);
}

int ParseWholeNumber(std::string_view text) {
    const double rounded = std::nearbyint(ParseNumber(text));
    return static_cast<int>(std::clamp(rounded, -32768.0, 32767.0));
}

bool ParseBoolean(std::string_view text) {
    const std::string word(text);
    if (EqualsIgnoreCase(word, "true")) return true;
    if (EqualsIgnoreCase(word, "false")) return false;
    return ParseNumber(text) != 0.0;
}

std::string FormatNumber(double value) {
    if (!std::isfinite(value)) return "0";
    // The largest double has 309 integer digits; with the sign, "." and five decimals 330 is enough.
    char buffer[330];
    const std::to_chars_result result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 5);
    if (result.ec != std::errc{}) return "0";
    std::string text(buffer, result.ptr);
    // Fixed notation always carries ".", so removing zeros stops there at the latest.
    while (text.back() == '0')
        text.pop_back();
    if (text.back() == '.') text.pop_back();
    if (text == "-0") text = "0";
    return text;
}

std::string FormatWholeNumber(int value) {
    char buffer[16];
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string FormatBoolean(bool value) {
    return value ? "True" : "False";
}
