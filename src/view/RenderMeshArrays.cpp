// The render mesh's block arrays: each block's points packed together, with the normals on the
// corners that give each triangle its colour, and the lists of cells under water.
#include "RenderMesh.h"

#include <algorithm>
#include <array>

namespace {

std::uint16_t LocalPoint(int i, int j) {
    return static_cast<std::uint16_t>(j * kBlockRowPoints + i);
}

// The six corners of the cell in slot (i, j), in drawing order: B, A, D, A, C, D. secondD is the
// index the second triangle's D takes.
void CellCorners(std::uint16_t* out, int i, int j, std::uint16_t secondD) {
    const std::uint16_t a = LocalPoint(i, j), b = LocalPoint(i + 1, j), c = LocalPoint(i, j + 1),
                        d = LocalPoint(i + 1, j + 1);
    out[0] = b, out[1] = a, out[2] = d, out[3] = a, out[4] = c, out[5] = secondD;
}

void AppendSpan(std::vector<CellSpan>& spans, int first, int end, bool highlighted) {
    if (end <= first) return;
    if (!spans.empty() && spans.back().end == first && spans.back().highlighted == highlighted) {
        spans.back().end = end;
        return;
    }
    spans.push_back({first, end, highlighted});
}

} // namespace

const std::uint16_t* RenderMesh::GroundIndices() {
    static const auto indices = [] {
        std::array<std::uint16_t, 6 * std::size_t{kBlockCellSlots}> list{};
        for (int slot = 0; slot < kBlockCellSlots; ++slot)
            CellCorners(&list[6 * static_cast<std::size_t>(slot)], slot % kMeshBlockCells,
                        slot / kMeshBlockCells, static_cast<std::uint16_t>(kBlockPoints + slot));
        return list;
    }();
    return indices.data();
}

void RenderMesh::BuildArrays() {
    const std::size_t count = blocks_.size();
    // Resized, not refilled: every slot a draw reads is written here or by UpdateNormals.
    ground_.resize(count * kBlockGroundVertices);
    water_.resize(count * kBlockPoints);
    wetIndices_.resize(count * 6 * kBlockCellSlots);
    wetBefore_.resize(count * (kBlockCellSlots + 1));
    for (std::size_t b = 0; b < count; ++b) {
        const CellRange& c = blocks_[b].cells;
        const CellRange points{c.firstColumn - 1, c.lastColumn, c.firstRow, c.lastRow + 1};
        WritePoints(b, points);
        WaterVertex* water = &water_[b * kBlockPoints];
        for (int row = points.firstRow; row <= points.lastRow; ++row)
            for (int column = points.firstColumn; column <= points.lastColumn; ++column) {
                const Vector3& p = Vertex(column, row);
                water[LocalPoint(column - points.firstColumn, row - points.firstRow)] = {WaterUV(column, row),
                                                                                         {p.x, 0.0f, p.z}};
            }
        WriteWetCells(b);
    }
}

void RenderMesh::RefreshArrays(int firstColumn, int firstRow, int lastColumn, int lastRow) {
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
        const CellRange& c = blocks_[b].cells;
        const CellRange points{std::max(firstColumn, c.firstColumn - 1), std::min(lastColumn, c.lastColumn),
                               std::max(firstRow, c.firstRow), std::min(lastRow, c.lastRow + 1)};
        if (points.Empty()) continue;
        WritePoints(b, points);
        WriteWetCells(b);
    }
}

void RenderMesh::WritePoints(std::size_t block, const CellRange& points) {
    const CellRange& c = blocks_[block].cells;
    GroundVertex* ground = &ground_[block * kBlockGroundVertices];
    for (int row = points.firstRow; row <= points.lastRow; ++row) {
        const int j = row - c.firstRow;
        for (int column = points.firstColumn; column <= points.lastColumn; ++column) {
            const int i = column - c.firstColumn + 1;
            const Vector3& p = Vertex(column, row);
            const TexCoord& uv = GroundUV(column, row);
            GroundVertex& first = ground[LocalPoint(i, j)];
            first.uv = uv;
            first.position = p;
            // Only a cell's D has a second copy (for the cell's second normal).
            if (i == 0 || j == 0) continue;
            GroundVertex& second = ground[kBlockPoints + (j - 1) * kMeshBlockCells + (i - 1)];
            second.uv = uv;
            second.position = p;
        }
    }
}

bool RenderMesh::BlockAboveWater(const CellRange& c) const {
    bool above = true;
    for (int row = c.firstRow; row <= c.lastRow + 1; ++row)
        for (int column = c.firstColumn - 1; column <= c.lastColumn; ++column)
            above = above && Vertex(column, row).y >= 0.0f;
    return above;
}

void RenderMesh::WriteWetCells(std::size_t block) {
    const CellRange& c = blocks_[block].cells;
    std::uint16_t* out = &wetIndices_[block * 6 * kBlockCellSlots];
    std::uint16_t* before = &wetBefore_[block * (kBlockCellSlots + 1)];
    // Most blocks lie wholly above the water: no cell to look at.
    if (BlockAboveWater(c)) {
        std::fill(before, before + kBlockCellSlots + 1, std::uint16_t{0});
        return;
    }
    std::uint16_t wet = 0;
    for (int slot = 0; slot < kBlockCellSlots; ++slot) {
        before[slot] = wet;
        const int i = slot % kMeshBlockCells, j = slot / kMeshBlockCells;
        const int column = c.firstColumn + i, row = c.firstRow + j;
        if (column > c.lastColumn || row > c.lastRow) continue;
        // Wholly above the water (no corner below 0) means dry.
        const bool dry = Vertex(column - 1, row).y >= 0.0f && Vertex(column, row).y >= 0.0f &&
                         Vertex(column - 1, row + 1).y >= 0.0f && Vertex(column, row + 1).y >= 0.0f;
        if (dry) continue;
        CellCorners(out + 6 * static_cast<std::ptrdiff_t>(wet), i, j, LocalPoint(i + 1, j + 1));
        ++wet;
    }
    before[kBlockCellSlots] = wet;
}

void CellSpans(const CellRange& block, const CellRange& part, const CellRange& brush,
               std::vector<CellSpan>& spans) {
    spans.clear();
    for (int row = part.firstRow; row <= part.lastRow; ++row) {
        const int base = (row - block.firstRow) * kMeshBlockCells - block.firstColumn;
        const bool brushRow = row >= brush.firstRow && row <= brush.lastRow;
        // The highlighted columns of this row within the part (empty when first > last).
        const int first = brushRow ? std::max(brush.firstColumn, part.firstColumn) : part.lastColumn + 1;
        const int last = brushRow ? std::min(brush.lastColumn, part.lastColumn) : part.lastColumn;
        if (first > last) {
            AppendSpan(spans, base + part.firstColumn, base + part.lastColumn + 1, false);
            continue;
        }
        AppendSpan(spans, base + part.firstColumn, base + first, false);
        AppendSpan(spans, base + first, base + last + 1, true);
        AppendSpan(spans, base + last + 1, base + part.lastColumn + 1, false);
    }
}
