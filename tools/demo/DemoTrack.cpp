// Assembles the demo track document from its parts: the circuit and its segments, the supports,
// the scene, the description and environment, and the terrain when asked for.
#include "DemoTrack.h"

#include "DemoParts.h"

namespace {

// Style 1: rails with a U-shaped cross-piece under them (guidelines 0.6 units below the rails).
constexpr std::int32_t kDemoTrackStyle = 1;

// Points per stretch when keeping trees clear of the track: stretches are at most about 70 units
// long, so neighbouring points lie under 2.5 units apart.
constexpr int kClearanceSamples = 32;

TrackRecord MakeTrackHeader() {
    TrackRecord track;
    track.trackStyle = kDemoTrackStyle;
    // Colours 0x00BBGGRR: each train's four colours, then the track's eight.
    track.entries = {{true, "Red Train", {0x002020C0u, 0x00F0F0F0u, 0x00303030u, 0x0000C0F0u}},
                     {false, "Blue Train", {0x00C06020u, 0x00F0F0F0u, 0x00303030u, 0x0000C0F0u}}};
    track.colours = {0x002828C8u, 0x00404040u, 0x00D0D0D0u, 0x00206080u,
                     0x0000A0E0u, 0x00808080u, 0x00F0F0F0u, 0x00102010u};
    return track;
}

} // namespace

TrackDocument MakeDemoTrack(const DemoOptions& options) {
    TrackDocument doc;
    doc.track = MakeTrackHeader();
    doc.info.description =
        "Demo circuit: a lift hill to 52 units, a big drop, a banked turn-around, camelback and "
        "airtime hills past the lake, brakes and a curved transport run back to the station.";
    doc.bezier.vertices = demo::MakeCircuitVertices();
    doc.segments.segments = demo::MakeCircuitSegments();
    demo::AddSupports(doc);
    doc.sceneryObjects.objects = demo::MakeSceneryObjects();
    doc.scene.entries = demo::PlaceTrees(demo::SampleCircuit(doc.bezier.vertices, kClearanceSamples),
                                         doc.sceneryObjects.objects);
    doc.environment.name1 = "Parkland";
    doc.environment.name2 = "Fair Weather";
    if (options.withTerrain) {
        doc.terrain.terrain = demo::MakeDemoTerrain(options.terrainSide);
        doc.terrain.terrainInTrack = true;
    }
    return doc;
}
