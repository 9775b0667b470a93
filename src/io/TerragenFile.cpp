#include "TerragenFile.h"

#include "FileIO.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace {

constexpr std::size_t kSamplesAt = 81;

bool TextAt(std::span<const std::uint8_t> bytes, std::size_t at, const char* text) {
    const std::size_t length = std::strlen(text);
    return at + length <= bytes.size() && std::memcmp(bytes.data() + at, text, length) == 0;
}

std::int32_t LongAt(std::span<const std::uint8_t> bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value |= static_cast<std::uint32_t>(bytes[at + i]) << (8 * i);
    return static_cast<std::int32_t>(value);
}

TerragenReadResult Refused(std::string reason) {
    return {false, std::move(reason), false};
}

// The point counts after the ids were found: both within 2 .. kMaxGridSide.
TerragenReadResult CheckCounts(std::int32_t columns, std::int32_t rows) {
    if (columns < 2 || rows < 2) return Refused("the point counts are below 2");
    if (columns > kMaxGridSide || rows > kMaxGridSide)
        return Refused("the point counts are above " + std::to_string(kMaxGridSide));
    return {true, {}, false};
}

} // namespace

float DecodeTerragenSample(std::uint8_t a, std::uint8_t b) {
    float value = a;
    if (b != 0) value = static_cast<float>(a) + 1.0f / static_cast<float>(b);
    return value <= 128.0f ? value + 128.0f : value - 128.0f;
}

TerragenReadResult ParseTerragenFile(std::span<const std::uint8_t> bytes, SampleGrid& samples) {
    // Every fixed offset read below lies before the samples.
    if (bytes.size() < kSamplesAt) return Refused("the file is too short");
    if (!TextAt(bytes, 0, "TERRAGENTERRAIN")) return Refused("no TERRAGENTERRAIN signature");
    if (!TextAt(bytes, 24, "XPTS")) return Refused("no XPTS block at offset 24");
    if (!TextAt(bytes, 32, "YPTS")) return Refused("no YPTS block at offset 32");
    if (!TextAt(bytes, 72, "ALTW")) return Refused("no ALTW block at offset 72");
    const std::int32_t columns = LongAt(bytes, 28);
    const std::int32_t rows = LongAt(bytes, 36);
    if (TerragenReadResult counts = CheckCounts(columns, rows); !counts) return counts;
    const std::size_t pairs = static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
    // The elevations proper start at 80; the samples are read one byte later, so their very last
    // byte may be the one after the file.
    if (bytes.size() < kSamplesAt - 1 + 2 * pairs)
        return Refused("the file is shorter than its point counts say");

    SampleGrid grid;
    grid.Resize(columns, rows);
    std::size_t at = kSamplesAt;
    for (int row = rows - 1; row >= 0; --row) {
        for (int column = 0; column < columns; ++column, at += 2) {
            const std::uint8_t b = at + 1 < bytes.size() ? bytes[at + 1] : std::uint8_t{0};
            grid.At(row, column) = DecodeTerragenSample(bytes[at], b);
        }
    }
    samples = std::move(grid);
    return {true, {}, false};
}

TerragenReadResult ReadTerragenFile(const std::string& path, SampleGrid& samples) {
    std::vector<std::uint8_t> bytes;
    std::string error;
    if (!ReadWholeFile(path, bytes, error)) return {false, error, true};
    return ParseTerragenFile(bytes, samples);
}

TerrainData TerrainFromTerragen(const SampleGrid& samples, bool water, float waterHeight) {
    TerrainData terrain;
    terrain.columns = samples.columns;
    terrain.rows = samples.rows;
    terrain.spacingX = kTerrainExtent / static_cast<float>(samples.columns);
    terrain.spacingZ = kTerrainExtent / static_cast<float>(samples.rows);
    terrain.waterEnabled = water;
    const float level = water ? waterHeight : 0.0f;
    terrain.heights.Resize(samples.columns, samples.rows);
    float* out = terrain.heights.Data();
    for (std::size_t i = 0; i < samples.values.size(); ++i) {
        float h = samples.values[i] - level;
        if (h < -10.0f) h = -10.0f;
        // Land above the water is flattened; the ground under it keeps its depth.
        if (h > 0.0f) h = h / 1.7f;
        out[i] = h;
    }
    return terrain;
}

std::uint32_t TerragenPreviewColour(float value, bool water, float waterHeight) {
    if (water && value < waterHeight) {
        const double intensity = std::clamp(255.0 - (waterHeight - value) * 3.0, 0.0, 255.0);
        const auto blue = static_cast<std::uint32_t>(std::lrint(intensity));
        // A sea blue: full intensity in blue, a little less in green, none in red.
        return ((blue * 3u / 5u) << 8) | blue;
    }
    const auto grey =
        static_cast<std::uint32_t>(std::lrint(std::clamp(static_cast<double>(value), 0.0, 255.0)));
    return (grey << 16) | (grey << 8) | grey;
}
