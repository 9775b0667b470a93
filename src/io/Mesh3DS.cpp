// The terrain's objects, the object names and the whole export scene; the track's geometry is in
// TrackMesh3DS.cpp.
#include "Mesh3DS.h"

#include "TerrainGrid.h"

#include <algorithm>
#include <climits>

Vector3 To3DSAxes(const Vector3& world) {
    return {world.x, -world.z, world.y};
}

std::string NumberedObjectName(const std::string& prefix, std::size_t number) {
    std::string digits = std::to_string(number % 10000);
    return prefix + std::string(4 - digits.size(), '0') + digits;
}

int TerrainRowsPerObject(int columns, const MeshLimits& limits) {
    if (columns < 2) return 0;
    const auto c = static_cast<std::size_t>(columns);
    const std::size_t byVertices = limits.vertices / c;
    const std::size_t byFaces = limits.faces / (2 * (c - 1)) + 1; // cells rows + 1 point rows
    const std::size_t rows = std::min({byVertices, byFaces, static_cast<std::size_t>(INT_MAX)});
    return rows < 2 ? 0 : static_cast<int>(rows);
}

namespace {

// Grid rows firstRow..lastRow (inclusive) as one object.
Object3DS TerrainPiece(const TerrainData& terrain, int firstRow, int lastRow) {
    const int columns = terrain.heights.Columns();
    const int rows = terrain.heights.Rows();
    const auto width = static_cast<std::size_t>(columns);
    const std::size_t pieceRows = static_cast<std::size_t>(lastRow - firstRow) + 1;
    Object3DS piece;
    piece.vertices.reserve(width * pieceRows);
    piece.mapping.reserve(width * pieceRows);
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = 0; column < columns; ++column) {
            piece.vertices.push_back(To3DSAxes(GridPointPosition(terrain, row, column)));
            piece.mapping.push_back({static_cast<float>(column) / static_cast<float>(columns - 1),
                                     static_cast<float>(row) / static_cast<float>(rows - 1)});
        }
    piece.faces.reserve(2 * (width - 1) * (pieceRows - 1));
    for (std::size_t r = 0; r + 1 < pieceRows; ++r)
        for (std::size_t c = 0; c + 1 < width; ++c) {
            // Corners A (c, r), B (c + 1, r), C (c, r + 1), D (c + 1, r + 1): triangles A-C-D and
            // A-D-B face up (counter-clockwise seen from above).
            const auto a = static_cast<std::uint16_t>(r * width + c);
            const auto b = static_cast<std::uint16_t>(a + 1);
            const auto cc = static_cast<std::uint16_t>(a + width);
            const auto d = static_cast<std::uint16_t>(cc + 1);
            piece.faces.push_back({a, cc, d});
            piece.faces.push_back({a, d, b});
        }
    return piece;
}

} // namespace

std::vector<Object3DS> BuildTerrainObjects(const TerrainData& terrain, const std::string& material,
                                           const MeshLimits& limits) {
    std::vector<Object3DS> objects;
    const int rows = terrain.heights.Rows();
    const int rowsPerObject = TerrainRowsPerObject(terrain.heights.Columns(), limits);
    if (rows < 2 || rowsPerObject < 2) return objects;
    for (int first = 0; first < rows - 1; first += rowsPerObject - 1) {
        const int last = std::min(first + rowsPerObject - 1, rows - 1);
        Object3DS piece = TerrainPiece(terrain, first, last);
        piece.name = NumberedObjectName("TERA", objects.size());
        piece.material = material;
        objects.push_back(std::move(piece));
    }
    return objects;
}

Scene3DS Build3DSScene(const TerrainData& terrain, const TrackSpine* spine, const Export3DSOptions& options) {
    Scene3DS scene;
    scene.materials.push_back(NewMaterial(0, options.terrainColour));
    scene.objects = BuildTerrainObjects(terrain, scene.materials.back().name);
    if (!options.includeTrack || spine == nullptr || spine->drawnPoints.size() < 2) return scene;
    scene.materials.push_back(NewMaterial(1, options.trackColour));
    for (Object3DS& object : BuildTrackObjects(*spine, scene.materials.back().name))
        scene.objects.push_back(std::move(object));
    return scene;
}
