// Writes small seed files for the fuzzers into the folder given: demo tracks with and without a
// small terrain.
#include "DemoTrack.h"
#include "TrackFile.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-seeds FOLDER\n");
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    DemoOptions small;
    small.terrainSide = 6;
    DemoOptions bare;
    bare.withTerrain = false;
    const bool ok = WriteTrackFile(folder + "small-terrain.cvtrack", MakeDemoTrack(small)) &&
                    WriteTrackFile(folder + "no-terrain.cvtrack", MakeDemoTrack(bare));
    return ok ? 0 : 1;
}
