#include "TrackInfo.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numeric>

std::string FormatFixed(double value, int decimals) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, decimals);
    return std::string(buffer.data(), result.ptr);
}

namespace {

std::string Line(const std::string& label, const std::string& value) {
    return "  " + label + ": " + value + "\n";
}

std::string Texture(const std::string& path, float tiling) {
    return (path.empty() ? std::string("(none)") : path) + ", tiling " + FormatFixed(tiling, 2);
}

std::string Plural(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string SegmentsLine(const SegmentRecord& record) {
    static const char* names[] = {"track", "station", "lift", "transport", "brake"};
    std::array<std::size_t, 6> perType{};
    for (const Segment& s : record.segments)
        ++perType[s.type >= 0 && s.type <= 4 ? static_cast<std::size_t>(s.type) : 5];
    std::string text = std::to_string(record.segments.size()) + " (";
    for (std::size_t t = 0; t < 5; ++t)
        text += std::string(names[t]) + " " + std::to_string(perType[t]) + ", ";
    return text + "other " + std::to_string(perType[5]) + ")";
}

std::string SupportsLine(const TrackDocument& doc) {
    std::size_t connectors = 0;
    for (const auto& group : doc.railConnectors.groups)
        connectors += group.size();
    return Plural(doc.footers.footers.size(), "footer", "footers") + ", " +
           Plural(doc.railConnectors.groups.size(), "rail connector group", "rail connector groups") + " (" +
           Plural(connectors, "connector", "connectors") + "), " +
           Plural(doc.freeNodes.nodes.size(), "free node", "free nodes") + ", " +
           Plural(doc.tubes.tubes.size(), "tube", "tubes") + ", " +
           Plural(doc.catwalks.catwalks.size(), "catwalk", "catwalks");
}

} // namespace

std::string DescribeTerrain(const TerrainData& t) {
    std::string text = Line("Size", std::to_string(t.columns) + " x " + std::to_string(t.rows) + " points");
    text += Line("Spacing", FormatFixed(t.spacingX, 4) + " x " + FormatFixed(t.spacingZ, 4));
    text += Line("Ground texture", Texture(t.groundTexture, t.groundTiling));
    text += Line("Detail texture", Texture(t.detailTexture, t.detailTiling));
    text += Line("Water texture", Texture(t.waterTexture, t.waterTiling));
    text += Line("Water", t.waterEnabled ? "on" : "off");
    text += Line("Reflection", std::to_string(t.reflection));
    if (t.heights.Empty()) return text + Line("Heights", "none");
    const float* first = t.heights.Data();
    const float* last = first + t.heights.Size();
    const auto [low, high] = std::minmax_element(first, last);
    const double mean = std::accumulate(first, last, 0.0) / static_cast<double>(t.heights.Size());
    return text + Line("Heights", "min " + FormatFixed(*low, 2) + ", max " + FormatFixed(*high, 2) +
                                      ", mean " + FormatFixed(mean, 2));
}

std::string DescribeTrack(const TrackDocument& doc, const std::vector<ChunkListing>& chunks) {
    std::string text = "Chunks (" + std::to_string(chunks.size()) + "):\n";
    for (const ChunkListing& chunk : chunks)
        text += "  " + chunk.id + "  length " + std::to_string(chunk.length) + "  at byte " +
                std::to_string(chunk.offset) + (chunk.known ? "" : "  (unknown, skipped)") + "\n";
    text +=
        doc.terrain.terrainInTrack ? "Terrain:\n" + DescribeTerrain(doc.terrain.terrain) : "Terrain: none\n";
    text += "Track style: " + std::to_string(doc.track.trackStyle) + "\n";
    text += "Bezier vertices: " + std::to_string(doc.bezier.vertices.size()) + "\n";
    text += "Segments: " + SegmentsLine(doc.segments) + "\n";
    text += "Supports: " + SupportsLine(doc) + "\n";
    text += "Trees: " + std::to_string(doc.scene.entries.size()) + "\n";
    text += "Scenery objects: " + std::to_string(doc.sceneryObjects.objects.size()) + "\n";
    if (!doc.info.description.empty()) text += "Description: " + doc.info.description + "\n";
    if (!doc.environment.name1.empty() || !doc.environment.name2.empty())
        text += "Environment: " + doc.environment.name1 + " / " + doc.environment.name2 + "\n";
    return text;
}
