#include "SceneGeometry.h"

namespace {

Vector3 FromSingles(const std::array<float, 3>& p) {
    return {p[0], p[1], p[2]};
}

std::optional<Vector3> RailConnectorNode(const TrackDocument& track, const TrackSpine& spine,
                                         std::size_t entry, std::int32_t item) {
    if (entry >= track.railConnectors.groups.size() || item < 0) return std::nullopt;
    const auto& group = track.railConnectors.groups[entry];
    if (static_cast<std::size_t>(item) >= group.size()) return std::nullopt;
    const RailConnector& c = group[static_cast<std::size_t>(item)];
    Vector3 at;
    if (!RailConnectorPosition(spine, c.stretch, c.parameter, at)) return std::nullopt;
    return at;
}

} // namespace

std::optional<Vector3> SupportNodePosition(const TrackDocument& track, const TrackSpine& spine,
                                           const NodeRef& node) {
    if (node.entry < 0) return std::nullopt;
    const auto entry = static_cast<std::size_t>(node.entry);
    switch (node.kind) {
    case kFooterNode:
        if (entry >= track.footers.footers.size()) return std::nullopt;
        return FromSingles(track.footers.footers[entry].position);
    case kFreeNode:
        if (entry >= track.freeNodes.nodes.size()) return std::nullopt;
        return FromSingles(track.freeNodes.nodes[entry].position);
    case kRailConnectorNode:
        return RailConnectorNode(track, spine, entry, node.item);
    default:
        return std::nullopt;
    }
}

std::vector<LineSegment> SupportTubeLines(const TrackDocument& track, const TrackSpine& spine) {
    std::vector<LineSegment> lines;
    lines.reserve(track.tubes.tubes.size());
    for (const Tube& tube : track.tubes.tubes) {
        const auto a = SupportNodePosition(track, spine, tube.nodeA);
        const auto b = SupportNodePosition(track, spine, tube.nodeB);
        if (a && b) lines.push_back({*a, *b});
    }
    return lines;
}

std::vector<Vector3> SupportJoints(const TrackDocument& track) {
    std::vector<Vector3> joints;
    joints.reserve(track.footers.footers.size() + track.freeNodes.nodes.size());
    for (const Footer& footer : track.footers.footers)
        joints.push_back(FromSingles(footer.position));
    for (const FreeNode& node : track.freeNodes.nodes)
        joints.push_back(FromSingles(node.position));
    return joints;
}

CrossPiece CrossPieceLines(const DrawnPoint& p, int style) {
    CrossPiece piece;
    const auto add = [&piece](const Vector3& a, const Vector3& b) { piece.lines[piece.count++] = {a, b}; };
    switch (style) {
    case 0:
        add(p.p2, p.p1), add(p.p3, p.p1);
        break;
    case 1:
    case 2:
    case 3:
    case 4:
    case 6:
    case 7:
    case 8:
        add(p.p2, p.p4), add(p.p4, p.p5), add(p.p5, p.p3);
        break;
    case 5:
        add(p.p2, p.p1), add(p.p3, p.p1), add(p.p2, p.p3);
        break;
    case 9:
    case 10:
    case 11:
    case 12:
        add(p.p6, p.p2), add(p.p2, p.p4), add(p.p4, p.p5), add(p.p5, p.p3), add(p.p3, p.p7);
        break;
    default:
        break;
    }
    return piece;
}

std::array<LineSegment, kTreeLines> TreeLines(const Vector3& foot) {
    const float x = foot.x, y = foot.y, z = foot.z;
    const Vector3 top{x, y + 8.0f, z};
    const Vector3 ends[4] = {
        {x + 3, y + 2, z + 3}, {x + 3, y + 2, z - 3}, {x - 3, y + 2, z - 3}, {x - 3, y + 2, z + 3}};
    std::array<LineSegment, kTreeLines> lines;
    lines[0] = {{x, y - 5.0f, z}, top};
    for (std::size_t i = 0; i < 4; ++i) {
        lines[1 + 2 * i] = {top, ends[i]};
        lines[2 + 2 * i] = {ends[i], ends[(i + 1) % 4]};
    }
    return lines;
}
