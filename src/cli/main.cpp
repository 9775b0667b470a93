// landwright-cli: inspects and rewrites track and terrain files without a display.
#include "PathUtil.h"
#include "TerrainFile.h"
#include "TrackFile.h"
#include "TrackInfo.h"

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr const char* kUsage =
    "usage: landwright-cli info FILE          summary of a track (.cvtrack) or terrain (.cvtera) file\n"
    "       landwright-cli resave IN OUT      read a track or terrain file and write it back as OUT\n";

int Usage() {
    std::fputs(kUsage, stderr);
    return 2;
}

int Fail(const std::string& message) {
    std::fprintf(stderr, "landwright-cli: %s\n", message.c_str());
    return 1;
}

bool IsTerrainFile(const std::string& path) {
    return HasExtension(path, ".cvtera");
}

int Info(const std::string& path) {
    if (IsTerrainFile(path)) {
        TerrainRecord record;
        const TerrainReadResult result = ReadTerrainFile(path, record);
        if (!result) return Fail(path + ": " + result.message);
        std::printf("%s\nTerrain:\n%s", path.c_str(), DescribeTerrain(record.terrain).c_str());
        return 0;
    }
    TrackDocument doc;
    std::vector<ChunkListing> chunks;
    const TrackReadResult result = ReadTrackFile(path, doc, &chunks);
    if (!result) return Fail(path + ": " + result.message);
    std::printf("%s\n%s", path.c_str(), DescribeTrack(doc, chunks).c_str());
    return 0;
}

int Resave(const std::string& in, const std::string& out) {
    if (IsTerrainFile(in)) {
        TerrainRecord record;
        const TerrainReadResult read = ReadTerrainFile(in, record);
        if (!read) return Fail(in + ": " + read.message);
        std::string error;
        if (!WriteTerrainFile(out, record, error)) return Fail(error);
        return 0;
    }
    TrackDocument doc;
    const TrackReadResult read = ReadTrackFile(in, doc);
    if (!read) return Fail(in + ": " + read.message);
    const TrackWriteResult written = WriteTrackFile(out, doc);
    if (!written) return Fail(written.message);
    if (written.path != out) std::printf("written to %s\n", written.path.c_str());
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() == 2 && args[0] == "info") return Info(args[1]);
    if (args.size() == 3 && args[0] == "resave") return Resave(args[1], args[2]);
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    return Usage();
}
