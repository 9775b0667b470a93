// Writes small seed files for the fuzzers: demo tracks with and without a small terrain into the
// first folder, a terrain file into the second, Targa pictures (plain and run-length encoded) into
// the third.
#include "DemoTrack.h"
#include "TerrainFile.h"
#include "TrackFile.h"
#include "mSaveTGA.h"

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

bool WriteSeed(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out);
}

// A 2 x 2 run-length encoded picture: one run of three grey pixels, then one raw red pixel.
std::vector<std::uint8_t> RunLengthTarga() {
    std::vector<std::uint8_t> bytes(18, 0);
    bytes[2] = 10;
    bytes[12] = bytes[14] = 2;
    bytes[16] = 24;
    for (std::uint8_t b : {0x82, 0x80, 0x80, 0x80, 0x00, 0x00, 0x00, 0xFF})
        bytes.push_back(b);
    return bytes;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: make-seeds TRACKS TERRAINS TARGAS\n");
        return 2;
    }
    const std::string tracks = std::string(argv[1]) + "/";
    const std::string terrains = std::string(argv[2]) + "/";
    const std::string targas = std::string(argv[3]) + "/";
    DemoOptions small;
    small.terrainSide = 6;
    DemoOptions bare;
    bare.withTerrain = false;
    const TrackDocument smallTrack = MakeDemoTrack(small);
    const std::vector<std::uint8_t> pixels{10, 20, 30, 40, 50, 60, 70, 80, 90, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    const bool ok = WriteTrackFile(tracks + "small-terrain.cvtrack", smallTrack) &&
                    WriteTrackFile(tracks + "no-terrain.cvtrack", MakeDemoTrack(bare)) &&
                    WriteSeed(terrains + "small.cvtera", SerializeTerrainFile(smallTrack.terrain)) &&
                    WriteSeed(targas + "plain.tga", EncodeTGA(pixels, 3, 2)) &&
                    WriteSeed(targas + "rle.tga", RunLengthTarga());
    return ok ? 0 : 1;
}
