#include "TerragenSample.h"

#include <cmath>
#include <cstring>

namespace {

void PutText(std::vector<std::uint8_t>& out, const char* text) {
    out.insert(out.end(), text, text + std::strlen(text));
}

void PutShort(std::vector<std::uint8_t>& out, int value) {
    const auto bits = static_cast<std::uint16_t>(value);
    out.push_back(static_cast<std::uint8_t>(bits & 0xFFu));
    out.push_back(static_cast<std::uint8_t>(bits >> 8));
}

void PutFloat(std::vector<std::uint8_t>& out, float value) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    for (int shift = 0; shift < 32; shift += 8)
        out.push_back(static_cast<std::uint8_t>(bits >> shift));
}

// A block of an id and a 16-bit value with its two padding bytes.
void PutShortBlock(std::vector<std::uint8_t>& out, const char* id, int value) {
    PutText(out, id);
    PutShort(out, value);
    PutShort(out, 0);
}

// Everything before the elevations; "ALTW", its height scale and base height included.
std::vector<std::uint8_t> Header(int columns, int rows, bool omitOptionalBlocks) {
    std::vector<std::uint8_t> out;
    PutText(out, "TERRAGENTERRAIN ");
    PutShortBlock(out, "SIZE", (columns < rows ? columns : rows) - 1);
    PutShortBlock(out, "XPTS", columns);
    PutShortBlock(out, "YPTS", rows);
    if (!omitOptionalBlocks) {
        PutText(out, "SCAL");
        for (int i = 0; i < 3; ++i)
            PutFloat(out, 30.0f);
        PutText(out, "CRAD");
        PutFloat(out, 6370.0f);
        PutText(out, "CRVM");
        PutShort(out, 0);
        PutShort(out, 0);
    }
    PutText(out, "ALTW");
    PutShort(out, 80); // height scale
    PutShort(out, 0);  // base height
    return out;
}

} // namespace

std::vector<std::uint8_t> MakeTerragenFile(const TerragenSampleOptions& options,
                                           const std::vector<std::int16_t>& elevations) {
    std::vector<std::uint8_t> out = Header(options.columns, options.rows, options.omitOptionalBlocks);
    const std::size_t count =
        static_cast<std::size_t>(options.columns) * static_cast<std::size_t>(options.rows);
    for (std::size_t i = 0; i < count || i < elevations.size(); ++i)
        PutShort(out, i < elevations.size() ? elevations[i] : 0);
    if (options.withEofMarker) PutText(out, "EOF ");
    return out;
}

std::vector<std::uint8_t> MakeTerragenFileFromPairs(int columns, int rows,
                                                    const std::vector<std::uint8_t>& pairBytes) {
    std::vector<std::uint8_t> out = Header(columns, rows, false);
    out.push_back(0);
    out.insert(out.end(), pairBytes.begin(), pairBytes.end());
    return out;
}

std::vector<std::int16_t> RollingTerragenElevations(int side) {
    std::vector<std::int16_t> out;
    out.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            out.push_back(static_cast<std::int16_t>(std::lrint(
                9000.0 * std::sin(x * 0.05) * std::cos(y * 0.037) + 1500.0 * std::sin(x * 0.3 + y * 0.2))));
    return out;
}
