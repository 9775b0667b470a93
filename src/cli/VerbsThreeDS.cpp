// export-3ds: the terrain of a track or terrain file, and a track file's traced track, as a 3D
// Studio file, built by the same code as the editor's export.
#include "CliTerrain.h"

#include "Mesh3DS.h"
#include "PathUtil.h"
#include "TrackFile.h"

#include <array>
#include <charconv>

namespace {

// The editor's first colours for untextured terrain and for the track.
constexpr Colour24 kDefaultTerrainColour{76, 128, 76};
constexpr Colour24 kDefaultTrackColour{0, 0, 255};

// "R,G,B", each a whole number 0 to 255.
bool ParseColour(const std::string& text, Colour24& colour) {
    std::array<std::uint8_t, 3> parts{};
    const char* at = text.data();
    const char* end = text.data() + text.size();
    for (std::size_t i = 0; i < parts.size(); ++i) {
        unsigned value = 0;
        const auto [next, error] = std::from_chars(at, end, value);
        if (error != std::errc() || next == at || value > 255) return false;
        parts[i] = static_cast<std::uint8_t>(value);
        at = next;
        if (i + 1 < parts.size()) {
            if (at == end || *at != ',') return false;
            ++at;
        }
    }
    if (at != end) return false;
    colour = {parts[0], parts[1], parts[2]};
    return true;
}

struct Export3DSCall {
    std::vector<std::string> paths;
    Export3DSOptions options{kDefaultTerrainColour, kDefaultTrackColour, true};
};

// The paths and options of the call, or a usage message.
std::string ParseCall(const std::vector<std::string>& args, Export3DSCall& call) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--no-track") {
            call.options.includeTrack = false;
        } else if (arg == "--terrain-color" || arg == "--track-color") {
            Colour24& colour =
                arg == "--terrain-color" ? call.options.terrainColour : call.options.trackColour;
            if (i + 1 >= args.size() || !ParseColour(args[i + 1], colour))
                return arg + " takes a colour R,G,B of three numbers 0 to 255";
            ++i;
        } else if (arg.starts_with("--")) {
            return "export-3ds does not know " + arg;
        } else {
            call.paths.push_back(arg);
        }
    }
    if (call.paths.size() != 2) return "export-3ds takes IN and OUT.3ds";
    if (!HasExtension(call.paths[1], ".3ds")) return "export-3ds writes a 3DS file: OUT must end in .3ds";
    return {};
}

// export-3ds IN OUT.3ds [--terrain-color R,G,B] [--track-color R,G,B] [--no-track]
int Export3DS(const std::vector<std::string>& args) {
    Export3DSCall call;
    if (const std::string problem = ParseCall(args, call); !problem.empty()) return UsageError(problem);
    const std::string& in = call.paths[0];
    const std::string& out = call.paths[1];
    TerrainData terrain;
    std::string error;
    if (!LoadTerrainFor(in, terrain, error)) return Fail(error);
    TrackSpine spine;
    bool traced = false;
    if (call.options.includeTrack && HasExtension(in, ".cvtrack")) {
        TrackDocument track;
        const TrackReadResult read = ReadTrackFile(in, track);
        if (!read) return Fail(in + ": " + read.message);
        traced = TraceTrack(track, spine);
    }
    const Save3DSResult saved =
        Save3DSObject(out, Build3DSScene(terrain, traced ? &spine : nullptr, call.options));
    if (!saved) return Fail(out + ": " + saved.message);
    return 0;
}

constexpr std::array kThreeDSVerbs{
    CliVerb{"export-3ds", "IN OUT.3ds [--terrain-color R,G,B] [--track-color R,G,B] [--no-track]",
            "the terrain (and a track file's track) as a 3D Studio file", Export3DS},
};

} // namespace

std::span<const CliVerb> ThreeDSVerbs() {
    return kThreeDSVerbs;
}
