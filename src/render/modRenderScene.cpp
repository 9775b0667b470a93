// The frame, and everything in it but the terrain and water: the sky, trees, supports, guidelines,
// the track and the terrain cursor.
#include "SceneGeometry.h"
#include "SkyGradient.h"
#include "TerrainGrid.h"
#include "modOpenGL.h"
#include "modRender.h"

#include <GL/gl.h>

#include <algorithm>

namespace {

void SetColour(const RgbColour& c) {
    glColor3f(c.r, c.g, c.b);
}
void Point(const Vector3& p) {
    glVertex3f(p.x, p.y, p.z);
}
void Line(const Vector3& a, const Vector3& b) {
    Point(a);
    Point(b);
}

// Segment types 0..4 take their colour from the table at first + type, others the fallback.
RgbColour TypeColour(const RenderInput& in, int type, ColourSlot first, RgbColour fallback) {
    return type >= 0 && type <= 4 ? in.colours[first + static_cast<std::size_t>(type)] : fallback;
}

void DrawCrossPiece(const DrawnPoint& p, int style) {
    const CrossPiece piece = CrossPieceLines(p, style);
    for (std::size_t i = 0; i < piece.count; ++i)
        Line(piece.lines[i].from, piece.lines[i].to);
}

void SphereAt(const GLViewState& state, const Vector3& p, double radius, const RgbColour& colour) {
    glPushMatrix();
    glTranslatef(p.x, p.y, p.z);
    DrawSphere(state, radius, colour.r, colour.g, colour.b);
    glPopMatrix();
}

// The sky fills the whole frame behind everything: drawn first, in screen coordinates, without
// depth, light or texture.
void DrawSky(float pitch) {
    glPushAttrib(GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT | GL_CURRENT_BIT);
    glDisable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_BLEND);
    glDisable(GL_CULL_FACE);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glShadeModel(GL_SMOOTH);
    glBegin(GL_QUAD_STRIP);
    for (const SkyStop& stop : SkyGradient(pitch, static_cast<float>(kFieldOfView), 48)) {
        SetColour(stop.colour);
        glVertex2f(-1.0f, stop.screenY);
        glVertex2f(1.0f, stop.screenY);
    }
    glEnd();
    glShadeModel(GL_FLAT);
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopAttrib();
}

} // namespace

void RenderScene(const RenderInput& in, const GLViewState& state, const RenderOptions& options) {
    if (!state.renderReady) return;
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (in.view.skybox) DrawSky(in.camera.pitch);
    // Blended water must not make the picture itself see-through.
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
    glColor3f(1.0f, 1.0f, 1.0f);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    ApplyLighting(in.view.lights);
    ApplyCameraTransform(in.camera, false);
    const GLfloat light[] = {1.0f, 1.0f, 0.0f, 0.0f}; // directional, fixed in the world
    glLightfv(GL_LIGHT0, GL_POSITION, light);
    const TerrainModel& t = in.terrain;
    const ViewSwitches& v = in.view;
    if (t.terrainPresent) {
        if (v.terrain) DrawTerrain(in, state, options);
        if (v.water) DrawWater(in, state, options);
    }
    // Trees belong to the track's scene: without a track there are none to draw.
    if (t.trackPresent) {
        if (v.trees) DrawTrees(in);
        if (v.supports) DrawSupports(in, state);
        if (v.guidelines) DrawGuidelines(in);
        if (v.track) DrawTrack(in);
    }
    if (t.terrainPresent) DrawCursor(in, state);
}

void DrawTrees(const RenderInput& in) {
    const CameraState& camera = in.camera;
    ApplyCameraRotation(camera);
    glLineWidth(1.0f);
    glNormal3f(0.0f, 1.0f, 0.0f);
    SetColour(in.colours[kColourTrees]);
    glBegin(GL_LINES);
    for (const SceneEntry& tree : in.track.scene.entries) {
        // Each tree stands on the grid point under it (at 0 without terrain). The camera position
        // is taken off each point rather than being part of the transform.
        const float ground =
            in.terrain.terrainPresent ? HeightUnder(in.terrain, tree.position[0], tree.position[2]) : 0.0f;
        const Vector3 foot{tree.position[0] - camera.x, ground - camera.y, tree.position[2] - camera.z};
        for (const LineSegment& line : TreeLines(foot))
            Line(line.from, line.to);
    }
    glEnd();
}

void DrawSupports(const RenderInput& in, const GLViewState& state) {
    ApplyCameraTransform(in.camera, true);
    glLineWidth(1.0f);
    const RgbColour colour = in.colours[kColourSupports];
    SetColour(colour);
    glBegin(GL_LINES);
    for (const LineSegment& tube : SupportTubeLines(in.track, in.spine))
        Line(tube.from, tube.to);
    glEnd();
    // Footers and free nodes as small spheres where the tubes meet.
    for (const Vector3& joint : SupportJoints(in.track))
        SphereAt(state, joint, 0.4, colour);
}

void DrawGuidelines(const RenderInput& in) {
    ApplyCameraTransform(in.camera, true);
    glBegin(GL_LINES);
    int lastType = -1000;
    for (const TracedStretch& stretch : in.spine.segments) {
        for (const TracedPoint& point : stretch.points) {
            if (point.segmentType != lastType) {
                lastType = point.segmentType;
                SetColour(TypeColour(in, lastType, kColourGuideline, {0.5f, 0.5f, 0.5f}));
            }
            Vector3 top;
            GuidelineTop(top, point, in.spine.style);
            Line(top, {top.x, 0.0f, top.z});
        }
    }
    glEnd();
}

void DrawTrack(const RenderInput& in) {
    const std::vector<DrawnPoint>& points = in.spine.drawnPoints;
    if (points.size() < 2) return;
    ApplyCameraTransform(in.camera, true);
    glBegin(GL_LINES);
    int lastType = -1000;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i].segmentType != lastType) {
            lastType = points[i].segmentType;
            SetColour(TypeColour(in, lastType, kColourTrack, {1.0f, 1.0f, 1.0f}));
        }
        Line(points[i - 1].p1, points[i].p1);
        Line(points[i - 1].p2, points[i].p2);
        Line(points[i - 1].p3, points[i].p3);
    }
    lastType = -1000;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i].segmentType != lastType) {
            lastType = points[i].segmentType;
            SetColour(TypeColour(in, lastType, kColourGuideline, {0.5f, 0.5f, 0.5f}));
        }
        DrawCrossPiece(points[i], in.spine.style);
    }
    glEnd();
}

void DrawCursor(const RenderInput& in, const GLViewState& state) {
    const TerrainModel& t = in.terrain;
    if (t.heights.Empty()) return;
    const CameraState& camera = in.camera;
    const CursorState& cursor = in.cursor;
    const float cursorY = HeightUnder(t, cursor.x, cursor.z);
    const RgbColour marker = in.colours[kColourCursor];
    ApplyCameraRotation(camera);
    // The marker floats one unit above the ground at the centre of the cell.
    glTranslatef(cursor.x - camera.x + 0.5f * t.spacingX, cursorY + 1.0f - camera.y,
                 cursor.z - camera.z + 0.5f * t.spacingZ);
    DrawSphere(state, 1.0, marker.r, marker.g, marker.b);
    glBegin(GL_LINES);
    Line({-1024.0f, 0.0f, 0.0f}, {1024.0f, 0.0f, 0.0f});
    Line({0.0f, -1024.0f, 0.0f}, {0.0f, 1024.0f, 0.0f});
    Line({0.0f, 0.0f, -1024.0f}, {0.0f, 0.0f, 1024.0f});
    glEnd();
    ApplyCameraTransform(camera, false);
    const bool onWater = in.view.water && t.waterEnabled;
    for (const Vector3& p : BrushPoints(t, cursor, in.view.brushSize, onWater))
        SphereAt(state, p, 0.5, in.colours[kColourBrush]);
}
