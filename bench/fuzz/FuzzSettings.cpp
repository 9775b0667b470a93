// Fuzz target for the settings text: the key lookup, the number and boolean readers, and the whole
// settings parse. The first input byte gives the key's length (0 to 39), the key follows, and the
// rest is the settings text. Besides not crashing, it checks what every reader promises and that a
// parsed file, once written, reads back and writes out the same.

#include "AppSettings.h"
#include "IniText.h"
#include "NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

void CheckLookup(const IniText& text, const std::string& key) {
    const std::string value = IniGet(text, key);
    Require(IniHasKey(text, key) || value.empty());
    Require(value.empty() || (value.front() != ' ' && value.back() != ' '));
    Require(value.find(kIniLineBreak) == std::string::npos);
}

void CheckNumbers(const std::string& text) {
    const double number = ParseNumber(text);
    Require(std::isfinite(number) && std::isfinite(ParseSingle(text)));
    const int whole = ParseWholeNumber(text);
    Require(whole >= -32768 && whole <= 32767);
    (void)ParseBoolean(text);

    const std::string written = FormatNumber(number);
    Require(written.find_first_not_of("-.0123456789") == std::string::npos);
    Require(written.back() != '.' && (written.find('.') == std::string::npos || written.back() != '0'));
    // Five decimals lose at most half of the last one; the rest is the double's own precision.
    Require(std::fabs(ParseNumber(written) - number) <= 0.000005 + std::fabs(number) * 1e-15);
}

void CheckSettingsRoundTrip(const IniText& text) {
    AppSettings parsed;
    ParseSettings(text, parsed);
    const IniText written = BuildSettingsText(parsed);
    AppSettings reread;
    ParseSettings(written, reread);
    Require(BuildSettingsText(reread) == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::size_t keyLength = std::min<std::size_t>(data[0] % 40, size - 1);
    const char* chars = reinterpret_cast<const char*>(data);
    const std::string key(chars + 1, keyLength);
    const IniText text(chars + 1 + keyLength, size - 1 - keyLength);

    CheckLookup(text, key);
    CheckNumbers(IniGet(text, key));
    CheckNumbers(text);
    CheckSettingsRoundTrip(text);
    return 0;
}
