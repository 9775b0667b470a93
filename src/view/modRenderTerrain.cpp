// The terrain and the water, drawn block by block so that blocks outside the view are skipped.
#include "Editor.h"
#include "modRender.h"

#include <GL/gl.h>

#include <algorithm>
#include <array>
#include <vector>

namespace {

// The six planes of the current view volume, from projection x model-view (a x + b y + c z + d >= 0
// inside).
struct Frustum {
    std::array<std::array<double, 4>, 6> planes{};

    static Frustum FromCurrentMatrices() {
        GLdouble projection[16], modelView[16];
        glGetDoublev(GL_PROJECTION_MATRIX, projection);
        glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
        double m[16]; // column-major, as GL keeps it
        for (int column = 0; column < 4; ++column)
            for (int row = 0; row < 4; ++row) {
                double sum = 0.0;
                for (int k = 0; k < 4; ++k) sum += projection[k * 4 + row] * modelView[column * 4 + k];
                m[column * 4 + row] = sum;
            }
        auto rowOf = [&](int r) { return std::array<double, 4>{m[r], m[4 + r], m[8 + r], m[12 + r]}; };
        const auto r0 = rowOf(0), r1 = rowOf(1), r2 = rowOf(2), r3 = rowOf(3);
        Frustum f;
        for (int i = 0; i < 4; ++i) {
            f.planes[0][i] = r3[i] + r0[i];
            f.planes[1][i] = r3[i] - r0[i];
            f.planes[2][i] = r3[i] + r1[i];
            f.planes[3][i] = r3[i] - r1[i];
            f.planes[4][i] = r3[i] + r2[i];
            f.planes[5][i] = r3[i] - r2[i];
        }
        return f;
    }

    bool MayShow(const Vector3& low, const Vector3& high) const {
        for (const auto& p : planes) {
            const double x = p[0] >= 0 ? high.x : low.x;
            const double y = p[1] >= 0 ? high.y : low.y;
            const double z = p[2] >= 0 ? high.z : low.z;
            if (p[0] * x + p[1] * y + p[2] * z + p[3] < 0) return false;
        }
        return true;
    }
};

CellRange Intersect(const CellRange& a, const CellRange& b) {
    return {std::max(a.firstColumn, b.firstColumn), std::min(a.lastColumn, b.lastColumn),
            std::max(a.firstRow, b.firstRow), std::min(a.lastRow, b.lastRow)};
}

// The parts of range the view may show, block by block (or range itself without culling). Reads
// the GL matrices, so it must run outside glBegin/glEnd.
std::vector<CellRange> VisibleCells(const RenderMesh& mesh, const CellRange& range, const RenderOptions& options) {
    if (!options.cullBlocks) return {range};
    const Frustum frustum = Frustum::FromCurrentMatrices();
    std::vector<CellRange> visible;
    for (const MeshBlock& block : mesh.Blocks()) {
        const CellRange part = Intersect(block.cells, range);
        if (!part.Empty() && frustum.MayShow(block.low, block.high)) visible.push_back(part);
    }
    return visible;
}

void SetColour(const RgbColour& c, float alpha = 1.0f) { glColor4f(c.r, c.g, c.b, alpha); }

void PointWithUV(const Vector3& p, const TexCoord& uv, bool textured) {
    if (textured) glTexCoord2f(uv.u, uv.v);
    glVertex3f(p.x, p.y, p.z);
}

} // namespace

void DrawTerrain(const Editor& editor, const GLViewState& state, const RenderOptions& options) {
    const RenderMesh& mesh = editor.mesh;
    if (mesh.Empty()) return;
    const AppSettings& settings = editor.settings;
    const bool textured = settings.viewTextures && state.terrainTexture != 0;
    const bool lit = !settings.noLights;
    const RgbColour plain = textured ? RgbColour{1.0f, 1.0f, 1.0f} : settings.colorTable[9];
    if (textured) {
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, state.terrainTexture);
    }
    SetColour(plain);
    ApplyCameraTransform(editor.camera, false);
    const CellRange range = DrawnCells(editor.terrain, settings.clipTerrain);
    const CellRange brush =
        BrushCells(editor.terrain, editor.cursor.x, editor.cursor.z, editor.settings.sculptSize);
    const std::vector<CellRange> visible = VisibleCells(mesh, range, options);
    glBegin(GL_TRIANGLES);
    bool highlighted = false;
    for (const CellRange& cells : visible) {
        for (int row = cells.firstRow; row <= cells.lastRow; ++row) {
            for (int column = cells.firstColumn; column <= cells.lastColumn; ++column) {
                // The colour changes only where the highlight starts or ends.
                const bool inBrush = brush.Contains(column, row);
                if (inBrush != highlighted) {
                    SetColour(inBrush ? settings.colorTable[7] : plain);
                    highlighted = inBrush;
                }
                const int a[2] = {column - 1, row}, b[2] = {column, row}, c[2] = {column - 1, row + 1},
                          d[2] = {column, row + 1};
                if (lit) glNormal3f(mesh.Normal(column, row, 0).x, mesh.Normal(column, row, 0).y, mesh.Normal(column, row, 0).z);
                for (const int* p : {b, a, d}) PointWithUV(mesh.Vertex(p[0], p[1]), mesh.GroundUV(p[0], p[1]), textured);
                if (lit) glNormal3f(mesh.Normal(column, row, 1).x, mesh.Normal(column, row, 1).y, mesh.Normal(column, row, 1).z);
                for (const int* p : {a, c, d}) PointWithUV(mesh.Vertex(p[0], p[1]), mesh.GroundUV(p[0], p[1]), textured);
            }
        }
    }
    glEnd();
    glColor3f(1.0f, 1.0f, 1.0f);
    glDisable(GL_TEXTURE_2D);
}

void DrawWater(const Editor& editor, const GLViewState& state, const RenderOptions& options) {
    const RenderMesh& mesh = editor.mesh;
    if (!editor.terrain.waterEnabled || mesh.Empty()) return;
    const AppSettings& settings = editor.settings;
    const bool textured = settings.viewTextures && state.waterTexture != 0;
    const float alpha = settings.useWaterTrans ? settings.waterTrans : 1.0f;
    if (textured) {
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, state.waterTexture);
        glColor4f(1.0f, 1.0f, 1.0f, alpha);
    } else {
        SetColour(settings.colorTable[10], alpha);
    }
    if (settings.useWaterTrans) glEnable(GL_BLEND);
    ApplyCameraTransform(editor.camera, false);
    glNormal3f(0.0f, 1.0f, 0.0f);
    const std::vector<CellRange> visible = VisibleCells(mesh, DrawnCells(editor.terrain, settings.clipTerrain), options);
    glBegin(GL_TRIANGLES);
    for (const CellRange& cells : visible) {
        for (int row = cells.firstRow; row <= cells.lastRow; ++row) {
            for (int column = cells.firstColumn; column <= cells.lastColumn; ++column) {
                const int a[2] = {column - 1, row}, b[2] = {column, row}, c[2] = {column - 1, row + 1},
                          d[2] = {column, row + 1};
                bool dry = true;
                for (const int* p : {a, b, c, d}) dry = dry && mesh.Vertex(p[0], p[1]).y >= 0.0f;
                if (dry) continue; // wholly above the water
                for (const int* p : {b, a, d, a, c, d}) {
                    const Vector3& v = mesh.Vertex(p[0], p[1]);
                    PointWithUV({v.x, 0.0f, v.z}, mesh.WaterUV(p[0], p[1]), textured);
                }
            }
        }
    }
    glEnd();
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glDisable(GL_BLEND);
    glDisable(GL_TEXTURE_2D);
}
