// Supports and trees as line geometry: which tubes are drawn between which nodes, where the joints
// stand, and the shape of a tree.
#include "SceneGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

bool Same(const Vector3& a, const Vector3& b, float tolerance = 1e-4f) {
    return std::abs(a.x - b.x) <= tolerance && std::abs(a.y - b.y) <= tolerance &&
           std::abs(a.z - b.z) <= tolerance;
}

// A level stretch of 40 units along +x at height 10 (controls at a third and two thirds), one
// footer, one free node and a group of two rail connectors at the stretch's ends.
TrackDocument Supported() {
    TrackDocument doc;
    doc.bezier.vertices = {BezierVertex{{0, 10, 0, -13, 10, 0, 13, 10, 0, 0}},
                           BezierVertex{{40, 10, 0, 27, 10, 0, 53, 10, 0, 0}}};
    doc.track.trackStyle = 1;
    doc.footers.footers.resize(1);
    doc.footers.footers[0].position = {1.0f, 0.0f, 2.0f};
    doc.freeNodes.nodes = {FreeNode{{3.0f, 4.0f, 5.0f}}};
    doc.railConnectors.groups = {{RailConnector{0, 0.0f}, RailConnector{0, 1.0f}, RailConnector{7, 0.5f}}};
    return doc;
}

Tube Between(NodeRef a, NodeRef b) {
    Tube tube;
    tube.nodeA = a;
    tube.nodeB = b;
    return tube;
}

} // namespace

TEST(Supports, TubesJoinTheirNodesLeavingOutAnyWithAMissingNode) {
    TrackDocument doc = Supported();
    TrackSpine spine;
    ASSERT_TRUE(TraceTrack(doc, spine));
    const NodeRef footer{kFooterNode, 0, 0}, freeNode{kFreeNode, 0, 0};
    const NodeRef railStart{kRailConnectorNode, 0, 0}, railEnd{kRailConnectorNode, 0, 1};
    doc.tubes.tubes = {
        Between(footer, freeNode),
        Between(footer, {kFooterNode, 1, 0}),         // no second footer
        Between({kFreeNode, -1, 0}, freeNode),        // a negative entry
        Between(railStart, {5, 0, 0}),                // an unknown kind
        Between(railEnd, {kRailConnectorNode, 0, 3}), // no fourth connector in the group
        Between(railEnd, {kRailConnectorNode, 0, 2}), // a connector on a stretch that is not traced
        Between(freeNode, railEnd),
        Between(railStart, footer),
    };
    const std::vector<LineSegment> lines = SupportTubeLines(doc, spine);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_TRUE(Same(lines[0].from, {1, 0, 2}) && Same(lines[0].to, {3, 4, 5}));
    EXPECT_TRUE(Same(lines[1].from, {3, 4, 5}) && Same(lines[1].to, {40, 10, 0})) << "the stretch's end";
    EXPECT_TRUE(Same(lines[2].from, {0, 10, 0}) && Same(lines[2].to, {1, 0, 2})) << "the stretch's start";
    EXPECT_TRUE(SupportTubeLines(doc, TrackSpine{}).size() == 1u) << "untraced, only footer to free node";
}

TEST(Supports, JointsStandOnTheFootersThenTheFreeNodes) {
    const TrackDocument doc = Supported();
    const std::vector<Vector3> joints = SupportJoints(doc);
    ASSERT_EQ(joints.size(), 2u);
    EXPECT_TRUE(Same(joints[0], {1, 0, 2}) && Same(joints[1], {3, 4, 5})) << "footers, then free nodes";
}

TEST(Trees, AreThirteenUnitWireFiguresOfATrunkFourBranchesAndASquare) {
    const auto lines = TreeLines({10.0f, 1.0f, -4.0f});
    EXPECT_TRUE(Same(lines[0].from, {10, -4, -4}) && Same(lines[0].to, {10, 9, -4})) << "the trunk";
    const Vector3 ends[4] = {{13, 3, -1}, {13, 3, -7}, {7, 3, -7}, {7, 3, -1}};
    for (int i = 0; i < 4; ++i) {
        const LineSegment& branch = lines[static_cast<std::size_t>(1 + 2 * i)];
        const LineSegment& side = lines[static_cast<std::size_t>(2 + 2 * i)];
        EXPECT_TRUE(Same(branch.from, {10, 9, -4}) && Same(branch.to, ends[i])) << "branch " << i;
        EXPECT_TRUE(Same(side.from, ends[i]) && Same(side.to, ends[(i + 1) % 4])) << "side " << i;
    }
}
