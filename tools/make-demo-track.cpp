// Writes the demo tracks into the folder given: Demo.cvtrack (with terrain) and
// DemoNoTerrain.cvtrack (the same track without terrain).
#include "DemoTrack.h"
#include "TrackFile.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-demo-track FOLDER\n");
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    const struct {
        const char* name;
        bool withTerrain;
    } outputs[] = {{"Demo.cvtrack", true}, {"DemoNoTerrain.cvtrack", false}};
    for (const auto& out : outputs) {
        DemoOptions options;
        options.withTerrain = out.withTerrain;
        const TrackWriteResult result = WriteTrackFile(folder + out.name, MakeDemoTrack(options));
        if (!result) {
            std::fprintf(stderr, "make-demo-track: %s\n", result.message.c_str());
            return 1;
        }
    }
    return 0;
}
