#include "ObjExport.h"

#include "FileIO.h"
#include "TerrainGrid.h"
#include "Version.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <vector>

namespace {

constexpr const char* kEol = "\r\n";
// Longest text one vertex or face line can need, with room to spare.
constexpr std::size_t kLineRoom = 128;

// Writes the number at out (no locale is consulted anywhere); returns the end.
char* PutObjNumber(char* out, double value) {
    if (!std::isfinite(value)) value = 0.0;
    // Beyond this the millionths no longer fit a 64-bit count; such values have no decimals left.
    if (std::abs(value) >= 9.0e12) {
        out = std::to_chars(out, out + 40, value, std::chars_format::fixed, 0).ptr;
        *out++ = '.';
        return out;
    }
    const auto millionths = static_cast<std::int64_t>(std::nearbyint(value * 1.0e6));
    if (millionths < 0) *out++ = '-';
    const std::uint64_t magnitude =
        millionths < 0 ? static_cast<std::uint64_t>(-millionths) : static_cast<std::uint64_t>(millionths);
    out = std::to_chars(out, out + 24, magnitude / 1000000u).ptr;
    *out++ = '.';
    std::uint64_t fraction = magnitude % 1000000u;
    if (fraction == 0) return out;
    int digits = 6;
    while (fraction % 10u == 0) {
        fraction /= 10u;
        --digits;
    }
    for (int i = digits - 1; i >= 0; --i) {
        out[i] = static_cast<char>('0' + fraction % 10u);
        fraction /= 10u;
    }
    return out + digits;
}

char* PutText(char* out, std::string_view text) {
    return std::copy(text.begin(), text.end(), out);
}

char* PutInt(char* out, long long value) {
    return std::to_chars(out, out + 24, value).ptr;
}

void AppendHeader(std::string& text, const TerrainData& terrain) {
    const long long columns = terrain.heights.Columns(), rows = terrain.heights.Rows();
    text += "# ";
    text += kProgramName;
    text += " v1.3 - terrain editor for Corvanta coaster tracks";
    text += kEol;
    text += "# Terrain Size: " + std::to_string(columns) + " x " + std::to_string(rows) + kEol;
    text += std::string("# Uses Water: ") + (terrain.waterEnabled ? "True" : "False") + kEol;
    text += "# Total Vertices: " + FormatGroupedCount(columns * rows) + kEol;
    // One row and one column fewer than the face lines below; the count has always read so.
    text += "# Total Faces: " + FormatGroupedCount((columns - 3) * (rows - 3) * 2) + kEol;
    text += kEol;
    text += "# OBJECT #";
    text += kEol;
    text += "g TERRAIN";
    text += kEol;
    text += kEol;
}

// The texts of a coordinate along one axis, "v " and the x before it or the " " and z after it;
// each is the same for a whole column or row, so it is formatted once.
std::vector<std::string> AxisTexts(int count, float spacing, const char* before, const char* after) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(count));
    char buffer[kLineRoom];
    for (int i = 0; i < count; ++i) {
        char* out = PutText(buffer, before);
        out = PutObjNumber(out, GridCoordinate(i, count, spacing));
        out = PutText(out, after);
        texts.emplace_back(buffer, out);
    }
    return texts;
}

void AppendVertices(std::string& text, const TerrainData& terrain) {
    text += "# Vertices #";
    text += kEol;
    const int columns = terrain.heights.Columns(), rows = terrain.heights.Rows();
    // The same positions as GridPointPosition gives the view's mesh.
    const std::vector<std::string> xs = AxisTexts(columns, terrain.spacingX, "v ", " ");
    const std::vector<std::string> zs = AxisTexts(rows, terrain.spacingZ, "", " ");
    char line[3 * kLineRoom];
    const float* height = terrain.heights.Data();
    for (std::size_t row = 0; row < zs.size(); ++row) {
        for (std::size_t column = 0; column < xs.size(); ++column) {
            char* out = PutText(PutText(line, xs[column]), zs[row]);
            out = PutObjNumber(out, *height++);
            out = PutText(out, kEol);
            text.append(line, static_cast<std::size_t>(out - line));
        }
    }
    text += kEol;
}

char* PutFace(char* out, long long a, long long b, long long c) {
    out = PutText(out, "f ");
    out = PutInt(out, a);
    *out++ = ' ';
    out = PutInt(out, b);
    *out++ = ' ';
    out = PutInt(out, c);
    return PutText(out, kEol);
}

void AppendFaces(std::string& text, const TerrainData& terrain) {
    text += "# Faces #";
    text += kEol;
    const long long w = terrain.heights.Columns();
    char line[2 * kLineRoom];
    // Loops from 1 to count - 2 on purpose: the coverage every exported file has always had.
    for (long long r = 1; r <= terrain.heights.Rows() - 2; ++r) {
        for (long long c = 1; c <= w - 2; ++c) {
            char* out = PutFace(line, w * r + c, w * r + c + 1, w * (r + 1) + c + 1);
            out = PutFace(out, w * (r + 1) + c + 1, w * (r + 1) + c, w * r + c);
            text.append(line, static_cast<std::size_t>(out - line));
        }
    }
}

} // namespace

std::string FormatObjNumber(double value) {
    char buffer[kLineRoom];
    return {buffer, PutObjNumber(buffer, value)};
}

std::string FormatGroupedCount(long long value) {
    const std::string digits = std::to_string(value < 0 ? -value : value);
    std::string out = value < 0 ? "-" : "";
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) out += ',';
        out += digits[i];
    }
    return out;
}

std::string MakeObjText(const TerrainData& terrain) {
    const std::size_t points = terrain.heights.Size();
    std::string text;
    // About 30 characters per vertex line and 50 per pair of face lines.
    text.reserve(512 + points * 80);
    AppendHeader(text, terrain);
    AppendVertices(text, terrain);
    AppendFaces(text, terrain);
    return text;
}

bool WriteObjFile(const std::string& path, const TerrainData& terrain, std::string& error) {
    return WriteFileAtomically(path, MakeObjText(terrain), error);
}
