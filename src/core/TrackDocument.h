#pragma once
// The records of every chunk of an open track file.
//
// Each record keeps every value the file carries that the simulator may need, so a document read
// and written back keeps the track intact; reserved runs are not kept (they are written as zeros).
// World units, y up. Colours are 0x00BBGGRR. Fields the editor does not interpret are named by
// their position and type.

#include "ByteStream.h"
#include "TerrainModel.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// Length and closing sub-chunk count as read from the file. Kept for inspection only: the writer
// recomputes both.
struct ChunkFrame {
    std::int32_t length = 0;
    std::int32_t subChunkCount = 0;
};

// "TRCK": the track itself; container of INFO, BEZR, SEGM and SUPP.
struct TrackEntry {
    bool flag = false;
    std::string name;
    std::array<Colour, 4> colours{};
    bool operator==(const TrackEntry&) const = default;
};

struct TrackRecord {
    ChunkFrame frame;
    std::int32_t trackStyle = 0; // coaster style: selects rail layout and guideline offset
    std::int32_t trackValue = 0;
    std::vector<TrackEntry> entries;
    std::array<Colour, 8> colours{};
};

// "INFO": the track's description.
struct InfoRecord {
    ChunkFrame frame;
    std::string description;
};

// One Bézier vertex of the track's centre curve (60 bytes in the file).
//   values 0-2: vertex position; 3-5: control point towards the previous vertex;
//   6-8: control point towards the next vertex (absolute positions); 9: roll in degrees,
//   positive banking to the right in the direction of travel.
struct BezierVertex {
    std::array<float, 10> values{};
    std::array<bool, 3> flags{};

    float Roll() const { return values[9]; }
    bool operator==(const BezierVertex&) const = default;
};

// "BEZR": the vertices; stretch i runs from vertex i to vertex i + 1.
struct BezierRecord {
    ChunkFrame frame;
    std::vector<BezierVertex> vertices;
};

// Segment types: 0 track, 1 station, 2 lift, 3 transport, 4 brake.
enum SegmentType : std::int32_t { kTrack = 0, kStation = 1, kLift = 2, kTransport = 3, kBrake = 4 };

// The kept values of a segment's type-specific part, in file order. Each value keeps its raw bits
// (singles and longs as 32 bits, bytes and bools as 8); which is which comes from the layout of
// the segment's type (see TrackChunks.cpp).
struct Segment {
    std::int32_t type = kTrack;
    bool flag1 = false;
    std::array<Colour, 3> colours{};
    bool flag2 = false;
    std::vector<std::uint32_t> details;
    bool operator==(const Segment&) const = default;
};

// "SEGM": segment i colours stretch i of the track.
struct SegmentRecord {
    ChunkFrame frame;
    bool flag = false;
    std::vector<Segment> segments;
};

// "SUPP": container of the five support chunks; it has no values of its own.
struct SupportRecord {
    ChunkFrame frame;
};

// "FUND": a footer standing on the ground at `position`.
struct Footer {
    std::uint8_t byte1 = 0;
    float single1 = 0.0f;
    std::uint8_t byte2 = 0;
    float single2 = 0.0f;
    std::array<float, 3> position{};
    bool operator==(const Footer&) const = default;
};

struct FooterRecord {
    ChunkFrame frame;
    std::vector<Footer> footers;
};

// "RASC": groups of rail connectors; each sits on the traced track at `parameter` (0..1) along
// stretch `stretch`.
struct RailConnector {
    std::int32_t stretch = 0;
    float parameter = 0.0f;
    bool operator==(const RailConnector&) const = default;
};

struct RailConnectorRecord {
    ChunkFrame frame;
    std::vector<std::vector<RailConnector>> groups;
};

// "FREN": a free support node in space.
struct FreeNode {
    std::array<float, 3> position{};
    bool operator==(const FreeNode&) const = default;
};

struct FreeNodeRecord {
    ChunkFrame frame;
    std::vector<FreeNode> nodes;
};

// A support node named by (kind, entry index, item index); kind 0 footer, 1 free node,
// 2 rail connector (entry = RASC group, item = connector in it).
struct NodeRef {
    std::int32_t kind = 0;
    std::int32_t entry = 0;
    std::int32_t item = 0;
    bool operator==(const NodeRef&) const = default;
};

enum NodeKind : std::int32_t { kFooterNode = 0, kFreeNode = 1, kRailConnectorNode = 2 };

// "TUBE": a support tube between two nodes.
struct Tube {
    NodeRef nodeA;
    NodeRef nodeB;
    std::array<std::int32_t, 2> longs{};
    float diameter = 0.0f;
    bool operator==(const Tube&) const = default;
};

struct TubeRecord {
    ChunkFrame frame;
    std::vector<Tube> tubes;
};

// "CATW": catwalks, kept but not drawn. The seventh long is the number of bytes that follow the
// entry; those bytes are not kept and are written back as zeros.
struct Catwalk {
    std::array<std::int32_t, 6> longs{};
    std::int32_t trailingBytes = 0;
    bool operator==(const Catwalk&) const = default;
};

struct CatwalkRecord {
    ChunkFrame frame;
    std::vector<Catwalk> catwalks;
};

// "SCEN": the scene's trees; container of SCOB.
struct SceneEntry {
    std::array<float, 3> position{};
    std::int32_t value = 0;
    float kind = 0.0f; // tree kind 1, 2 or 3
    bool operator==(const SceneEntry&) const = default;
};

struct SceneRecord {
    ChunkFrame frame;
    std::vector<SceneEntry> entries;
};

// "SCOB": scenery objects.
struct SceneryObject {
    std::string name1;
    std::string name2;
    std::array<float, 15> values{};
    bool operator==(const SceneryObject&) const = default;
};

struct SceneryObjectRecord {
    ChunkFrame frame;
    std::vector<SceneryObject> objects;
};

// "TERA": the terrain carried by the track. terrainInTrack says whether the file had one and
// whether one is written.
struct TerrainRecord {
    ChunkFrame frame;
    TerrainData terrain;
    bool terrainInTrack = false;
};

// "ENVC": the environment names.
struct EnvironmentRecord {
    ChunkFrame frame;
    std::string name1;
    std::string name2;
};

struct TrackDocument {
    std::array<std::uint8_t, 4> version{}; // as read; always written as 1, 3, 0, 0
    std::int32_t headerLength = 0;         // as read
    std::int32_t headerChunkCount = 0;     // as read

    TrackRecord track;
    InfoRecord info;
    BezierRecord bezier;
    SegmentRecord segments;
    SupportRecord supports;
    FooterRecord footers;
    RailConnectorRecord railConnectors;
    FreeNodeRecord freeNodes;
    TubeRecord tubes;
    CatwalkRecord catwalks;
    SceneRecord scene;
    SceneryObjectRecord sceneryObjects;
    TerrainRecord terrain;
    EnvironmentRecord environment;

    // Empties every record except the environment names, which carry over from the previously
    // read file on purpose: a track without an ENVC chunk keeps the environment of the last one.
    void ResetKeepingEnvironment();
};
