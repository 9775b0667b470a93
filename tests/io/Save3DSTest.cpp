// The 3DS writer and the export's meshes, read back with the tests' own chunk reader.
#include "Chunk3DSReader.h"
#include "Mesh3DS.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace {

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

// A built scene's bytes and their chunk tree; the test fails when they do not walk.
struct ReadBack {
    std::vector<std::uint8_t> bytes;
    Chunk3DS root;
    Chunk3DSReader Reader() const { return Chunk3DSReader(bytes); }
    std::vector<const Chunk3DS*> Objects() const {
        std::vector<const Chunk3DS*> objects;
        for (const Chunk3DS& c : root.children.at(1).children)
            if (c.id == 0x4000) objects.push_back(&c);
        return objects;
    }
};

ReadBack Walk(const Scene3DS& scene) {
    ReadBack back;
    EXPECT_TRUE(Build3DSFile(scene, back.bytes));
    EXPECT_TRUE(back.Reader().Walk(back.root));
    return back;
}

std::vector<Vector3> VerticesOf(const ReadBack& back, const Chunk3DS& object) {
    const Chunk3DSReader r = back.Reader();
    const std::size_t list = object.children.at(0).Find(0x4110)->data;
    std::vector<Vector3> v(r.U16(list));
    for (std::size_t i = 0, at = list + 2; i < v.size(); ++i, at += 12)
        v[i] = {r.F32(at), r.F32(at + 4), r.F32(at + 8)};
    return v;
}

struct FileFace {
    std::uint16_t a, b, c;
};
std::vector<FileFace> FacesOf(const ReadBack& back, const Chunk3DS& object) {
    const Chunk3DSReader r = back.Reader();
    const std::size_t list = object.children.at(0).Find(0x4120)->data;
    std::vector<FileFace> f(r.U16(list));
    for (std::size_t i = 0, at = list + 2; i < f.size(); ++i, at += 8)
        f[i] = {r.U16(at), r.U16(at + 2), r.U16(at + 4)};
    return f;
}

double Triple(const Vector3& a, const Vector3& b, const Vector3& c) {
    return double(a.x) * (double(b.y) * c.z - double(b.z) * c.y) -
           double(a.y) * (double(b.x) * c.z - double(b.z) * c.x) +
           double(a.z) * (double(b.x) * c.y - double(b.y) * c.x);
}

TEST(Save3DSTest, OneTerrainObjectInFileOrderUprightFacingUpAndMappedOnce) {
    // 3 columns x 2 rows: point (row r, column c) at x = 10 (c - 1), z = 20 (r - 0.5).
    const ReadBack back = Walk(Build3DSScene(RampTerrain(3, 2), nullptr, {}));
    const Chunk3DSReader r = back.Reader();
    EXPECT_EQ(back.root.id, 0x4D4D);
    EXPECT_EQ(back.root.ChildIds(), (std::vector<std::uint16_t>{0x0002, 0x3D3D}));
    EXPECT_EQ(r.U32(back.root.children[0].data), 3u);
    const Chunk3DS& editor = back.root.children[1];
    EXPECT_EQ(editor.ChildIds(), (std::vector<std::uint16_t>{0x3D3E, 0xAFFF, 0x0100, 0x4000}));
    EXPECT_EQ(r.U32(editor.children[0].data), 3u);
    EXPECT_FLOAT_EQ(r.F32(editor.children[2].data), 39.370079f);
    const Chunk3DS& object = editor.children[3];
    EXPECT_EQ(r.Text(object.data), "TERA0000");
    const Chunk3DS& mesh = object.children.at(0);
    EXPECT_EQ(mesh.id, 0x4100);
    EXPECT_EQ(mesh.ChildIds(), (std::vector<std::uint16_t>{0x4110, 0x4140, 0x4160, 0x4120}));
    // Local axes: identity rows then the origin.
    const float axes[12] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
    for (std::size_t i = 0; i < 12; ++i)
        EXPECT_EQ(r.F32(mesh.children[2].data + 4 * i), axes[i]) << i;
    // Every one of the 4 faces (two for each of 2 cells) in the terrain's material.
    const Chunk3DS& list = *mesh.children[3].Find(0x4130);
    EXPECT_EQ(r.Text(list.data), "MATER000");
    ASSERT_EQ(r.U16(list.data + 9), 4u);
    EXPECT_EQ(list.length, 6u + 9u + 2u + 2u * 4u);
    for (std::uint16_t i = 0; i < 4; ++i)
        EXPECT_EQ(r.U16(list.data + 11 + 2u * i), i);

    const std::vector<Vector3> v = VerticesOf(back, object);
    ASSERT_EQ(v.size(), 6u);
    // World (x, y, z) is stored as (x, -z, y): row 0 lies at file y = +10, row 1 at -10.
    EXPECT_EQ((std::vector<float>{v[0].x, v[0].y, v[0].z, v[5].x, v[5].y, v[5].z}),
              (std::vector<float>{-10.0f, 10.0f, 0.0f, 10.0f, -10.0f, 102.0f}));
    for (const FileFace& f : FacesOf(back, object)) {
        const Vector3 &a = v[f.a], &b = v[f.b], &c = v[f.c];
        const double nz = double(b.x - a.x) * (c.y - a.y) - double(b.y - a.y) * (c.x - a.x);
        EXPECT_GT(nz, 0.0) << f.a << " " << f.b << " " << f.c;
    }
    // u, v of the first point, the middle column's u and the last point's u, v.
    const std::size_t map = mesh.children[1].data + 2;
    EXPECT_EQ(
        (std::vector<float>{r.F32(map), r.F32(map + 4), r.F32(map + 8), r.F32(map + 40), r.F32(map + 44)}),
        (std::vector<float>{0.0f, 0.0f, 0.5f, 1.0f, 1.0f}));
}

TEST(Save3DSTest, MaterialBlockIsTheNineSubChunksIn168Bytes) {
    Scene3DS scene;
    scene.materials.push_back(NewMaterial(7, {10, 20, 30}));
    std::vector<std::uint8_t> bytes;
    ASSERT_TRUE(Build3DSFile(scene, bytes));
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

TEST(Save3DSTest, LargeGridsAreCutIntoObjectsWithinTheLimitsSharingTheirBorderRows) {
    // 2 x 32768: 65,536 vertices but only 65,534 faces, so the vertex count decides the cut;
    // 513 x 513: the face count decides.
    for (const auto& [columns, rows] : {std::pair{2, 32768}, std::pair{513, 513}}) {
        const ReadBack back = Walk(Build3DSScene(RampTerrain(columns, rows), nullptr, {}));
        const std::vector<const Chunk3DS*> objects = back.Objects();
        ASSERT_GT(objects.size(), 1u) << columns;
        std::size_t faces = 0, pointRows = 0;
        std::vector<Vector3> previous;
        for (const Chunk3DS* object : objects) {
            const std::vector<Vector3> v = VerticesOf(back, *object);
            EXPECT_LE(v.size(), 65535u);
            if (!previous.empty()) { // the next object starts on the row where the last one ended
                EXPECT_EQ(v.front().y, previous[previous.size() - static_cast<std::size_t>(columns)].y);
            }
            faces += FacesOf(back, *object).size();
            pointRows += v.size() / static_cast<std::size_t>(columns);
            previous = v;
        }
        EXPECT_EQ(faces, 2u * static_cast<std::size_t>((columns - 1) * (rows - 1))) << columns;
        EXPECT_EQ(pointRows - (objects.size() - 1), static_cast<std::size_t>(rows)) << columns;
        EXPECT_EQ(back.Reader().Text(objects.back()->data), NumberedObjectName("TERA", objects.size() - 1));
    }
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
    const ReadBack with = Walk(Build3DSScene(RampTerrain(3, 3), &spine, options));
    const Chunk3DSReader r = with.Reader();
    const std::vector<const Chunk3DS*> objects = with.Objects();
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_EQ(r.Text(objects[1]->data), "TRCK0000");
    EXPECT_EQ(r.Text(objects[1]->children[0].Find(0x4120)->Find(0x4130)->data), "MATER001");
    const Chunk3DS& material = with.root.children[1].children.at(2);
    ASSERT_EQ(material.id, 0xAFFF);
    EXPECT_EQ(r.U16(material.Find(0xA020)->data + 6), 200 + 100 * 256);

    // Closed, outward-facing tubes enclose their volume: (2 h)^2 x length for each. Spine h 0.14
    // and rails h 0.08 run 18 units; ten U-ties of h 0.05 are 0.4 + 1.2 + 0.4 long each.
    const std::vector<Vector3> v = VerticesOf(with, *objects[1]);
    double volume = 0.0;
    for (const FileFace& f : FacesOf(with, *objects[1]))
        volume += Triple(v[f.a], v[f.b], v[f.c]) / 6.0;
    EXPECT_NEAR(volume, 0.28 * 0.28 * 18 + 2 * 0.16 * 0.16 * 18 + 10 * 0.1 * 0.1 * 2.0, 1e-3);
    // The track stands where it is in the world: the rails' tops 8.8 + 0.08 up, at file z.
    const auto highest = std::max_element(v.begin(), v.end(), [](auto& a, auto& b) { return a.z < b.z; });
    EXPECT_NEAR(highest->z, 8.8f + 0.08f, 1e-4);

    options.includeTrack = false;
    EXPECT_EQ(Walk(Build3DSScene(RampTerrain(3, 3), &spine, options)).Objects().size(), 1u);
}

TEST(Save3DSTest, LongTrackIsSplitIntoObjectsWithinTheLimits) {
    const std::vector<Object3DS> objects = BuildTrackObjects(StraightSpine(6000), "MATER001");
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
