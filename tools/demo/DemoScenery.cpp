// The demo scene: a ticket hut and a queue fence beside the station, and trees scattered over the
// dry land of the scene square the way the tree placement scatters them (positions to two
// decimals, a random value below 10 and a kind 1..3), from a fixed-seed generator.
#include "DemoParts.h"

#include <array>
#include <bit>
#include <string>

namespace demo {
namespace {

constexpr int kTreeCount = 90;
constexpr int kMaxAttempts = 100 * kTreeCount; // a bound on the loop; far more than ever needed
constexpr double kSceneHalf = 220.0;           // trees stand within -220..220 in x and z
constexpr double kDryGround = 0.5;             // lowest ground a tree stands on (water is at 0)
constexpr double kShoreMargin = 5.0;           // ground this far around a tree is dry too
constexpr double kObjectClearance = 8.0;       // half-width of the square kept free around objects
// Half-width of the square kept free around every track point: the tree placement keeps 8, the
// demo a little more so that the curve between the sampled points is clear too.
constexpr double kTrackClearance = 10.0;

// SplitMix64: a tiny generator whose sequence is fixed by its seed on every platform.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    // Uniform in [0, 1), from the top 53 bits.
    double Next() {
        state_ += 0x9E3779B97F4A7C15ull;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        z ^= z >> 31;
        return static_cast<double>(z >> 11) * 0x1.0p-53;
    }

private:
    std::uint64_t state_;
};

double TwoDecimals(double v) {
    return std::nearbyint(v * 100.0) / 100.0;
}

// Dry when the ground at the point and a little way around it is above the water, so that the
// coarsest terrain grid does not put a shore tree's nearest grid point under water.
bool OnDryLand(double x, double z) {
    constexpr std::array<std::array<double, 2>, 5> kAround{{{0, 0}, {1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
    for (const auto& [dx, dz] : kAround)
        if (GroundHeight(x + dx * kShoreMargin, z + dz * kShoreMargin) < kDryGround) return false;
    return true;
}

bool ClearOf(const Vec3& spot, const std::vector<Vec3>& points, double halfWidth) {
    for (const Vec3& p : points)
        if (std::abs(spot.x - p.x) < halfWidth && std::abs(spot.z - p.z) < halfWidth) return false;
    return true;
}

std::vector<Vec3> ObjectPositions(const std::vector<SceneryObject>& objects) {
    std::vector<Vec3> positions;
    positions.reserve(objects.size());
    for (const SceneryObject& object : objects)
        positions.push_back({object.values[0], 0.0, object.values[2]});
    return positions;
}

// Laid out as position (x, y, z), rotation about x, y and z in degrees, scale (x, y, z), then six
// zeros; the simulator reads them, the editor keeps them.
SceneryObject MakeObject(const std::string& file, const std::string& name, double x, double z, double turn,
                         double scale) {
    SceneryObject object;
    object.name1 = file;
    object.name2 = name;
    object.values = {static_cast<float>(x),     static_cast<float>(GroundHeight(x, z)),
                     static_cast<float>(z),     0.0f,
                     static_cast<float>(turn),  0.0f,
                     static_cast<float>(scale), static_cast<float>(scale),
                     static_cast<float>(scale)};
    return object;
}

} // namespace

std::vector<SceneryObject> MakeSceneryObjects() {
    // North of the station platform (which runs along z = -160 from x = -140 to -100).
    return {MakeObject("Scenery\\Hut.x", "Ticket Hut", -122.0, -182.0, 90.0, 1.0),
            MakeObject("Scenery\\Fence.x", "Queue Fence", -104.0, -176.0, 0.0, 1.5)};
}

std::vector<SceneEntry> PlaceTrees(const std::vector<Vec3>& trackPoints,
                                   const std::vector<SceneryObject>& objects) {
    const std::vector<Vec3> objectPoints = ObjectPositions(objects);
    Random random(0x1A2B3C4D5E6F7788ull);
    std::vector<SceneEntry> trees;
    for (int attempt = 0; attempt < kMaxAttempts && static_cast<int>(trees.size()) < kTreeCount; ++attempt) {
        const double x = TwoDecimals(random.Next() * 2.0 * kSceneHalf - kSceneHalf);
        const double z = TwoDecimals(random.Next() * 2.0 * kSceneHalf - kSceneHalf);
        const float value = static_cast<float>(random.Next() * 10.0);
        const float kind = static_cast<float>(1 + static_cast<int>(random.Next() * 3.0));
        const Vec3 spot{x, 0.0, z};
        if (!OnDryLand(x, z) || !ClearOf(spot, trackPoints, kTrackClearance) ||
            !ClearOf(spot, objectPoints, kObjectClearance))
            continue;
        // The fourth field holds a single, as the tree placement writes it.
        trees.push_back(
            {{static_cast<float>(x), 0.0f, static_cast<float>(z)}, std::bit_cast<std::int32_t>(value), kind});
    }
    return trees;
}

} // namespace demo
