// libFuzzer target: the Terragen reader on arbitrary bytes. Whatever it accepts must be a grid of
// 2 .. 513 points a side holding values in the decoded range, and must convert to heights within
// the terrain's limits.
#include "TerragenFile.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    SampleGrid samples;
    if (!ParseTerragenFile({data, size}, samples)) {
        if (!samples.Empty()) std::abort();
        return 0;
    }
    if (samples.columns < 2 || samples.rows < 2 || samples.columns > kMaxGridSide ||
        samples.rows > kMaxGridSide ||
        samples.values.size() !=
            static_cast<std::size_t>(samples.columns) * static_cast<std::size_t>(samples.rows))
        std::abort();
    // The grid's bytes come from the file: never more than a few times its size.
    if (samples.values.size() * sizeof(float) > 4 * size) std::abort();
    for (float v : samples.values)
        if (!(v > 0.0f && v <= 256.0f)) std::abort();
    const TerrainData terrain = TerrainFromTerragen(samples, true, static_cast<float>(size % 257));
    for (std::size_t i = 0; i < terrain.heights.Size(); ++i) {
        const float h = terrain.heights.Data()[i];
        if (!(h >= -10.0f && h <= 256.0f / 1.7f)) std::abort();
    }
    return 0;
}
