#include "mSave3DSObject.h"

#include "FileIO.h"

#include <array>
#include <bit>
#include <cstring>
#include <limits>

namespace {

// Chunk ids, little-endian 16-bit.
enum : std::uint16_t {
    kMain = 0x4D4D,
    kVersion = 0x0002,
    kEditor = 0x3D3D,
    kMeshVersion = 0x3D3E,
    kMaterialBlock = 0xAFFF,
    kMaterialName = 0xA000,
    kAmbient = 0xA010,
    kDiffuse = 0xA020,
    kSpecular = 0xA030,
    kShininess = 0xA040,
    kShininessStrength = 0xA041,
    kTransparency = 0xA050,
    kTransparencyFalloff = 0xA052,
    kReflectionBlur = 0xA053,
    kShading = 0xA100,
    kSelfIllumination = 0xA084,
    kWireThickness = 0xA087,
    kColour24 = 0x0011,
    kPercent16 = 0x0030,
    kMasterScale = 0x0100,
    kNamedObject = 0x4000,
    kTriangleMesh = 0x4100,
    kVertexList = 0x4110,
    kMappingCoords = 0x4140,
    kLocalAxis = 0x4160,
    kFaceList = 0x4120,
    kFaceMaterial = 0x4130,
};

constexpr std::size_t kHeader = 6;
constexpr std::uint32_t kFormatVersion = 3;
constexpr float kInchesPerMetre = 39.370079f;
constexpr std::size_t kValueChunk = kHeader + 4;      // version, mesh version, master scale, wire
constexpr std::size_t kColourChunk = kHeader + 3;     // 24-bit colour: 9
constexpr std::size_t kPercentChunk = kHeader + 2;    // 16-bit percentage: 8
constexpr std::size_t kMaterialNameBytes = 9;         // eight characters and the zero
constexpr std::size_t kLocalAxisChunk = kHeader + 48; // 4 x 3 floats
constexpr std::size_t kMaterialBlockChunk = kHeader + (kHeader + kMaterialNameBytes) +
                                            3 * (kHeader + kColourChunk) + 5 * (kHeader + kPercentChunk) +
                                            (kHeader + 2) + (kHeader + kPercentChunk) + kValueChunk;
static_assert(kMaterialBlockChunk == 168);
// The records copied whole by LittleEndianWriter::Block: exactly their fields, no padding.
static_assert(sizeof(Vector3) == 12 && sizeof(MapCoord) == 8 && sizeof(Face3DS) == 8);

std::size_t FaceMaterialLength(const Object3DS& o) {
    return kHeader + o.material.size() + 1 + 2 + 2 * o.faces.size();
}
std::size_t FaceListLength(const Object3DS& o) {
    return kHeader + 2 + 8 * o.faces.size() + FaceMaterialLength(o);
}
std::size_t VertexListLength(const Object3DS& o) {
    return kHeader + 2 + 12 * o.vertices.size();
}
std::size_t MappingLength(const Object3DS& o) {
    return o.mapping.empty() ? 0 : kHeader + 2 + 8 * o.mapping.size();
}
std::size_t MeshLength(const Object3DS& o) {
    return kHeader + VertexListLength(o) + MappingLength(o) + kLocalAxisChunk + FaceListLength(o);
}
std::size_t ObjectLength(const Object3DS& o) {
    return kHeader + o.name.size() + 1 + MeshLength(o);
}
std::size_t EditorLength(const Scene3DS& scene) {
    std::size_t length = kHeader + kValueChunk + kMaterialBlockChunk * scene.materials.size() + kValueChunk;
    for (const Object3DS& o : scene.objects)
        length += ObjectLength(o);
    return length;
}

// Writes little-endian values whatever the machine's byte order into a buffer sized in advance
// from the computed lengths; a write past its end is not made but remembered, so a length rule
// that disagrees with what is written shows up as a failure instead of a bad file.
class LittleEndianWriter {
public:
    explicit LittleEndianWriter(std::vector<std::uint8_t>& out) : out_(out) {}
    void U8(std::uint8_t v) {
        if (position_ < out_.size())
            out_[position_] = v;
        else
            overrun_ = true;
        ++position_;
    }
    void U16(std::uint16_t v) {
        U8(static_cast<std::uint8_t>(v & 0xFFu));
        U8(static_cast<std::uint8_t>(v >> 8));
    }
    void U32(std::uint32_t v) {
        U16(static_cast<std::uint16_t>(v & 0xFFFFu));
        U16(static_cast<std::uint16_t>(v >> 16));
    }
    void F32(float v) { U32(std::bit_cast<std::uint32_t>(v)); }
    // The items' bytes as they lie in memory; on a little-endian machine that is the file's order
    // for records of floats and 16-bit values without padding, and one copy instead of a call per
    // byte keeps a full-size terrain quick. Elsewhere each value goes through `write`.
    template <typename T, typename Write> void Block(const std::vector<T>& items, Write write) {
        const std::size_t size = items.size() * sizeof(T);
        if constexpr (std::endian::native == std::endian::little) {
            if (position_ + size <= out_.size()) {
                if (size > 0) std::memcpy(out_.data() + position_, items.data(), size);
                position_ += size;
                return;
            }
        }
        for (const T& item : items)
            write(*this, item);
    }
    // A zero-terminated string.
    void Text(const std::string& s) {
        for (char c : s)
            U8(static_cast<std::uint8_t>(c));
        U8(0);
    }
    void Chunk(std::uint16_t id, std::size_t length) {
        U16(id);
        U32(static_cast<std::uint32_t>(length));
    }
    // Whether exactly the buffer's size was written.
    bool Filled() const { return !overrun_ && position_ == out_.size(); }

private:
    std::vector<std::uint8_t>& out_;
    std::size_t position_ = 0;
    bool overrun_ = false;
};

void WriteColour(LittleEndianWriter& w, std::uint16_t id, const Colour24& c) {
    w.Chunk(id, kHeader + kColourChunk);
    w.Chunk(kColour24, kColourChunk);
    w.U8(c.r);
    w.U8(c.g);
    w.U8(c.b);
}

void WritePercent(LittleEndianWriter& w, std::uint16_t id, std::uint16_t value) {
    w.Chunk(id, kHeader + kPercentChunk);
    w.Chunk(kPercent16, kPercentChunk);
    w.U16(value);
}

void WriteMaterial(LittleEndianWriter& w, const Material3DS& m) {
    w.Chunk(kMaterialBlock, kMaterialBlockChunk);
    // The name field is always eight characters and a zero, so that every block is 168 bytes.
    std::string name = m.name.substr(0, kMaterialNameBytes - 1);
    name.resize(kMaterialNameBytes - 1, ' ');
    w.Chunk(kMaterialName, kHeader + kMaterialNameBytes);
    w.Text(name);
    WriteColour(w, kAmbient, m.ambient);
    WriteColour(w, kDiffuse, m.diffuse);
    WriteColour(w, kSpecular, m.specular);
    WritePercent(w, kShininess, m.shininess);
    WritePercent(w, kShininessStrength, m.shininessStrength);
    WritePercent(w, kTransparency, m.transparency);
    WritePercent(w, kTransparencyFalloff, m.transparencyFalloff);
    WritePercent(w, kReflectionBlur, m.reflectionBlur);
    w.Chunk(kShading, kHeader + 2);
    w.U16(m.shading);
    WritePercent(w, kSelfIllumination, m.selfIllumination);
    w.Chunk(kWireThickness, kValueChunk);
    w.F32(m.wireThickness);
}

void WriteMesh(LittleEndianWriter& w, const Object3DS& o) {
    w.Chunk(kTriangleMesh, MeshLength(o));
    w.Chunk(kVertexList, VertexListLength(o));
    w.U16(static_cast<std::uint16_t>(o.vertices.size()));
    w.Block(o.vertices, [](LittleEndianWriter& out, const Vector3& p) {
        out.F32(p.x);
        out.F32(p.y);
        out.F32(p.z);
    });
    if (!o.mapping.empty()) {
        w.Chunk(kMappingCoords, MappingLength(o));
        w.U16(static_cast<std::uint16_t>(o.mapping.size()));
        w.Block(o.mapping, [](LittleEndianWriter& out, const MapCoord& m) {
            out.F32(m.u);
            out.F32(m.v);
        });
    }
    // The object's own axes: identity rotation (rows X, Y, Z), origin at the world's origin.
    w.Chunk(kLocalAxis, kLocalAxisChunk);
    constexpr std::array<float, 12> kIdentityAxes{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
    for (float v : kIdentityAxes)
        w.F32(v);
    w.Chunk(kFaceList, FaceListLength(o));
    w.U16(static_cast<std::uint16_t>(o.faces.size()));
    w.Block(o.faces, [](LittleEndianWriter& out, const Face3DS& f) {
        out.U16(f.a);
        out.U16(f.b);
        out.U16(f.c);
        out.U16(f.flags);
    });
    w.Chunk(kFaceMaterial, FaceMaterialLength(o));
    w.Text(o.material);
    w.U16(static_cast<std::uint16_t>(o.faces.size()));
    for (std::size_t i = 0; i < o.faces.size(); ++i)
        w.U16(static_cast<std::uint16_t>(i));
}

} // namespace

Material3DS NewMaterial(int number, const Colour24& colour) {
    Material3DS material;
    std::array<char, 4> digits{};
    const int n = number < 0 ? 0 : number % 1000;
    digits[0] = static_cast<char>('0' + n / 100);
    digits[1] = static_cast<char>('0' + n / 10 % 10);
    digits[2] = static_cast<char>('0' + n % 10);
    material.name = std::string("MATER") + digits.data();
    material.diffuse = colour;
    return material;
}

std::string CheckObjectLimits(const Object3DS& object) {
    if (object.vertices.size() > kMax3DSCount)
        return kOverflowPoints + std::to_string(object.vertices.size());
    if (object.mapping.size() > kMax3DSCount) return kOverflowCoords + std::to_string(object.mapping.size());
    if (object.faces.size() > kMax3DSCount) return kOverflowFaces + std::to_string(object.faces.size());
    if (!object.mapping.empty() && object.mapping.size() != object.vertices.size())
        return "The mapping coordinates of " + object.name + " do not match its vertices.";
    for (const Face3DS& f : object.faces)
        if (f.a >= object.vertices.size() || f.b >= object.vertices.size() || f.c >= object.vertices.size())
            return "A face of " + object.name + " names a vertex it does not have.";
    return {};
}

std::size_t Scene3DSFileSize(const Scene3DS& scene) {
    return kHeader + kValueChunk + EditorLength(scene);
}

Save3DSResult Build3DSFile(const Scene3DS& scene, std::vector<std::uint8_t>& bytes,
                           const Progress3DS& progress) {
    bytes.clear();
    for (const Object3DS& object : scene.objects)
        if (std::string problem = CheckObjectLimits(object); !problem.empty())
            return {Save3DSStatus::Overflow, std::move(problem)};
    const std::size_t total = Scene3DSFileSize(scene);
    if (total > std::numeric_limits<std::uint32_t>::max())
        return {Save3DSStatus::Overflow, "The scene is too large for one 3DS file."};
    bytes.assign(total, 0);
    LittleEndianWriter w(bytes);
    w.Chunk(kMain, total);
    w.Chunk(kVersion, kValueChunk);
    w.U32(kFormatVersion);
    w.Chunk(kEditor, EditorLength(scene));
    w.Chunk(kMeshVersion, kValueChunk);
    w.U32(kFormatVersion);
    for (const Material3DS& material : scene.materials)
        WriteMaterial(w, material);
    w.Chunk(kMasterScale, kValueChunk);
    w.F32(kInchesPerMetre);
    for (std::size_t i = 0; i < scene.objects.size(); ++i) {
        const Object3DS& object = scene.objects[i];
        w.Chunk(kNamedObject, ObjectLength(object));
        w.Text(object.name);
        WriteMesh(w, object);
        if (progress && !progress(i + 1)) {
            bytes.clear();
            return {Save3DSStatus::Cancelled, "The export was cancelled."};
        }
    }
    if (!w.Filled()) { // a length rule above disagrees with what was written
        bytes.clear();
        return {Save3DSStatus::WriteFailed, "Internal error: the 3DS chunk lengths do not add up."};
    }
    return {};
}

Save3DSResult Save3DSObject(const std::string& path, const Scene3DS& scene, const Progress3DS& progress) {
    std::vector<std::uint8_t> bytes;
    Save3DSResult result = Build3DSFile(scene, bytes, progress);
    if (!result) return result;
    std::string error;
    if (!WriteFileAtomically(path, bytes, error)) return {Save3DSStatus::WriteFailed, error};
    return result;
}
