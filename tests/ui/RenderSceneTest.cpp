// The 3D view drawn for real (Mesa under Xvfb): each test sets up a scene, grabs the frame and
// looks at its pixels.
#include "Editor.h"
#include "SampleTrack.h"
#include "ScriptedShell.h"
#include "mPictureLoader.h"
#include "pbOpenGL.h"

#include <QApplication>
#include <QImage>

#include <gtest/gtest.h>

#include <string>

namespace {

class RenderSceneTest : public ::testing::Test {
protected:
    ScriptedShell shell;
    Editor editor{shell, LW_BIN_DIR};
    pbOpenGL view;

    void SetUp() override {
        editor.InitPaths();
        editor.settings.viewTextures = false;
        editor.settings.noLights = true; // exact colours; lighting has a test of its own
        editor.settings.sculptSize = 0;
        view.SetEditor(&editor);
        view.resize(320, 240); // the view's smallest size
        view.show();
        QApplication::processEvents();
        ASSERT_TRUE(view.ContextReady());
    }

    // A flat terrain of side points at height, seen straight down from above its centre.
    void FlatTerrain(int side, float height, bool water = false) {
        editor.terrain.waterEnabled = water;
        editor.terrain.groundTiling = editor.terrain.waterTiling = 10.0f;
        NewTerrainGrid(editor.terrain, side, side);
        editor.terrain.heights.Fill(height);
        editor.mesh.Build(editor.terrain);
        LookDownFrom(300.0f);
    }

    void LookDownFrom(float height) {
        editor.camera = CameraState{};
        editor.camera.y = height;
        editor.camera.pitch = -90.0f;
    }

    QImage Frame() { return view.grabFramebuffer().convertToFormat(QImage::Format_RGB32); }

    static QColor Rgb(const RgbColour& c) {
        return QColor::fromRgbF(static_cast<float>(c.r), static_cast<float>(c.g), static_cast<float>(c.b));
    }
};

bool Near(const QColor& a, const QColor& b, int tolerance = 3) {
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}

int CountNear(const QImage& image, const QColor& colour, int tolerance = 3) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += Near(image.pixelColor(x, y), colour, tolerance) ? 1 : 0;
    return count;
}

} // namespace

TEST_F(RenderSceneTest, AnEmptySceneIsBlackUntexturedTerrainShowsItsColourAndTheBrushSitsUnderTheCursor) {
    QImage frame = Frame();
    EXPECT_EQ(CountNear(frame, Qt::black, 0), frame.width() * frame.height()) << "an empty scene";
    FlatTerrain(101, 0.0f);
    editor.cursor = {200.0f, 0.0f, 200.0f}; // away from the middle of the picture
    frame = Frame();
    const QColor terrain = Rgb(editor.settings.colorTable[9]);
    EXPECT_TRUE(Near(frame.pixelColor(160, 120), terrain)) << frame.pixelColor(160, 120).name().toStdString();
    EXPECT_EQ(CountNear(frame, Rgb(editor.settings.colorTable[7])), 0);
    editor.cursor = {5.0f, 0.0f, 5.0f};
    editor.settings.sculptSize = 3;
    editor.settings.colorTable[8] = {0.0f, 0.0f, 0.0f}; // keep the marker out of the picture's colours
    frame = Frame();
    // Six by six highlighted cells around the middle of the picture, where the cursor is.
    int sumX = 0, sumY = 0, n = 0;
    for (int y = 0; y < frame.height(); ++y)
        for (int x = 0; x < frame.width(); ++x)
            if (Near(frame.pixelColor(x, y), Rgb(editor.settings.colorTable[7]))) sumX += x, sumY += y, ++n;
    ASSERT_GT(n, 100);
    EXPECT_NEAR(static_cast<double>(sumX) / n, 160.0 + 14.0, 12.0) << "a little right of the centre";
    EXPECT_NEAR(static_cast<double>(sumY) / n, 120.0 + 14.0, 12.0)
        << "and a little towards +z, down in the picture";
}

TEST_F(RenderSceneTest, WaterBlendsWithTheGroundBelowIt) {
    FlatTerrain(51, -5.0f, true);
    editor.settings.useWaterTrans = true;
    editor.settings.waterTrans = 0.5f;
    const RgbColour ground = editor.settings.colorTable[9];
    const RgbColour water = editor.settings.colorTable[10];
    const QColor blended =
        QColor::fromRgbF((ground.r + water.r) / 2, (ground.g + water.g) / 2, (ground.b + water.b) / 2);
    EXPECT_TRUE(Near(Frame().pixelColor(90, 170), blended, 4))
        << Frame().pixelColor(90, 170).name().toStdString();
    editor.settings.useWaterTrans = false;
    EXPECT_TRUE(Near(Frame().pixelColor(90, 170), Rgb(water)));
    editor.settings.viewWater = false;
    EXPECT_TRUE(Near(Frame().pixelColor(90, 170), Rgb(ground)));
    // Ground above the water shows no water at all.
    editor.settings.viewWater = true;
    editor.terrain.heights.Fill(2.0f);
    editor.mesh.Build(editor.terrain);
    EXPECT_TRUE(Near(Frame().pixelColor(90, 170), Rgb(ground)));
}

TEST_F(RenderSceneTest, TheTrackShowsEachSegmentTypeInItsColour) {
    // Five stretches along x, one of each type, seen from above.
    TrackDocument doc = MakeSampleTrack();
    doc.bezier.vertices.clear();
    for (int i = 0; i <= 5; ++i) {
        BezierVertex v;
        const float x = -100.0f + 40.0f * static_cast<float>(i);
        v.values = {x, 10.0f, 0.0f, x - 13.0f, 10.0f, 0.0f, x + 13.0f, 10.0f, 0.0f, 0.0f};
        doc.bezier.vertices.push_back(v);
    }
    doc.segments.segments.resize(5);
    for (int i = 0; i < 5; ++i)
        doc.segments.segments[static_cast<std::size_t>(i)].type = i;
    doc.track.trackStyle = 1;
    editor.track = doc;
    ASSERT_TRUE(TraceTrack(editor.track, editor.spine));
    editor.terrain.trackPresent = true;
    editor.settings.viewSupports = editor.settings.viewTrees = false;
    LookDownFrom(160.0f);
    const QImage frame = Frame();
    for (int type = 0; type < 5; ++type)
        EXPECT_GT(CountNear(frame, Rgb(editor.settings.colorTable[static_cast<std::size_t>(type)]), 8), 5)
            << type;
    editor.settings.viewTrack = false;
    EXPECT_EQ(CountNear(Frame(), Rgb(editor.settings.colorTable[2]), 8), 0);
}

TEST_F(RenderSceneTest, LightingShadesSlopesAndNoLightsTurnsItOff) {
    FlatTerrain(65, 0.0f);
    for (int row = 0; row < 65; ++row)
        for (int column = 0; column < 65; ++column)
            editor.terrain.heights.At(row, column) =
                column < 32 ? static_cast<float>(column) * 6.0f : static_cast<float>(64 - column) * 6.0f;
    editor.mesh.Build(editor.terrain);
    editor.cursor = {400.0f, 0.0f, 400.0f};
    const QImage unlit = Frame();
    EXPECT_TRUE(Near(unlit.pixelColor(80, 120), unlit.pixelColor(240, 120)))
        << "without light both slopes look alike";
    editor.settings.noLights = false;
    const QImage lit = Frame();
    EXPECT_LT(lit.pixelColor(80, 120).green() + 20, lit.pixelColor(240, 120).green())
        << "the slope facing the light is brighter than the one facing away";
    EXPECT_NE(lit, unlit);
}

// The demo terrain drawn both ways, from the visible blocks' arrays and every cell one call at a
// time: the two pictures must match pixel for pixel.
class VisibleBlocksTest : public RenderSceneTest {
protected:
    void SetUp() override {
        RenderSceneTest::SetUp();
        InstallQtPictureDecoder();
        editor.OpenTrack(std::string(LW_BIN_DIR) + "/tracks/Demo.cvtrack");
        ASSERT_TRUE(editor.terrain.terrainPresent);
        view.RequestTextureReload();
        editor.settings.colorTable[8] = {0.0f, 0.0f, 0.0f}; // the cursor marker
    }
    void TearDown() override { SetPictureDecoder({}); }

    QImage ExpectSamePicture(const std::string& what) {
        view.Options().cullBlocks = false;
        const QImage whole = Frame();
        view.Options().cullBlocks = true;
        EXPECT_EQ(whole, Frame()) << what;
        return whole;
    }
    QImage WithBrush(int size) {
        editor.settings.sculptSize = size;
        editor.cursor = {editor.camera.x, 0.0f, editor.camera.z - 50.0f}; // 50 units north of the camera
        return ExpectSamePicture("brush " + std::to_string(size));
    }
};

TEST_F(VisibleBlocksTest, TheGroundIsTheSameFromEveryPoseLitOrNotTexturedOrNotClippedOrNot) {
    const CameraState start = editor.camera, overview{0.0f, 330.0f, 480.0f, -38.0f, 0.0f, 0.0f};
    for (const CameraState& pose :
         {start, overview, CameraState{-300.0f, 40.0f, 100.0f, -10.0f, 135.0f, 0.0f},
          CameraState{100.0f, 60.0f, -200.0f, -89.0f, 10.0f, 0.0f}})
        for (const int look : {0, 1, 2, 3, 4, 5, 6, 7}) {
            editor.camera = pose;
            editor.settings.noLights = (look & 1) != 0;
            editor.settings.viewTextures = (look & 2) != 0;
            editor.settings.clipTerrain = (look & 4) != 0; // the scene area's edges cut through blocks
            const QImage frame = WithBrush(4);
            if (!editor.settings.clipTerrain) {
                EXPECT_LT(CountNear(frame, Qt::black, 0), frame.width() * frame.height() / 2)
                    << "ground in view";
            }
        }
    EXPECT_NE(view.ViewState().terrainTexture, 0u);
    // What the poses are meant to show is in view: the brush, and the clipped scene area.
    editor.camera = start;
    EXPECT_NE(WithBrush(0), WithBrush(4));
    editor.camera = overview;
    const QImage clipped = WithBrush(0);
    editor.settings.clipTerrain = false;
    EXPECT_NE(clipped, WithBrush(0));
}

TEST_F(VisibleBlocksTest, WaterAndASculptEditAreTheSame) {
    // Looking down at the bottom of the lake from the south.
    int column = 0, row = 0;
    const HeightGrid& h = editor.terrain.heights;
    for (int r = 0; r < h.Rows(); ++r)
        for (int c = 0; c < h.Columns(); ++c)
            if (h.At(r, c) < h.At(row, column)) column = c, row = r;
    ASSERT_LT(h.At(row, column), 0.0f);
    editor.camera = {
        editor.terrain.PointX(column), 40.0f, editor.terrain.PointZ(row) + 40.0f, -45.0f, 0.0f, 0.0f};
    editor.settings.viewWater = false;
    const QImage dry = ExpectSamePicture("no water");
    editor.settings.viewWater = true;
    for (const bool blended : {true, false}) {
        editor.settings.useWaterTrans = blended;
        EXPECT_NE(ExpectSamePicture(blended ? "blended water" : "opaque water"), dry)
            << "the lake is in view";
    }
    // A 13 x 13 point mound beside the lake, refreshed as a sculpt step does.
    const QImage before = ExpectSamePicture("before the edit");
    for (int r = row - 6; r <= row + 6; ++r)
        for (int c = column - 16; c <= column - 4; ++c)
            editor.terrain.heights.At(r, c) += 12.0f;
    editor.mesh.UpdateArea(editor.terrain, column - 16, row - 6, column - 4, row + 6);
    EXPECT_NE(ExpectSamePicture("after the edit"), before) << "the mound is in view";
}
