#pragma once
// The 3D Studio mesh writer: a list of materials and a list of triangle-mesh objects written as one
// little-endian chunk tree (".3ds").
//
// Chunks are a 16-bit id, a 32-bit length counting the 6-byte header, the contents and every
// sub-chunk, then the contents. The tree: main (0x4D4D) holding the version (0x0002) and the 3D
// editor (0x3D3D); the editor holds the mesh version (0x3D3E), one 168-byte material block
// (0xAFFF) per material, the master scale (0x0100) and one named object (0x4000) per object, each
// a triangle mesh (0x4100) of vertex list (0x4110), mapping coordinates (0x4140), local axis
// (0x4160) and face list (0x4120) with its face material (0x4130).
//
// Coordinates are stored as given: the objects already stand in the file's Z-up frame (see
// Mesh3DS.h for how the terrain and the track get there). Every length is computed from the
// counts before a byte is written, and the finished buffer is checked against that total.

#include "mMath3D.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Each count of an object (vertices, mapping coordinates, faces) is a 16-bit field.
inline constexpr std::size_t kMax3DSCount = 65535;

// The diagnostics of an object over one of the 16-bit limits; the count follows the text.
inline constexpr const char* kOverflowPoints = "OVERFLOW_POINTS: ";
inline constexpr const char* kOverflowCoords = "OVERFLOW_COORDS: ";
inline constexpr const char* kOverflowFaces = "OVERFLOW_FACES: ";

struct Colour24 {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    bool operator==(const Colour24&) const = default;
};

struct Material3DS {
    std::string name; // eight characters, for example "MATER000"
    Colour24 ambient;
    Colour24 diffuse;
    Colour24 specular;
    std::uint16_t shininess = 0; // the five percentages, 0..100
    std::uint16_t shininessStrength = 0;
    std::uint16_t transparency = 0;
    std::uint16_t transparencyFalloff = 0;
    std::uint16_t reflectionBlur = 0;
    std::uint16_t shading = 3; // 3: smooth (Gouraud)
    std::uint16_t selfIllumination = 0;
    float wireThickness = 1.0f;
};

// Material number `number` ("MATER" and three digits) with `colour` as its diffuse colour and
// every other field at its default (black ambient and specular, percentages 0).
Material3DS NewMaterial(int number, const Colour24& colour);

// A triangle's three vertex indices and its edge-visibility flags.
struct Face3DS {
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    std::uint16_t c = 0;
    std::uint16_t flags = 7; // all three edges visible
};

struct MapCoord {
    float u = 0.0f;
    float v = 0.0f;
};

// One named mesh whose faces all take one material. Counts are size_t here so that an object over
// the limits can be built and then refused by the writer with its diagnostic.
struct Object3DS {
    std::string name;
    std::vector<Vector3> vertices;
    std::vector<MapCoord> mapping; // one per vertex, or empty for none
    std::vector<Face3DS> faces;
    std::string material;
};

struct Scene3DS {
    std::vector<Material3DS> materials;
    std::vector<Object3DS> objects;
};

enum class Save3DSStatus { Ok, Overflow, Cancelled, WriteFailed };

struct Save3DSResult {
    Save3DSStatus status = Save3DSStatus::Ok;
    std::string message; // the diagnostic with its count, or why the file was not written
    explicit operator bool() const { return status == Save3DSStatus::Ok; }
};

// Called after each object is written, with the number written so far; returning false stops the
// export (nothing is written to disk).
using Progress3DS = std::function<bool(std::size_t objectsWritten)>;

// An empty message when the object fits the 16-bit counts, else the first diagnostic it breaks
// ("OVERFLOW_POINTS: 70000"); a mapping list that is neither empty nor one per vertex is refused
// too.
std::string CheckObjectLimits(const Object3DS& object);

// The size of the whole file, computed from the counts alone.
std::size_t Scene3DSFileSize(const Scene3DS& scene);

// The whole file in memory. Refuses (Overflow) before writing anything when an object breaks a
// limit; stops (Cancelled) when progress says so.
Save3DSResult Build3DSFile(const Scene3DS& scene, std::vector<std::uint8_t>& bytes,
                           const Progress3DS& progress = {});

// Builds the file and replaces path with it atomically: an existing file is replaced only once the
// whole new one is on disk, and stays as it was after an overflow, a cancel or a failed write.
Save3DSResult Save3DSObject(const std::string& path, const Scene3DS& scene, const Progress3DS& progress = {});
