// The demo circuit: where the track runs, how it banks and what each stretch is used for.
//
// Seen from above (north up, x east, z south) the train runs clockwise: the station on the north
// side heading east, the lift hill and the big drop, a turn-around at the east end, a camelback
// hill heading west, a left turn south past the lake, the south side with an airtime hill, the
// west side north with the brakes, and a curved transport run back into the station.
#include "DemoParts.h"
#include "TrackChunks.h"

#include <algorithm>
#include <array>
#include <bit>

namespace demo {
namespace {

// How the direction of the curve at a waypoint is chosen.
enum class Tangent {
    kSmooth,       // along the line from the previous to the next waypoint
    kLevel,        // the same, flattened: crests and valley floors
    kAlongNext,    // straight at the next waypoint: the start of a straight run
    kAlongPrevious // straight from the previous waypoint: the end of a straight run
};

struct Waypoint {
    double x, y, z;       // world units
    std::int32_t stretch; // segment type of the stretch to the next waypoint
    Tangent tangent = Tangent::kSmooth;
};

constexpr Waypoint kWaypoints[] = {
    {-140.0, 5.0, -160.0, kStation, Tangent::kAlongNext},
    {-100.0, 5.0, -160.0, kTrack, Tangent::kAlongPrevious},
    {-80.0, 7.5, -160.0, kLift},
    {-40.0, 31.0, -160.0, kLift},
    {-6.0, 52.0, -160.0, kTrack, Tangent::kLevel}, // top of the lift hill
    {16.0, 32.0, -160.0, kTrack},                  // the big drop
    {44.0, 7.0, -160.0, kTrack, Tangent::kLevel},
    {86.0, 11.0, -160.0, kTrack},
    {128.0, 19.0, -157.0, kTrack}, // turn-around: 180 degrees to the right
    {166.0, 23.0, -140.0, kTrack},
    {184.0, 23.0, -106.0, kTrack},
    {170.0, 21.0, -72.0, kTrack},
    {134.0, 17.0, -56.0, kTrack},
    {98.0, 8.0, -58.0, kTrack, Tangent::kLevel},
    {68.0, 27.0, -60.0, kTrack, Tangent::kLevel}, // camelback
    {38.0, 7.0, -60.0, kTrack, Tangent::kLevel},
    {8.0, 11.0, -48.0, kTrack}, // left turn to the south
    {-10.0, 14.0, -18.0, kTrack},
    {-8.0, 25.0, 32.0, kTrack, Tangent::kLevel},
    {6.0, 7.0, 86.0, kTrack, Tangent::kLevel}, // along the lake's west shore
    {16.0, 10.0, 128.0, kTrack},               // right turn to the west
    {4.0, 14.0, 164.0, kTrack},
    {-28.0, 15.0, 180.0, kTrack},
    {-68.0, 25.0, 182.0, kTrack, Tangent::kLevel}, // airtime hill
    {-108.0, 8.0, 180.0, kTrack, Tangent::kLevel},
    {-148.0, 12.0, 172.0, kTrack}, // right turn to the north
    {-174.0, 14.0, 140.0, kTrack},
    {-182.0, 20.0, 96.0, kTrack, Tangent::kLevel},
    {-182.0, 8.0, 52.0, kTrack, Tangent::kLevel},
    {-182.0, 5.5, 12.0, kBrake, Tangent::kAlongNext},
    {-182.0, 5.0, -38.0, kTransport, Tangent::kAlongPrevious},
    {-180.0, 5.0, -108.0, kTransport},
    {-166.0, 5.0, -146.0, kTransport},
};

constexpr std::size_t kWaypointCount = std::size(kWaypoints);

// Bank per unit of horizontal curvature (degrees x world units per radian): a curve of radius 50
// banks about 50 degrees. Gentle drifts below kMinBank stay flat and nothing banks past kMaxBank.
constexpr double kBankGain = 2500.0;
constexpr double kMinBank = 5.0;
constexpr double kMaxBank = 60.0;

Vec3 At(std::size_t i) {
    const Waypoint& w = kWaypoints[i % kWaypointCount];
    return {w.x, w.y, w.z};
}

Vec3 Previous(std::size_t i) {
    return At(i + kWaypointCount - 1);
}
Vec3 Next(std::size_t i) {
    return At(i + 1);
}

Vec3 Unit(Vec3 v) {
    return v * (1.0 / Length(v));
}

Vec3 Direction(std::size_t i) {
    switch (kWaypoints[i].tangent) {
    case Tangent::kAlongNext:
        return Unit(Next(i) - At(i));
    case Tangent::kAlongPrevious:
        return Unit(At(i) - Previous(i));
    case Tangent::kLevel: {
        Vec3 d = Next(i) - Previous(i);
        d.y = 0.0;
        return Unit(d);
    }
    case Tangent::kSmooth:
        break;
    }
    return Unit(Next(i) - Previous(i));
}

// Flat track wherever the train is hauled, braked or boarded.
bool IsPoweredOrFlat(std::size_t i) {
    const std::size_t before = (i + kWaypointCount - 1) % kWaypointCount;
    return kWaypoints[i].stretch != kTrack || kWaypoints[before].stretch != kTrack;
}

// Banks into the turn: the signed horizontal turn at the waypoint (positive to the right, i.e.
// clockwise seen from above) over the mean length of its two chords, in whole degrees.
double Bank(std::size_t i) {
    if (IsPoweredOrFlat(i)) return 0.0;
    const Vec3 in = At(i) - Previous(i);
    const Vec3 out = Next(i) - At(i);
    const double turn = std::atan2(in.x * out.z - in.z * out.x, in.x * out.x + in.z * out.z);
    const double curvature = turn / (0.5 * (std::hypot(in.x, in.z) + std::hypot(out.x, out.z)));
    const double bank = std::clamp(curvature * kBankGain, -kMaxBank, kMaxBank);
    return std::abs(bank) < kMinBank ? 0.0 : std::nearbyint(bank);
}

void Put(BezierVertex& vertex, std::size_t first, Vec3 p) {
    vertex.values[first] = static_cast<float>(p.x);
    vertex.values[first + 1] = static_cast<float>(p.y);
    vertex.values[first + 2] = static_cast<float>(p.z);
}

// Control points a third of the way to each neighbour along the waypoint's direction, so the
// curve keeps its direction through every vertex and does not overshoot on uneven spacing.
BezierVertex MakeVertex(std::size_t i) {
    const Vec3 p = At(i);
    const Vec3 d = Direction(i);
    BezierVertex vertex;
    Put(vertex, 0, p);
    Put(vertex, 3, p - d * (Length(p - Previous(i)) / 3.0));
    Put(vertex, 6, p + d * (Length(Next(i) - p) / 3.0));
    vertex.values[9] = static_cast<float>(Bank(i));
    return vertex;
}

std::uint32_t Bits(float value) {
    return std::bit_cast<std::uint32_t>(value);
}

// The values of the segment type's own part, in file order. Their meanings are the simulator's;
// the demo gives the leading singles plausible sizes (a few units per second, a 30 second wait),
// sets the first bool of the powered sections and leaves the rest 0.
std::vector<std::uint32_t> SegmentDetails(std::int32_t type) {
    std::vector<std::uint32_t> details(static_cast<std::size_t>(SegmentPartValues(type)), 0u);
    switch (type) {
    case kStation: // four singles lead
        details[0] = Bits(2.0f);
        details[1] = Bits(30.0f);
        break;
    case kLift: // a byte, three singles, two bools
        details[0] = 1;
        details[1] = Bits(4.0f);
        details[2] = Bits(1.5f);
        details[4] = 1;
        break;
    case kTransport: // three singles, a byte, two bools
        details[0] = Bits(2.5f);
        details[1] = Bits(1.0f);
        details[4] = 1;
        break;
    case kBrake: // three singles, a single, two bools, ...
        details[0] = Bits(3.0f);
        details[1] = Bits(6.0f);
        details[4] = 1;
        break;
    default:
        break;
    }
    return details;
}

} // namespace

std::vector<BezierVertex> MakeCircuitVertices() {
    std::vector<BezierVertex> vertices;
    for (std::size_t i = 0; i < kWaypointCount; ++i)
        vertices.push_back(MakeVertex(i));
    vertices.push_back(vertices.front()); // a closed circuit repeats its first vertex at the end
    return vertices;
}

std::vector<Segment> MakeCircuitSegments() {
    // Colours 0x00BBGGRR: the same red, dark grey and light grey on every stretch.
    constexpr std::array<Colour, 3> kColours{0x002828C8u, 0x00404040u, 0x00D0D0D0u};
    std::vector<Segment> segments;
    for (const Waypoint& w : kWaypoints) {
        Segment segment;
        segment.type = w.stretch;
        segment.colours = kColours;
        segment.details = SegmentDetails(w.stretch);
        segments.push_back(segment);
    }
    return segments;
}

} // namespace demo
