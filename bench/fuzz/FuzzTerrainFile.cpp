// libFuzzer target: the terrain file reader and the terrain scan of a track on arbitrary bytes.
// Whatever the reader accepts must write back as the same terrain.
#include "TerrainFile.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TerrainRecord record;
    if (ParseTerrainFile({data, size}, record)) {
        TerrainRecord again;
        if (!ParseTerrainFile(SerializeTerrainFile(record), again) || !(again.terrain == record.terrain))
            std::abort();
    }
    TerrainRecord scanned;
    (void)ScanTrackForTerrain({data, size}, scanned);
    return 0;
}
