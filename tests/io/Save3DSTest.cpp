// The 3DS writer and the export's meshes, read back with the tests' own chunk reader.
#include "Chunk3DSReader.h"
#include "Mesh3DS.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iterator>

namespace {

std::vector<std::uint8_t> FileOf(const Scene3DS& scene) {
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(Build3DSFile(scene, bytes));
    return bytes;
}

// A terrain of columns x rows with spacings 10 (x) and 20 (z) and height 100 * row + column.
TerrainData RampTerrain(int columns, int rows) {
    TerrainData t;
    t.columns = columns;
    t.rows = rows;
    t.spacingX = 10.0f;
    t.spacingZ = 20.0f;
    t.heights.Resize(columns, rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            t.heights.At(r, c) = static_cast<float>(100 * r + c);
    return t;
}

// A straight track of n drawn points 2 units apart along -z, laid out as the U-tie style 3:
// spine at (0, -1.6), rails at (+-0.6, -1.2), under-rail points at (+-0.6, -1.6).
TrackSpine StraightSpine(int n) {
    TrackSpine spine;
    spine.style = 3;
    for (int i = 0; i < n; ++i) {
        const float z = -2.0f * static_cast<float>(i);
        DrawnPoint p;
        p.p1 = {0.0f, 8.4f, z};
        p.p2 = {-0.6f, 8.8f, z};
        p.p3 = {0.6f, 8.8f, z};
        p.p4 = {-0.6f, 8.4f, z};
        p.p5 = {0.6f, 8.4f, z};
        p.p6 = p.p2;
        p.p7 = p.p3;
        spine.drawnPoints.push_back(p);
    }
    return spine;
}

struct ReadBack {
    std::vector<std::uint8_t> bytes;
    Chunk3DS root;
};

ReadBack Walk(std::vector<std::uint8_t> bytes) {
    ReadBack back{std::move(bytes), {}};
    std::string error;
    EXPECT_TRUE(Chunk3DSReader(back.bytes).Walk(back.root, error)) << error;
    return back;
}

const Chunk3DS& Editor3D(const ReadBack& back) {
    return back.root.children.at(1);
}

std::vector<const Chunk3DS*> Objects(const ReadBack& back) {
    std::vector<const Chunk3DS*> objects;
    for (const Chunk3DS& c : Editor3D(back).children)
        if (c.id == 0x4000) objects.push_back(&c);
    return objects;
}

// The records of one of an object's mesh lists: a 16-bit count, then `size` bytes for each.
template <typename Record, typename Read>
std::vector<Record> ListOf(const ReadBack& back, const Chunk3DS& object, std::uint16_t id, std::size_t size,
                           Read read) {
    const Chunk3DSReader r(back.bytes);
    const Chunk3DS& list = *object.children.at(0).Find(id);
    std::vector<Record> records(r.U16(list.data));
    for (std::size_t i = 0; i < records.size(); ++i)
        records[i] = read(r, list.data + 2 + size * i);
    return records;
}

std::vector<Vector3> VerticesOf(const ReadBack& back, const Chunk3DS& object) {
    return ListOf<Vector3>(back, object, 0x4110, 12, [](const Chunk3DSReader& r, std::size_t at) {
        return Vector3{r.F32(at), r.F32(at + 4), r.F32(at + 8)};
    });
}

struct FileFace {
    std::uint16_t a, b, c;
};
std::vector<FileFace> FacesOf(const ReadBack& back, const Chunk3DS& object) {
    return ListOf<FileFace>(back, object, 0x4120, 8, [](const Chunk3DSReader& r, std::size_t at) {
        return FileFace{r.U16(at), r.U16(at + 2), r.U16(at + 4)};
    });
}

double Triple(const Vector3& a, const Vector3& b, const Vector3& c) {
    return double(a.x) * (double(b.y) * c.z - double(b.z) * c.y) -
           double(a.y) * (double(b.x) * c.z - double(b.z) * c.x) +
           double(a.z) * (double(b.x) * c.y - double(b.y) * c.x);
}

TEST(Save3DSTest, ChunkTreeOfOneTerrainObjectAddsUpInTheFileOrder) {
    const ReadBack back = Walk(FileOf(Build3DSScene(RampTerrain(3, 3), nullptr, {})));
    const Chunk3DSReader r(back.bytes);
    EXPECT_EQ(back.root.id, 0x4D4D);
    EXPECT_EQ(back.root.ChildIds(), (std::vector<std::uint16_t>{0x0002, 0x3D3D}));
    EXPECT_EQ(back.root.children[0].length, 10u);
    EXPECT_EQ(r.U32(back.root.children[0].data), 3u);
    const Chunk3DS& editor = Editor3D(back);
    EXPECT_EQ(editor.ChildIds(), (std::vector<std::uint16_t>{0x3D3E, 0xAFFF, 0x0100, 0x4000}));
    EXPECT_EQ(r.U32(editor.children[0].data), 3u);
    EXPECT_FLOAT_EQ(r.F32(editor.children[2].data), 39.370079f);
    const Chunk3DS& object = editor.children[3];
    EXPECT_EQ(r.Text(object.data), "TERA0000");
    const Chunk3DS& mesh = object.children.at(0);
    EXPECT_EQ(mesh.id, 0x4100);
    EXPECT_EQ(mesh.ChildIds(), (std::vector<std::uint16_t>{0x4110, 0x4140, 0x4160, 0x4120}));
    EXPECT_EQ(mesh.children[0].length, 8u + 12u * 9u);
    EXPECT_EQ(mesh.children[1].length, 8u + 8u * 9u);
    EXPECT_EQ(mesh.children[2].length, 6u + 48u);
    EXPECT_EQ(r.U16(mesh.children[3].data), 8u); // two triangles for each of 4 cells
    EXPECT_EQ(mesh.children[3].ChildIds(), (std::vector<std::uint16_t>{0x4130}));
    // Local axes: identity rows then the origin.
    const float axes[12] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
    for (std::size_t i = 0; i < 12; ++i)
        EXPECT_EQ(r.F32(mesh.children[2].data + 4 * i), axes[i]) << i;
}

TEST(Save3DSTest, MaterialBlockIsTheNineSubChunksIn168Bytes) {
    Scene3DS scene;
    scene.materials.push_back(NewMaterial(7, {10, 20, 30}));
    const std::vector<std::uint8_t> bytes = FileOf(scene);
    const std::vector<std::uint8_t> expected = {
        0xFF, 0xAF, 168, 0, 0, 0,                                                 // material block
        0x00, 0xA0, 15,  0, 0, 0, 'M',  'A',  'T',  'E',  'R', '0', '0', '7', 0,  // name
        0x10, 0xA0, 15,  0, 0, 0, 0x11, 0,    9,    0,    0,   0,   0,   0,   0,  // ambient black
        0x20, 0xA0, 15,  0, 0, 0, 0x11, 0,    9,    0,    0,   0,   10,  20,  30, // diffuse
        0x30, 0xA0, 15,  0, 0, 0, 0x11, 0,    9,    0,    0,   0,   0,   0,   0,  // specular black
        0x40, 0xA0, 14,  0, 0, 0, 0x30, 0,    8,    0,    0,   0,   0,   0,       // shininess
        0x41, 0xA0, 14,  0, 0, 0, 0x30, 0,    8,    0,    0,   0,   0,   0,       // shininess strength
        0x50, 0xA0, 14,  0, 0, 0, 0x30, 0,    8,    0,    0,   0,   0,   0,       // transparency
        0x52, 0xA0, 14,  0, 0, 0, 0x30, 0,    8,    0,    0,   0,   0,   0,       // transparency falloff
        0x53, 0xA0, 14,  0, 0, 0, 0x30, 0,    8,    0,    0,   0,   0,   0,       // reflection blur
        0x00, 0xA1, 8,   0, 0, 0, 3,    0,                                        // shading 3
        0x84, 0xA0, 14,  0, 0, 0, 0x30, 0,    8,    0,    0,   0,   0,   0,       // self-illumination
        0x87, 0xA0, 10,  0, 0, 0, 0x00, 0x00, 0x80, 0x3F,                         // wire thickness 1.0
    };
    ASSERT_EQ(expected.size(), 168u);
    // After main (6), version (10), editor header (6) and mesh version (10).
    ASSERT_EQ(bytes.size(), 32u + 168u + 10u);
    EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin() + 32, bytes.begin() + 200), expected);
}

TEST(Save3DSTest, TerrainStandsUprightWithItsTrianglesFacingUpAndOneMapOverIt) {
    // 3 columns x 2 rows: point (row r, column c) at x = 10 (c - 1), z = 20 (r - 0.5).
    const ReadBack back = Walk(FileOf(Build3DSScene(RampTerrain(3, 2), nullptr, {})));
    const Chunk3DS& object = *Objects(back).at(0);
    const std::vector<Vector3> v = VerticesOf(back, object);
    ASSERT_EQ(v.size(), 6u);
    // World (x, y, z) is stored as (x, -z, y): row 0 lies at file y = +10, row 1 at -10.
    EXPECT_FLOAT_EQ(v[0].x, -10.0f);
    EXPECT_FLOAT_EQ(v[0].y, 10.0f);
    EXPECT_FLOAT_EQ(v[0].z, 0.0f);
    EXPECT_FLOAT_EQ(v[5].x, 10.0f);
    EXPECT_FLOAT_EQ(v[5].y, -10.0f);
    EXPECT_FLOAT_EQ(v[5].z, 102.0f);
    for (const FileFace& f : FacesOf(back, object)) {
        const Vector3 &a = v[f.a], &b = v[f.b], &c = v[f.c];
        const double nz = double(b.x - a.x) * (c.y - a.y) - double(b.y - a.y) * (c.x - a.x);
        EXPECT_GT(nz, 0.0) << f.a << " " << f.b << " " << f.c;
    }
    const Chunk3DSReader r(back.bytes);
    const std::size_t map = object.children[0].Find(0x4140)->data + 2;
    EXPECT_EQ(r.F32(map), 0.0f); // first point: u 0, v 0
    EXPECT_EQ(r.F32(map + 4), 0.0f);
    EXPECT_EQ(r.F32(map + 8 * 5), 1.0f); // last point: u 1, v 1
    EXPECT_EQ(r.F32(map + 8 * 5 + 4), 1.0f);
    EXPECT_EQ(r.F32(map + 8 * 1), 0.5f); // middle column
}

TEST(Save3DSTest, FaceMaterialListNamesTheMaterialAndEveryFace) {
    const ReadBack back = Walk(FileOf(Build3DSScene(RampTerrain(4, 3), nullptr, {})));
    const Chunk3DSReader r(back.bytes);
    const Chunk3DS& list = *Objects(back).at(0)->children[0].Find(0x4120)->Find(0x4130);
    EXPECT_EQ(r.Text(list.data), "MATER000");
    const std::size_t count = list.data + 9;
    ASSERT_EQ(r.U16(count), 12u);
    EXPECT_EQ(list.length, 6u + 9u + 2u + 2u * 12u);
    for (std::uint16_t i = 0; i < 12; ++i)
        EXPECT_EQ(r.U16(count + 2 + 2u * i), i);
}

TEST(Save3DSTest, GridJustOverTheVertexLimitBecomesTwoObjectsSharingABorderRow) {
    // 2 x 32768 points: 65,536 vertices but only 65,534 faces, so the vertex count decides.
    const ReadBack back = Walk(FileOf(Build3DSScene(RampTerrain(2, 32768), nullptr, {})));
    const std::vector<const Chunk3DS*> objects = Objects(back);
    ASSERT_EQ(objects.size(), 2u);
    const std::vector<Vector3> first = VerticesOf(back, *objects[0]);
    const std::vector<Vector3> second = VerticesOf(back, *objects[1]);
    EXPECT_LE(first.size(), 65535u);
    EXPECT_EQ(first.size() + second.size(), 65536u + 2u); // the shared row counted twice
    EXPECT_EQ(FacesOf(back, *objects[0]).size() + FacesOf(back, *objects[1]).size(), 2u * 32767u);
    EXPECT_FLOAT_EQ(first[first.size() - 2].y, second[0].y);
    EXPECT_FLOAT_EQ(first.back().z, second[1].z);
}

TEST(Save3DSTest, FullSizeTerrainKeepsEveryObjectWithinTheLimitsAndCoversEveryCell) {
    const ReadBack back = Walk(FileOf(Build3DSScene(RampTerrain(513, 513), nullptr, {})));
    std::size_t faces = 0, rows = 0;
    const std::vector<const Chunk3DS*> objects = Objects(back);
    ASSERT_GT(objects.size(), 1u);
    for (const Chunk3DS* object : objects) {
        const std::size_t vertices = VerticesOf(back, *object).size();
        const std::size_t objectFaces = FacesOf(back, *object).size();
        EXPECT_LE(vertices, 65535u);
        EXPECT_LE(objectFaces, 65535u);
        faces += objectFaces;
        rows += vertices / 513;
    }
    EXPECT_EQ(faces, 2u * 512u * 512u);
    EXPECT_EQ(rows - (objects.size() - 1), 513u);
    EXPECT_EQ(Chunk3DSReader(back.bytes).Text(objects.back()->data),
              NumberedObjectName("TERA", objects.size() - 1));
}

TEST(Save3DSTest, ObjectOverALimitIsRefusedWithItsCountAndNothingIsWritten) {
    ScratchFolder folder;
    const std::string path = folder.File("over.3ds");
    WriteText(path, "before");
    struct Case {
        std::size_t vertices, mapping, faces;
        std::string message;
    };
    const Case cases[] = {{65536, 0, 0, "OVERFLOW_POINTS: 65536"},
                          {3, 65536, 0, "OVERFLOW_COORDS: 65536"},
                          {3, 0, 70000, "OVERFLOW_FACES: 70000"}};
    for (const Case& c : cases) {
        Scene3DS scene;
        scene.objects.push_back({"BIG", std::vector<Vector3>(c.vertices), std::vector<MapCoord>(c.mapping),
                                 std::vector<Face3DS>(c.faces), "MATER000"});
        const Save3DSResult result = Save3DSObject(path, scene);
        EXPECT_EQ(result.status, Save3DSStatus::Overflow);
        EXPECT_EQ(result.message, c.message);
        EXPECT_EQ(ReadText(path), "before");
    }
    // Pieces cut with limits above the format's are caught the same way.
    const std::vector<Object3DS> pieces = BuildTerrainObjects(RampTerrain(513, 300), "M", {100000, 400000});
    Scene3DS scene;
    scene.objects = pieces;
    EXPECT_EQ(Save3DSObject(path, scene).message, "OVERFLOW_POINTS: " + std::to_string(513 * 194));
}

TEST(Save3DSTest, CancelAfterTheFirstObjectLeavesTheOldFile) {
    ScratchFolder folder;
    const std::string path = folder.File("cancel.3ds");
    WriteText(path, "before");
    std::vector<std::size_t> reported;
    const Save3DSResult result =
        Save3DSObject(path, Build3DSScene(RampTerrain(300, 300), nullptr, {}), [&](std::size_t written) {
            reported.push_back(written);
            return false;
        });
    EXPECT_EQ(result.status, Save3DSStatus::Cancelled);
    EXPECT_EQ(reported, std::vector<std::size_t>{1});
    EXPECT_EQ(ReadText(path), "before");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1); // no temporary left
}

TEST(Save3DSTest, TrackGoesInAsClosedTubesInItsOwnMaterialOnlyWhenAsked) {
    const TrackSpine spine = StraightSpine(10);
    Export3DSOptions options;
    options.trackColour = {200, 100, 50};
    const ReadBack with = Walk(FileOf(Build3DSScene(RampTerrain(3, 3), &spine, options)));
    const Chunk3DSReader r(with.bytes);
    const std::vector<const Chunk3DS*> objects = Objects(with);
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_EQ(r.Text(objects[1]->data), "TRCK0000");
    const Chunk3DS& trackMaterial = *objects[1]->children[0].Find(0x4120)->Find(0x4130);
    EXPECT_EQ(r.Text(trackMaterial.data), "MATER001");
    const Chunk3DS& material = Editor3D(with).children.at(2);
    ASSERT_EQ(material.id, 0xAFFF);
    const std::size_t diffuse = material.Find(0xA020)->data + 6;
    EXPECT_EQ(with.bytes[diffuse], 200);
    EXPECT_EQ(with.bytes[diffuse + 2], 50);

    // Closed, outward-facing tubes enclose their volume: (2 h)^2 x length for each. Spine h 0.14
    // and rails h 0.08 run 18 units; ten U-ties of h 0.05 are 0.4 + 1.2 + 0.4 long each.
    const std::vector<Vector3> v = VerticesOf(with, *objects[1]);
    double volume = 0.0;
    for (const FileFace& f : FacesOf(with, *objects[1]))
        volume += Triple(v[f.a], v[f.b], v[f.c]) / 6.0;
    EXPECT_NEAR(volume, 0.28 * 0.28 * 18 + 2 * 0.16 * 0.16 * 18 + 10 * 0.1 * 0.1 * 2.0, 1e-3);
    // The track stands where it is in the world: the spine 8.4 up, at file z.
    float highest = -1e9f;
    for (const Vector3& p : v)
        highest = std::max(highest, p.z);
    EXPECT_NEAR(highest, 8.8f + 0.08f, 1e-4);

    options.includeTrack = false;
    EXPECT_EQ(Objects(Walk(FileOf(Build3DSScene(RampTerrain(3, 3), &spine, options)))).size(), 1u);
    EXPECT_EQ(Build3DSScene(RampTerrain(3, 3), nullptr, {}).materials.size(), 1u);
}

TEST(Save3DSTest, LongTrackIsSplitIntoObjectsWithinTheLimits) {
    const TrackSpine spine = StraightSpine(6000);
    const std::vector<Object3DS> objects = BuildTrackObjects(spine, "MATER001");
    ASSERT_GT(objects.size(), 1u);
    std::size_t faces = 0;
    for (const Object3DS& o : objects) {
        EXPECT_EQ(CheckObjectLimits(o), "") << o.name;
        faces += o.faces.size();
    }
    // 3 members in tubes of up to 256 rings (24 tubes each), 3 ties per point.
    const std::size_t tubes = 3 * 24, rings = 3 * (6000 + 23);
    EXPECT_EQ(faces, 8 * (rings - tubes) + 4 * tubes + 3 * 6000 * 12);
    EXPECT_EQ(objects[1].name, "TRCK0001");
}

} // namespace
