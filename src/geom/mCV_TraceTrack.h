#pragma once
// The traced track (TrackSpine): points along the track's Bézier curve, each with the frame that
// places the rails around it, and the drawn point records that the renderer, the guidelines and
// the exports read.
//
// World units, y up. The vertex positions of the track are its heartline; the rails hang below it
// (see mCV_TrackStyles.h). Tracing depends on nothing but the track document.
//
// How a stretch is traced:
// - Sampling: the stretch's length is measured along a fine polyline; the stretch is cut into
//   ceil(length / kTraceStep) equal pieces of arc length, at least kTraceMinSteps and at most
//   kTraceMaxSteps, and a point is traced at both ends of every piece (so steps + 1 points, the
//   first at the stretch's start vertex and the last at its end vertex).
// - Frame: forward is the curve's derivative (the chord of the neighbouring curve points where
//   the derivative vanishes); yaw and pitch turn local -z onto it. Where two yaw/pitch pairs fit
//   (yaw + 180 degrees with pitch mirrored beyond the vertical), the one whose up direction stays
//   closer to the previous point's is taken, so a loop runs on through the vertical with its
//   rails over the riders at the top instead of flipping.
// - Roll: eased from the start vertex's roll to the end vertex's with smoothstep over the
//   fraction of arc length (no roll rate at the vertices); positive rolls bank to the right in
//   the direction of travel, i.e. the right rail goes down.
// - Frame matrix: Translate(position) * RotateY(yaw) * RotateX(pitch) * RotateZ(-roll); the roll
//   angle is negated because a positive turn about local z lifts local +x (the right side).

#include "TrackDocument.h"
#include "mCV_TrackStyles.h"
#include "mMatrix3D.h"

#include <cstdint>
#include <vector>

inline constexpr double kTraceStep = 2.0; // world units of arc length between traced points
inline constexpr int kTraceMinSteps = 4;  // pieces per stretch, however short
inline constexpr int kTraceMaxSteps = 200;

struct TracedPoint {
    Vector3 position;             // on the heartline, world units
    Matrix4 frame;                // local to world: origin on the heartline, -z forward, +y up, +x right
    float parameter = 0.0f;       // curve parameter t (0..1) along the stretch
    std::int16_t segmentType = 0; // type of the stretch (0 track, 1 station, 2 lift, 3 transport, 4 brake)
};

// The points of one stretch in track order, from its start vertex to its end vertex inclusive.
struct TracedStretch {
    std::vector<TracedPoint> points;
};

// One cross-section as drawn: the segment type and the seven points of the style's layout
// carried into the world (see RailLayout for what each point is). 88 bytes.
struct DrawnPoint {
    std::int16_t segmentType = 0;
    Vector3 p1;
    Vector3 p2;
    Vector3 p3;
    Vector3 p4;
    Vector3 p5;
    Vector3 p6;
    Vector3 p7;
};

struct TrackSpine {
    // segments[i] is the stretch from vertex i to vertex i + 1, the track's segment number i + 1:
    // the list is 0-based, matching the segment records and the rail connectors' stretch index.
    std::vector<TracedStretch> segments;
    // Every traced point once, in track order: where stretches meet, the point ending one stretch
    // stands for both (it carries that stretch's type), and the next stretch's first point is
    // left out.
    std::vector<DrawnPoint> drawnPoints;
    std::int32_t style = 0; // coaster style the points were laid out for

    void Clear();
};

// Rebuilds spine from the track's vertices, segment records and style. Returns false, with both
// lists empty, when the track has fewer than two vertices.
bool TraceTrack(const TrackDocument& track, TrackSpine& spine);

// The top of a traced point's guideline: the local point (0, GuidelineOffset(style), 0) carried
// through the point's frame.
void GuidelineTop(Vector3& out, const TracedPoint& point, int style);

// The heartline position of a rail connector at parameter (curve parameter t, clamped into 0..1)
// along stretch (0-based), interpolated between the traced points around it. False, and out
// unchanged, when the stretch is not traced or the parameter is not a number.
bool RailConnectorPosition(const TrackSpine& spine, int stretch, float parameter, Vector3& out);
