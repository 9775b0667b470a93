// The terrain and the water, drawn block by block from the mesh's block arrays so that blocks
// outside the view are skipped and each block goes to GL in a few calls.
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
                for (int k = 0; k < 4; ++k)
                    sum += projection[k * 4 + row] * modelView[column * 4 + k];
                m[column * 4 + row] = sum;
            }
        auto rowOf = [&](int r) { return std::array<double, 4>{m[r], m[4 + r], m[8 + r], m[12 + r]}; };
        const auto r0 = rowOf(0), r1 = rowOf(1), r2 = rowOf(2), r3 = rowOf(3);
        Frustum f;
        for (std::size_t i = 0; i < 4; ++i) {
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

// The part of a block the view may show.
struct BlockPart {
    std::size_t block = 0;
    CellRange cells;
};

// The parts of range the view may show, block by block in grid order. Reads the GL matrices, so
// it must run outside glBegin/glEnd.
std::vector<BlockPart> VisibleParts(const RenderMesh& mesh, const CellRange& range) {
    const Frustum frustum = Frustum::FromCurrentMatrices();
    std::vector<BlockPart> visible;
    const std::vector<MeshBlock>& blocks = mesh.Blocks();
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const CellRange part = Intersect(blocks[i].cells, range);
        if (!part.Empty() && frustum.MayShow(blocks[i].low, blocks[i].high)) visible.push_back({i, part});
    }
    return visible;
}

// Nearest blocks first (by the distance across the ground from the eye to the block's middle):
// near ground then hides far ground before its pixels are textured and lit. Opaque ground, depth
// tested, gives the same picture in any order.
void NearestFirst(const RenderMesh& mesh, const CameraState& eye, std::vector<BlockPart>& parts) {
    std::vector<std::pair<float, BlockPart>> keyed;
    keyed.reserve(parts.size());
    for (const BlockPart& part : parts) {
        const MeshBlock& block = mesh.Blocks()[part.block];
        const float dx = 0.5f * (block.low.x + block.high.x) - eye.x;
        const float dz = 0.5f * (block.low.z + block.high.z) - eye.z;
        keyed.push_back({dx * dx + dz * dz, part});
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (std::size_t i = 0; i < parts.size(); ++i)
        parts[i] = keyed[i].second;
}

void SetColour(const RgbColour& c, float alpha = 1.0f) {
    glColor4f(c.r, c.g, c.b, alpha);
}

void PointWithUV(const Vector3& p, const TexCoord& uv, bool textured) {
    if (textured) glTexCoord2f(uv.u, uv.v);
    glVertex3f(p.x, p.y, p.z);
}

void SendNormal(const Vector3& n) {
    glNormal3f(n.x, n.y, n.z);
}

// Grid point p (column, row) of the ground.
void GroundCorner(const RenderMesh& mesh, const int* p, bool textured) {
    PointWithUV(mesh.Vertex(p[0], p[1]), mesh.GroundUV(p[0], p[1]), textured);
}

// How the ground is drawn this frame.
struct GroundLook {
    bool textured = false;
    bool lit = false;
    RgbColour plain;
    RgbColour highlight;
    CellRange brush;
};

// Every cell of range, one call per vertex: the slow way, kept as the measure for the block
// arrays (RenderOptions::cullBlocks off).
void SendGroundImmediate(const RenderMesh& mesh, const CellRange& cells, const GroundLook& look) {
    glBegin(GL_TRIANGLES);
    bool highlighted = false;
    for (int row = cells.firstRow; row <= cells.lastRow; ++row) {
        for (int column = cells.firstColumn; column <= cells.lastColumn; ++column) {
            // The colour changes only where the highlight starts or ends.
            const bool inBrush = look.brush.Contains(column, row);
            if (inBrush != highlighted) {
                SetColour(inBrush ? look.highlight : look.plain);
                highlighted = inBrush;
            }
            const int a[2] = {column - 1, row}, b[2] = {column, row}, c[2] = {column - 1, row + 1},
                      d[2] = {column, row + 1};
            if (look.lit) SendNormal(mesh.Normal(column, row, 0));
            for (const int* p : {b, a, d})
                GroundCorner(mesh, p, look.textured);
            if (look.lit) SendNormal(mesh.Normal(column, row, 1));
            for (const int* p : {a, c, d})
                GroundCorner(mesh, p, look.textured);
        }
    }
    glEnd();
}

// The triangles of cell slots first..end - 1 (six indices per slot).
void DrawSlots(const std::uint16_t* indices, int first, int end) {
    if (end > first)
        glDrawElements(GL_TRIANGLES, 6 * (end - first), GL_UNSIGNED_SHORT,
                       indices + 6 * static_cast<std::ptrdiff_t>(first));
}

// Only what the cell-by-cell path would send: normals when lit, texture coordinates when textured.
void PointGroundArraysAt(const GroundVertex* v, const GroundLook& look) {
    constexpr GLsizei stride = sizeof(GroundVertex);
    glVertexPointer(3, GL_FLOAT, stride, &v->position);
    if (look.lit) glNormalPointer(GL_FLOAT, stride, &v->normal);
    if (look.textured) glTexCoordPointer(2, GL_FLOAT, stride, &v->uv);
}

// The ground is handed to GL in this many pieces. A threaded rasteriser (llvmpipe) starts filling
// each piece while the next is sent, instead of waiting for the whole frame. More pieces overlap
// more, but each hand-over costs a pass over the screen tiles the piece touches.
constexpr std::size_t kGroundPieces = 8;

// The visible blocks from their arrays, each cell's triangles as the cell-by-cell path sends them
// and each triangle's normal on its last corner, so the picture is the same. The blocks go in the
// order given.
void SendGroundArrays(const RenderMesh& mesh, const std::vector<BlockPart>& parts, const CellRange& range,
                      const GroundLook& look) {
    glEnableClientState(GL_VERTEX_ARRAY);
    if (look.lit) glEnableClientState(GL_NORMAL_ARRAY);
    if (look.textured) glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    std::vector<CellSpan> spans;
    bool highlighted = false;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0 && i * kGroundPieces / parts.size() != (i - 1) * kGroundPieces / parts.size()) glFlush();
        const BlockPart& part = parts[i];
        PointGroundArraysAt(mesh.GroundVertices(part.block), look);
        CellSpans(mesh.Blocks()[part.block].cells, part.cells, look.brush, spans);
        for (const CellSpan& span : spans) {
            if (span.highlighted != highlighted) {
                SetColour(span.highlighted ? look.highlight : look.plain);
                highlighted = span.highlighted;
            }
            DrawSlots(RenderMesh::GroundIndices(), span.first, span.end);
        }
    }
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    // Leave the current normal where drawing every cell leaves it (the last cell's second
    // triangle): the track's lines, drawn later without normals of their own, are lit with it.
    if (look.lit && !range.Empty()) SendNormal(mesh.Normal(range.lastColumn, range.lastRow, 1));
}

void SendWaterImmediate(const RenderMesh& mesh, const CellRange& cells, bool textured) {
    glBegin(GL_TRIANGLES);
    for (int row = cells.firstRow; row <= cells.lastRow; ++row) {
        for (int column = cells.firstColumn; column <= cells.lastColumn; ++column) {
            const int a[2] = {column - 1, row}, b[2] = {column, row}, c[2] = {column - 1, row + 1},
                      d[2] = {column, row + 1};
            bool dry = true;
            for (const int* p : {a, b, c, d})
                dry = dry && mesh.Vertex(p[0], p[1]).y >= 0.0f;
            if (dry) continue; // wholly above the water
            for (const int* p : {b, a, d, a, c, d}) {
                const Vector3& v = mesh.Vertex(p[0], p[1]);
                PointWithUV({v.x, 0.0f, v.z}, mesh.WaterUV(p[0], p[1]), textured);
            }
        }
    }
    glEnd();
}

void SendWaterArrays(const RenderMesh& mesh, const std::vector<BlockPart>& parts, bool textured) {
    glEnableClientState(GL_VERTEX_ARRAY);
    if (textured) glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    constexpr GLsizei stride = sizeof(WaterVertex);
    std::vector<CellSpan> spans;
    for (const BlockPart& part : parts) {
        const WaterVertex* v = mesh.WaterVertices(part.block);
        glVertexPointer(3, GL_FLOAT, stride, &v->position);
        if (textured) glTexCoordPointer(2, GL_FLOAT, stride, &v->uv);
        CellSpans(mesh.Blocks()[part.block].cells, part.cells, CellRange{}, spans);
        for (const CellSpan& span : spans)
            DrawSlots(mesh.WaterIndices(part.block), mesh.WetCellsBefore(part.block, span.first),
                      mesh.WetCellsBefore(part.block, span.end));
    }
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
}

} // namespace

void DrawTerrain(const RenderInput& in, const GLViewState& state, const RenderOptions& options) {
    const RenderMesh& mesh = in.mesh;
    if (mesh.Empty()) return;
    GroundLook look;
    look.textured = in.view.textures && state.terrainTexture != 0;
    look.lit = in.view.lights;
    look.plain = look.textured ? RgbColour{1.0f, 1.0f, 1.0f} : in.colours[kColourTerrain];
    look.highlight = in.colours[kColourBrush];
    look.brush = BrushCells(in.terrain, in.cursor.x, in.cursor.z, in.view.brushSize);
    if (look.textured) {
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, state.terrainTexture);
    }
    SetColour(look.plain);
    ApplyCameraTransform(in.camera, false);
    const CellRange range = DrawnCells(in.terrain, in.view.clipTerrain);
    if (options.cullBlocks) {
        std::vector<BlockPart> parts = VisibleParts(mesh, range);
        NearestFirst(mesh, in.camera, parts);
        SendGroundArrays(mesh, parts, range, look);
        // Filling the ground's pixels is most of a frame's work. Handing the last piece over now
        // lets the rasteriser fill it while the water, trees and track are sent.
        glFlush();
    } else {
        SendGroundImmediate(mesh, range, look);
    }
    glColor3f(1.0f, 1.0f, 1.0f);
    glDisable(GL_TEXTURE_2D);
}

void DrawWater(const RenderInput& in, const GLViewState& state, const RenderOptions& options) {
    const RenderMesh& mesh = in.mesh;
    if (!in.terrain.waterEnabled || mesh.Empty()) return;
    const bool textured = in.view.textures && state.waterTexture != 0;
    const float alpha = in.view.waterTranslucent ? in.view.waterAlpha : 1.0f;
    if (textured) {
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, state.waterTexture);
        glColor4f(1.0f, 1.0f, 1.0f, alpha);
    } else {
        SetColour(in.colours[kColourWater], alpha);
    }
    if (in.view.waterTranslucent) glEnable(GL_BLEND);
    ApplyCameraTransform(in.camera, false);
    glNormal3f(0.0f, 1.0f, 0.0f);
    const CellRange range = DrawnCells(in.terrain, in.view.clipTerrain);
    if (options.cullBlocks)
        SendWaterArrays(mesh, VisibleParts(mesh, range), textured);
    else
        SendWaterImmediate(mesh, range, textured);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glDisable(GL_BLEND);
    glDisable(GL_TEXTURE_2D);
}
