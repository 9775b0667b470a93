// The frame, and everything in it but the terrain and water: trees, supports, guidelines, the
// track and the terrain cursor.
#include "Editor.h"
#include "modRender.h"

#include <GL/gl.h>

#include <algorithm>
#include <optional>

namespace {

void SetColour(const RgbColour& c) { glColor3f(c.r, c.g, c.b); }
void Point(const Vector3& p) { glVertex3f(p.x, p.y, p.z); }
void Line(const Vector3& a, const Vector3& b) {
    Point(a);
    Point(b);
}

// The height of the grid point nearest (x, z), or 0 without terrain (the point clamped into the
// grid, so that damaged positions never read outside it).
float GroundUnder(const Editor& editor, float x, float z) {
    const TerrainModel& t = editor.terrain;
    if (!t.terrainPresent || t.heights.Empty()) return 0.0f;
    const int column = std::clamp(GridIndexUnder(x, t.spacingX), 0, t.heights.Columns() - 1);
    const int row = std::clamp(GridIndexUnder(z, t.spacingZ), 0, t.heights.Rows() - 1);
    return t.heights.At(row, column);
}

// Segment types 0..4 take their colour from the table at base + type, others the fallback.
RgbColour TypeColour(const Editor& editor, int type, int base, RgbColour fallback) {
    return type >= 0 && type <= 4 ? editor.settings.colorTable[static_cast<std::size_t>(base + type)] : fallback;
}

std::optional<Vector3> NodePosition(const Editor& editor, const NodeRef& node) {
    const TrackDocument& doc = editor.track;
    auto entry = static_cast<std::size_t>(node.entry);
    if (node.entry < 0) return std::nullopt;
    switch (node.kind) {
    case kFooterNode:
        if (entry >= doc.footers.footers.size()) return std::nullopt;
        return Vector3{doc.footers.footers[entry].position[0], doc.footers.footers[entry].position[1],
                       doc.footers.footers[entry].position[2]};
    case kFreeNode:
        if (entry >= doc.freeNodes.nodes.size()) return std::nullopt;
        return Vector3{doc.freeNodes.nodes[entry].position[0], doc.freeNodes.nodes[entry].position[1],
                       doc.freeNodes.nodes[entry].position[2]};
    case kRailConnectorNode: {
        if (entry >= doc.railConnectors.groups.size() || node.item < 0) return std::nullopt;
        const auto& group = doc.railConnectors.groups[entry];
        if (static_cast<std::size_t>(node.item) >= group.size()) return std::nullopt;
        const RailConnector& c = group[static_cast<std::size_t>(node.item)];
        Vector3 at;
        if (!RailConnectorPosition(editor.spine, c.stretch, c.parameter, at)) return std::nullopt;
        return at;
    }
    default: return std::nullopt;
    }
}

void DrawCrossPiece(const DrawnPoint& p, int style) {
    switch (style) {
    case 0: Line(p.p2, p.p1), Line(p.p3, p.p1); break;
    case 1: case 2: case 3: case 4: case 6: case 7: case 8:
        Line(p.p2, p.p4), Line(p.p4, p.p5), Line(p.p5, p.p3);
        break;
    case 5: Line(p.p2, p.p1), Line(p.p3, p.p1), Line(p.p2, p.p3); break;
    case 9: case 10: case 11: case 12:
        Line(p.p6, p.p2), Line(p.p2, p.p4), Line(p.p4, p.p5), Line(p.p5, p.p3), Line(p.p3, p.p7);
        break;
    default: break;
    }
}

} // namespace

void RenderScene(const Editor& editor, const GLViewState& state, const RenderOptions& options) {
    if (!state.renderReady) return;
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    // Blended water must not make the picture itself see-through.
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
    glColor3f(1.0f, 1.0f, 1.0f);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    ApplyLighting(!editor.settings.noLights);
    ApplyCameraTransform(editor.camera, false);
    const GLfloat light[] = {1.0f, 1.0f, 0.0f, 0.0f}; // directional, fixed in the world
    glLightfv(GL_LIGHT0, GL_POSITION, light);
    const TerrainModel& t = editor.terrain;
    const AppSettings& s = editor.settings;
    if (t.terrainPresent) {
        if (s.viewTerrain) DrawTerrain(editor, state, options);
        if (s.viewWater) DrawWater(editor, state, options);
    }
    // Trees belong to the track's scene: without a track there are none to draw.
    if (t.trackPresent) {
        if (s.viewTrees) DrawTrees(editor);
        if (s.viewSupports) DrawSupports(editor, state);
        if (s.viewGuidelines) DrawGuidelines(editor);
        if (s.viewTrack) DrawTrack(editor);
    }
    if (t.terrainPresent) DrawCursor(editor, state);
}

void DrawTrees(const Editor& editor) {
    const CameraState& camera = editor.camera;
    ApplyCameraRotation(camera);
    glLineWidth(1.0f);
    glNormal3f(0.0f, 1.0f, 0.0f);
    SetColour(editor.settings.colorTable[6]);
    glBegin(GL_LINES);
    for (const SceneEntry& tree : editor.track.scene.entries) {
        const float x = tree.position[0] - camera.x;
        const float z = tree.position[2] - camera.z;
        const float y = GroundUnder(editor, tree.position[0], tree.position[2]) - camera.y;
        const Vector3 top{x, y + 8.0f, z};
        Line({x, y - 5.0f, z}, top);
        const Vector3 ends[4] = {{x + 3, y + 2, z + 3}, {x + 3, y + 2, z - 3}, {x - 3, y + 2, z - 3}, {x - 3, y + 2, z + 3}};
        for (int i = 0; i < 4; ++i) {
            Line(top, ends[i]);
            Line(ends[i], ends[(i + 1) % 4]);
        }
    }
    glEnd();
}

void DrawSupports(const Editor& editor, const GLViewState& state) {
    ApplyCameraTransform(editor.camera, true);
    glLineWidth(1.0f);
    const RgbColour colour = editor.settings.colorTable[5];
    SetColour(colour);
    glBegin(GL_LINES);
    for (const Tube& tube : editor.track.tubes.tubes) {
        const auto a = NodePosition(editor, tube.nodeA);
        const auto b = NodePosition(editor, tube.nodeB);
        if (a && b) Line(*a, *b); // a tube with a missing node is left out
    }
    glEnd();
    // Footers and free nodes as small spheres where the tubes meet.
    auto sphereAt = [&](const std::array<float, 3>& p) {
        glPushMatrix();
        glTranslatef(p[0], p[1], p[2]);
        DrawSphere(state, 0.4, colour.r, colour.g, colour.b);
        glPopMatrix();
    };
    for (const Footer& footer : editor.track.footers.footers) sphereAt(footer.position);
    for (const FreeNode& node : editor.track.freeNodes.nodes) sphereAt(node.position);
}

void DrawGuidelines(const Editor& editor) {
    ApplyCameraTransform(editor.camera, true);
    glBegin(GL_LINES);
    int lastType = -1000;
    for (const TracedStretch& stretch : editor.spine.segments) {
        for (const TracedPoint& point : stretch.points) {
            if (point.segmentType != lastType) {
                lastType = point.segmentType;
                SetColour(TypeColour(editor, lastType, 11, {0.5f, 0.5f, 0.5f}));
            }
            Vector3 top;
            GuidelineTop(top, point, editor.spine.style);
            Line(top, {top.x, 0.0f, top.z});
        }
    }
    glEnd();
}

void DrawTrack(const Editor& editor) {
    const std::vector<DrawnPoint>& points = editor.spine.drawnPoints;
    if (points.size() < 2) return;
    ApplyCameraTransform(editor.camera, true);
    glBegin(GL_LINES);
    int lastType = -1000;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i].segmentType != lastType) {
            lastType = points[i].segmentType;
            SetColour(TypeColour(editor, lastType, 0, {1.0f, 1.0f, 1.0f}));
        }
        Line(points[i - 1].p1, points[i].p1);
        Line(points[i - 1].p2, points[i].p2);
        Line(points[i - 1].p3, points[i].p3);
    }
    lastType = -1000;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i].segmentType != lastType) {
            lastType = points[i].segmentType;
            SetColour(TypeColour(editor, lastType, 11, {0.5f, 0.5f, 0.5f}));
        }
        DrawCrossPiece(points[i], editor.spine.style);
    }
    glEnd();
}

void DrawCursor(const Editor& editor, const GLViewState& state) {
    const TerrainModel& t = editor.terrain;
    if (t.heights.Empty()) return;
    const CameraState& camera = editor.camera;
    const int cc = std::clamp(GridIndexUnder(editor.cursor.x, t.spacingX), 0, t.heights.Columns() - 1);
    const int cr = std::clamp(GridIndexUnder(editor.cursor.z, t.spacingZ), 0, t.heights.Rows() - 1);
    const float cursorY = t.heights.At(cr, cc);
    const RgbColour marker = editor.settings.colorTable[8];
    ApplyCameraRotation(camera);
    // The marker floats one unit above the ground at the centre of the cell.
    glTranslatef(editor.cursor.x - camera.x + 0.5f * t.spacingX, cursorY + 1.0f - camera.y,
                 editor.cursor.z - camera.z + 0.5f * t.spacingZ);
    DrawSphere(state, 1.0, marker.r, marker.g, marker.b);
    glBegin(GL_LINES);
    Line({-1024.0f, 0.0f, 0.0f}, {1024.0f, 0.0f, 0.0f});
    Line({0.0f, -1024.0f, 0.0f}, {0.0f, 1024.0f, 0.0f});
    Line({0.0f, 0.0f, -1024.0f}, {0.0f, 0.0f, 1024.0f});
    glEnd();
    ApplyCameraTransform(camera, false);
    const RgbColour brush = editor.settings.colorTable[7];
    const int s = editor.settings.sculptSize;
    const bool onWater = editor.settings.viewWater && t.waterEnabled;
    for (int row = std::max(cr - s, 0); row <= std::min(cr + s, t.heights.Rows() - 1); ++row)
        for (int column = std::max(cc - s, 0); column <= std::min(cc + s, t.heights.Columns() - 1); ++column) {
            const float x = t.spacingX * static_cast<float>(column) + 0.5f * t.spacingX * static_cast<float>(1 - t.heights.Columns());
            const float z = t.spacingZ * static_cast<float>(row) + 0.5f * t.spacingZ * static_cast<float>(1 - t.heights.Rows());
            float y = t.heights.At(row, column);
            if (y < 0.0f && onWater) y = 0.0f; // the point sits on the water surface
            glPushMatrix();
            glTranslatef(x, y, z);
            DrawSphere(state, 0.5, brush.r, brush.g, brush.b);
            glPopMatrix();
        }
}
