// The demo circuit's supports: a support every dozen units or so along every stretch, each ending
// in a rail connector on the track. Low track stands on a single column; high track (the lift
// hill, the drop, the turn-around, the hills) on an A-frame of two legs spread across the track
// that meet in a free node below the rail, with braces between neighbouring A-frames.
#include "DemoParts.h"

#include <algorithm>

namespace demo {
namespace {

constexpr double kSupportSpacing = 12.0;     // world units along the track between supports
constexpr double kSingleColumnHeight = 14.0; // track higher than this above ground gets an A-frame
constexpr double kHeadDrop = 3.0;            // free node of an A-frame this far below the rail
constexpr double kDryGround = 0.3;           // footers stand on land, never in the lake

// Tube diameters in world units.
constexpr float kColumnDiameter = 0.8f;
constexpr float kLegDiameter = 1.2f;
constexpr float kHeadDiameter = 1.0f;
constexpr float kBraceDiameter = 0.5f;

double StretchLength(const std::vector<BezierVertex>& vertices, std::size_t stretch) {
    constexpr int kSteps = 16;
    double length = 0.0;
    Vec3 last = StretchPoint(vertices, stretch, 0.0);
    for (int k = 1; k <= kSteps; ++k) {
        const Vec3 p = StretchPoint(vertices, stretch, double(k) / kSteps);
        length += Length(p - last);
        last = p;
    }
    return length;
}

// Only the position is given; the footer's other values are the simulator's and stay 0.
Footer FooterAt(double x, double z) {
    Footer footer;
    footer.position = {static_cast<float>(x), static_cast<float>(GroundHeight(x, z)), static_cast<float>(z)};
    return footer;
}

class SupportBuilder {
public:
    explicit SupportBuilder(TrackDocument& doc) : doc_(doc), vertices_(doc.bezier.vertices) {}

    void SupportStretch(std::size_t stretch) {
        const auto count = std::max(1L, std::lround(StretchLength(vertices_, stretch) / kSupportSpacing));
        const auto group = static_cast<std::int32_t>(doc_.railConnectors.groups.size());
        std::vector<RailConnector> connectors;
        previousHead_ = -1;
        for (long k = 0; k < count; ++k) {
            const double t = (static_cast<double>(k) + 0.5) / static_cast<double>(count);
            const NodeRef rail{kRailConnectorNode, group, static_cast<std::int32_t>(connectors.size())};
            if (AddSupport(stretch, t, rail))
                connectors.push_back({static_cast<std::int32_t>(stretch), static_cast<float>(t)});
            else
                previousHead_ = -1; // no brace across a gap
        }
        if (!connectors.empty()) doc_.railConnectors.groups.push_back(std::move(connectors));
    }

private:
    // Adds the footers, nodes and tubes holding the rail at t along the stretch; false (and
    // nothing added) where a footer would stand in the lake.
    bool AddSupport(std::size_t stretch, double t, NodeRef rail) {
        const Vec3 p = StretchPoint(vertices_, stretch, t);
        const double height = p.y - GroundHeight(p.x, p.z);
        if (height <= kSingleColumnHeight) {
            if (GroundHeight(p.x, p.z) < kDryGround) return false;
            AddTube(AddFooter(p.x, p.z), rail, kColumnDiameter);
            previousHead_ = -1;
            return true;
        }
        const Vec3 heading = StretchHeading(vertices_, stretch, t);
        const Vec3 across{-heading.z, 0.0, heading.x};
        const double spread = std::clamp(0.3 * height, 3.0, 9.0);
        const Vec3 left = p - across * spread;
        const Vec3 right = p + across * spread;
        if (GroundHeight(left.x, left.z) < kDryGround || GroundHeight(right.x, right.z) < kDryGround)
            return false;
        const NodeRef head = AddFreeNode({p.x, p.y - kHeadDrop, p.z});
        AddTube(AddFooter(left.x, left.z), head, kLegDiameter);
        AddTube(AddFooter(right.x, right.z), head, kLegDiameter);
        AddTube(head, rail, kHeadDiameter);
        if (previousHead_ >= 0) AddTube({kFreeNode, previousHead_, 0}, head, kBraceDiameter);
        previousHead_ = head.entry;
        return true;
    }

    NodeRef AddFooter(double x, double z) {
        doc_.footers.footers.push_back(FooterAt(x, z));
        return {kFooterNode, static_cast<std::int32_t>(doc_.footers.footers.size() - 1), 0};
    }

    NodeRef AddFreeNode(Vec3 p) {
        doc_.freeNodes.nodes.push_back(
            {{static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)}});
        return {kFreeNode, static_cast<std::int32_t>(doc_.freeNodes.nodes.size() - 1), 0};
    }

    void AddTube(NodeRef a, NodeRef b, float diameter) {
        Tube tube;
        tube.nodeA = a;
        tube.nodeB = b;
        tube.diameter = diameter;
        doc_.tubes.tubes.push_back(tube);
    }

    TrackDocument& doc_;
    const std::vector<BezierVertex>& vertices_;
    std::int32_t previousHead_ = -1; // free node of the last A-frame on this stretch, for a brace
};

// A catwalk beside every run of stretches of the given type. The entry's values are the
// simulator's own; the demo names the run's first and last stretch in the first two, and eight
// trailing bytes follow each entry.
void AddCatwalks(TrackDocument& doc, std::int32_t type) {
    const std::vector<Segment>& segments = doc.segments.segments;
    for (std::size_t s = 0; s < segments.size(); ++s) {
        if (segments[s].type != type || (s > 0 && segments[s - 1].type == type)) continue;
        std::size_t last = s;
        while (last + 1 < segments.size() && segments[last + 1].type == type)
            ++last;
        Catwalk catwalk;
        catwalk.longs = {static_cast<std::int32_t>(s), static_cast<std::int32_t>(last), 0, 0, 0, 0};
        catwalk.trailingBytes = 8;
        doc.catwalks.catwalks.push_back(catwalk);
    }
}

} // namespace

void AddSupports(TrackDocument& doc) {
    SupportBuilder builder(doc);
    for (std::size_t s = 0; s + 1 < doc.bezier.vertices.size(); ++s)
        builder.SupportStretch(s);
    AddCatwalks(doc, kLift);
    AddCatwalks(doc, kBrake);
}

} // namespace demo
