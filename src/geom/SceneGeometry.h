#pragma once
// The geometry of what stands in the scene besides the terrain and the track: the supports (tubes
// between footers, free nodes and rail connectors on the traced track) and the trees. Pure data
// for the renderer and the exporters to come; world units, y up.

#include "TrackDocument.h"
#include "mCV_TraceTrack.h"
#include "mMath3D.h"

#include <array>
#include <optional>
#include <vector>

struct LineSegment {
    Vector3 from;
    Vector3 to;
};

// Where a support node stands: a footer or a free node at its three singles, a rail connector on
// the traced track at its stretch and parameter. nullopt when the reference names an entry or
// item that does not exist, or a rail connector whose stretch is not traced.
std::optional<Vector3> SupportNodePosition(const TrackDocument& track, const TrackSpine& spine,
                                           const NodeRef& node);

// One line per tube whose two nodes both exist, in the order of the tube list; a tube with a
// missing node is left out.
std::vector<LineSegment> SupportTubeLines(const TrackDocument& track, const TrackSpine& spine);

// The cross-piece of one drawn point of the track: the lines joining its rails to the spine or
// under-rail points as the coaster style lays them out (style 0 a V to the spine, 1-4 and 6-8 a U
// under the rails, 5 a triangle, 9-12 a U with wings; other styles none). Up to five lines.
struct CrossPiece {
    std::array<LineSegment, 5> lines;
    std::size_t count = 0;
};
CrossPiece CrossPieceLines(const DrawnPoint& p, int style);

// The points where the support joints are drawn: every footer, then every free node.
std::vector<Vector3> SupportJoints(const TrackDocument& track);

// A tree is a wire figure 13 units tall standing on foot: the trunk from 5 below the foot to 8
// above it, four branches from the top down to (+-3, +2, +-3) around the foot, and the square
// joining the branch ends. Nine lines: the trunk first, then each branch followed by the side of
// the square from its end to the next branch's end.
inline constexpr std::size_t kTreeLines = 9;
std::array<LineSegment, kTreeLines> TreeLines(const Vector3& foot);
