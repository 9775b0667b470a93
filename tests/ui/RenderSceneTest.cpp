// The 3D view drawn for real (Mesa under Xvfb): each test sets up a scene, grabs the frame and
// looks at its pixels.
#include "Editor.h"
#include "RenderInputFromEditor.h"
#include "SampleTrack.h"
#include "ScriptedShell.h"
#include "mPictureLoader.h"
#include "pbOpenGL.h"

#include <QApplication>
#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace {

bool Near(const QColor& a, const QColor& b, int tolerance = 3) {
    return std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                     std::abs(a.blue() - b.blue())}) <= tolerance;
}

// Calls found(x, y) for every pixel near colour; returns how many there are.
int FindNear(const QImage& image, const QColor& colour, int tolerance = 3,
             const std::function<void(int, int)>& found = {}) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (Near(image.pixelColor(x, y), colour, tolerance)) {
                ++count;
                if (found) found(x, y);
            }
    return count;
}

class RenderSceneTest : public ::testing::Test {
protected:
    ScriptedShell shell;
    Editor editor{shell, shell, LW_BIN_DIR};
    pbOpenGL view;

    void SetUp() override {
        editor.InitPaths();
        Change([](AppSettings& s) {
            s.viewTextures = false;
            s.noLights = true;    // exact colours until lighting is tested
            s.viewSkybox = false; // an empty scene is the plain black background
            s.sculptSize = 0;
        });
        view.SetInputSource([this] { return MakeRenderInput(editor); });
        view.resize(320, 240); // the view's smallest size
        view.show();
        QApplication::processEvents();
        ASSERT_TRUE(view.ContextReady());
    }

    // A terrain of side by side points, height(column) high, seen straight down from above its centre.
    void Terrain(int side, bool water, const std::function<float(int)>& height) {
        editor.ReplaceTerrain(
            [&](TerrainData& t) {
                t.waterEnabled = water;
                t.groundTiling = t.waterTiling = 10.0f;
                NewTerrainGrid(t, side, side);
                for (int row = 0; row < side; ++row)
                    for (int column = 0; column < side; ++column)
                        t.heights.At(row, column) = height(column);
                return true;
            },
            {});
        editor.SetCamera({0.0f, 300.0f, 0.0f, -90.0f, 0.0f, 0.0f});
    }

    // Changes the preferences as the options dialog does.
    void Change(const std::function<void(AppSettings&)>& change) {
        AppSettings settings = editor.Settings();
        change(settings);
        editor.ApplySettings(settings);
    }

    QImage Frame() { return view.grabFramebuffer().convertToFormat(QImage::Format_RGB32); }
    QColor Pixel(int x, int y) { return Frame().pixelColor(x, y); }

    QColor Colour(std::size_t index) const {
        const RgbColour& c = editor.Settings().colorTable[index];
        return QColor::fromRgbF(c.r, c.g, c.b);
    }
};

} // namespace

TEST_F(RenderSceneTest, TheSkyIsLightAtTheHorizonDeeperAboveAndFollowsThePitch) {
    Change([](AppSettings& s) { s.viewSkybox = true; });
    CameraState camera{0.0f, 10.0f, 0.0f, 0.0f, 0.0f, 0.0f}; // level: the horizon across the middle
    editor.SetCamera(camera);
    QImage frame = Frame();
    const QColor top = frame.pixelColor(160, 0), middle = frame.pixelColor(160, 120);
    EXPECT_NEAR(middle.redF(), 0.78, 0.03);
    EXPECT_NEAR(middle.blueF(), 0.94, 0.03);
    EXPECT_LT(top.redF(), middle.redF() - 0.1) << "deeper blue above";
    EXPECT_GT(top.blueF(), top.redF());
    EXPECT_EQ(frame.pixelColor(0, 60), frame.pixelColor(319, 60)) << "level bands across the view";
    // Looking up, the horizon leaves the frame below and the middle shows higher, deeper sky.
    camera.pitch = 30.0f;
    editor.SetCamera(camera);
    EXPECT_LT(Frame().pixelColor(160, 120).redF(), middle.redF() - 0.1);
    // Looking down, the middle shows the haze below the horizon.
    camera.pitch = -45.0f;
    editor.SetCamera(camera);
    EXPECT_LT(Frame().pixelColor(160, 120).blueF(), 0.5);
}

TEST_F(RenderSceneTest, AnEmptySceneIsBlack) {
    const QImage frame = Frame();
    EXPECT_EQ(FindNear(frame, Qt::black, 0), frame.width() * frame.height());
}

TEST_F(RenderSceneTest, EachStretchTypeShowsInItsColourUntilTheTrackIsHidden) {
    // Five stretches along x, one of each type, seen from above.
    TrackDocument track = MakeSampleTrack();
    track.terrain.terrainInTrack = false;
    track.track.trackStyle = 1;
    track.bezier.vertices.assign(6, BezierVertex{});
    track.segments.segments.resize(5);
    for (int i = 0; i < 6; ++i) {
        const float x = -100.0f + 40.0f * static_cast<float>(i);
        track.bezier.vertices[static_cast<std::size_t>(i)].values = {x, 10,     0,  x - 13, 10,
                                                                     0, x + 13, 10, 0,      0};
        if (i < 5) track.segments.segments[static_cast<std::size_t>(i)].type = i;
    }
    editor.OpenTrackDocument(track, "Stretches.cvtrack");
    ASSERT_TRUE(editor.Terrain().trackPresent);
    Change([](AppSettings& s) { s.viewSupports = s.viewTrees = false; });
    editor.SetCamera({0.0f, 160.0f, 0.0f, -90.0f, 0.0f, 0.0f});
    const QImage frame = Frame();
    for (std::size_t type = 0; type < 5; ++type)
        EXPECT_GT(FindNear(frame, Colour(type), 8), 5) << type;
    editor.SetViewSwitch(ViewSwitch::Track, false);
    EXPECT_EQ(FindNear(Frame(), Colour(2), 8), 0);
}

TEST_F(RenderSceneTest, TheBrushHighlightIsCentredOnTheCursorMarker) {
    // Six by six highlighted cells centred where the cursor marker's lines cross, to within a third
    // of a cell; the cursor is a little east (right) and towards +z (down) of the middle.
    Terrain(101, false, [](int) { return 0.0f; });
    editor.MoveCursorTo(5.0f, 5.0f);
    editor.SetSculptSize(3);
    Change([](AppSettings& s) { s.colorTable[8] = {0.0f, 0.0f, 1.0f}; });
    const QImage frame = Frame();
    double sumX = 0, sumY = 0;
    std::vector<int> columns(static_cast<std::size_t>(frame.width())),
        rows(static_cast<std::size_t>(frame.height()));
    const int n = FindNear(frame, Colour(7), 3, [&](int x, int y) { sumX += x, sumY += y; });
    FindNear(frame, Colour(8), 3, [&](int x, int y) {
        ++columns[static_cast<std::size_t>(x)], ++rows[static_cast<std::size_t>(y)];
    });
    const auto peak = [](const std::vector<int>& v) {
        return static_cast<double>(std::max_element(v.begin(), v.end()) - v.begin());
    };
    ASSERT_GT(n, 100);
    EXPECT_TRUE(peak(columns) > 160 && peak(rows) > 120);
    EXPECT_NEAR(sumX / n, peak(columns), 3.0);
    EXPECT_NEAR(sumY / n, peak(rows), 3.0);
}

TEST_F(RenderSceneTest, WaterBlendsWithTheGroundBelowItUnlessTurnedOff) {
    Change([](AppSettings& s) { s.waterTrans = 0.5f; });
    const QColor ground = Colour(9), water = Colour(10);
    const QColor half((ground.red() + water.red()) / 2, (ground.green() + water.green()) / 2,
                      (ground.blue() + water.blue()) / 2);
    const std::tuple<bool, bool, float, QColor> looks[] = {
        {true, true, -5, half}, {false, true, -5, water}, {true, false, -5, ground}, {true, true, 2, ground}};
    for (const auto& [blend, show, height, seen] : looks) {
        Change([&](AppSettings& s) { s.useWaterTrans = blend; });
        editor.SetViewSwitch(ViewSwitch::Water, show);
        Terrain(51, true, [&](int) { return height; });
        EXPECT_TRUE(Near(Pixel(90, 170), seen, 4)) << Pixel(90, 170).name().toStdString();
    }
}

TEST_F(RenderSceneTest, LightShadesTheSlopeFacingItBrighter) {
    Terrain(65, false,
            [](int column) { return static_cast<float>(column < 32 ? column : 64 - column) * 6.0f; });
    editor.MoveCursorTo(400.0f, 400.0f);
    EXPECT_TRUE(Near(Pixel(80, 120), Pixel(240, 120))) << "without light both slopes look alike";
    Change([](AppSettings& s) { s.noLights = false; });
    EXPECT_LT(Pixel(80, 120).green() + 20, Pixel(240, 120).green())
        << "the slope facing the light is brighter than the one facing away";
}

// The demo terrain drawn both ways, from the visible blocks' arrays and every cell one call at a
// time: the two pictures must match pixel for pixel.
class VisibleBlocksTest : public RenderSceneTest {
protected:
    void SetUp() override {
        RenderSceneTest::SetUp();
        InstallQtPictureDecoder();
        editor.OpenTrack(std::string(LW_BIN_DIR) + "/tracks/Demo.cvtrack");
        ASSERT_TRUE(editor.Terrain().terrainPresent);
        view.RequestTextureReload();
        Change([](AppSettings& s) { s.colorTable[8] = {0.0f, 0.0f, 0.0f}; }); // the cursor marker
    }

    QImage ExpectSamePicture(const std::string& what) {
        view.Options().cullBlocks = false;
        const QImage whole = Frame();
        view.Options().cullBlocks = true;
        EXPECT_EQ(whole, Frame()) << what;
        return whole;
    }
    QImage WithBrush(int size) {
        editor.SetSculptSize(size);
        editor.MoveCursorTo(editor.Camera().x, editor.Camera().z - 50.0f); // 50 units north of the camera
        return ExpectSamePicture("brush " + std::to_string(size));
    }
};

namespace {

const CameraState kOverview{0.0f, 330.0f, 480.0f, -38.0f, 0.0f, 0.0f};

} // namespace

TEST_F(VisibleBlocksTest, TheGroundIsTheSameFromEveryPoseInEveryLook) {
    const CameraState start = editor.Camera(), overview = kOverview;
    for (const CameraState& pose :
         {start, overview, CameraState{-300.0f, 40.0f, 100.0f, -10.0f, 135.0f, 0.0f},
          CameraState{100.0f, 60.0f, -200.0f, -89.0f, 10.0f, 0.0f}})
        for (const int look : {0, 1, 2, 3, 4, 5, 6, 7}) {
            editor.SetCamera(pose);
            Change([look](AppSettings& s) {
                s.noLights = (look & 1) != 0;
                s.viewTextures = s.useWaterTrans = (look & 2) != 0;
                s.clipTerrain = (look & 4) != 0; // the scene area's edges cut through blocks
            });
            const QImage frame = WithBrush(4);
            EXPECT_TRUE(editor.Settings().clipTerrain ||
                        FindNear(frame, Qt::black, 0) < frame.width() * frame.height() / 2)
                << "ground in view";
        }
    EXPECT_NE(view.ViewState().terrainTexture, 0u);
}

TEST_F(VisibleBlocksTest, ClippingTheBrushAndAnEditShowTheSameBothWays) {
    const CameraState start = editor.Camera();
    editor.SetCamera(kOverview);
    editor.SetViewSwitch(ViewSwitch::ClipTerrain, true);
    const QImage clipped = WithBrush(0);
    editor.SetViewSwitch(ViewSwitch::ClipTerrain, false);
    EXPECT_NE(WithBrush(0), clipped);
    editor.SetCamera(start);
    const QImage unmarked = WithBrush(0), brush = WithBrush(4);
    EXPECT_NE(unmarked, brush);
    editor.StrokeMove(-120); // raises the ground under the brush and refreshes those blocks
    EXPECT_NE(WithBrush(4), brush) << "the edit is in view";
}
