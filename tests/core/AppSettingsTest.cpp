#include "AppSettings.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <locale>
#include <stdexcept>
#include <tuple>

namespace {

// Every field away from its start-up value; colours need no more than five decimals.
AppSettings Changed() {
    AppSettings s;
    s.askImportOverwrite = s.askLoadTrackTerrain = 2;
    s.askLoadNoTerrain = s.sculptMode = 1;
    s.waterTrans = 0.40625f;
    s.useWaterTrans = s.stayAbove = s.viewTerrain = s.viewWater = s.viewSkybox = s.viewTextures = false;
    s.viewTrack = s.viewSupports = s.viewTrees = false;
    s.noLights = s.viewGuidelines = s.clipTerrain = true;
    s.sculptTool = 2;
    s.sculptSize = 17;
    for (std::size_t i = 0; i < kStoredColourCount; ++i)
        s.colorTable[i] = {static_cast<float>(i) / 16.0f, 0.12345f, 1 - static_cast<float>(i) / 32.0f};
    DeriveShadedColours(s);
    s.recentPaths = {"C:\\Tracks\\My Ride.cvtrack", "/home/me/LOOP.CVTRACK", "", "a.cvtrack", "b"};
    s.recentTitles = {"My Ride", "LOOP", "", "a", "b"};
    return s;
}

AppSettings Parsed(const IniText& text, AppSettings start = {}) {
    ParseSettings(text, start);
    return start;
}

} // namespace

TEST(SettingsFile, TheDefaultGuidelineColoursAreHalfTheTrackColours) {
    AppSettings derived;
    DeriveShadedColours(derived);
    EXPECT_EQ(derived, AppSettings{});
}

TEST(SettingsFile, SaveThenLoadKeepsEveryFieldBothWays) {
    ScratchFolder folder;
    const std::string path = folder.File("CorvantaLandwright.ini");
    std::string error;
    for (const bool changed : {true, false}) {
        const AppSettings original = changed ? Changed() : AppSettings{};
        ASSERT_TRUE(SaveSettings(path, original, error)) << error;
        AppSettings loaded = changed ? AppSettings{} : Changed();
        ASSERT_TRUE(LoadSettings(path, loaded));
        EXPECT_EQ(loaded, original);
    }
}

TEST(SettingsFile, AMissingFileKeepsTheValuesAlreadyThere) {
    ScratchFolder folder;
    AppSettings loaded = Changed();
    EXPECT_FALSE(LoadSettings(folder.File("CorvantaLandwright.ini"), loaded));
    EXPECT_EQ(loaded, Changed());
}

TEST(SettingsFile, AFailedSaveLeavesThePreviousFileAndNoTemporary) {
    ScratchFolder folder;
    const std::string path = folder.File("CorvantaLandwright.ini");
    std::string error;
    ASSERT_TRUE(SaveSettings(path, AppSettings{}, error)) << error;
    const std::string before = ReadText(path);
    {
        FileSizeLimit limit(16);
        EXPECT_FALSE(SaveSettings(path, Changed(), error));
    }
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(ReadText(path), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(SettingsFile, SectionsAndKeysAreWrittenInTheirFixedOrder) {
    const IniText text = BuildSettingsText(AppSettings{});
    EXPECT_EQ(text.rfind(";CorvantaLandwright v0.1.0\r\n\r\n[General]\r\nAskImportOverwrite=0\r\n", 0), 0u);
    std::size_t at = 0;
    for (const char* next :
         {"\r\nUseWaterTrans=True\r\nWaterTrans=0.75\r\nNoLights=False\r\nRmbrViews=True", "RmbrRecents=",
          "\r\n\r\n[Views]\r\nStayAbove=", "ViewTrees=", "ClipTerrain=False", "[Tools]", "SculptSize=2",
          "[Colors]\r\nCR0=0\r\nCG0=0\r\nCB0=1\r\nCR1=", "CB10=0.5", "[Recents]\r\nRF0=\r\n", "RF4=\r\n"}) {
        at = text.find(next, at);
        ASSERT_NE(at, std::string::npos) << next << " missing or out of order";
    }
}

TEST(SettingsParsing, TheRememberSwitchesOffKeepViewsToolsAndRecentsAsTheyWere) {
    AppSettings start;
    start.recentPaths[0] = "kept.cvtrack";
    const AppSettings s =
        Parsed(";c\r\nRmbrViews=False\r\nRmbrTools=false\r\nRmbrRecents=0\r\nViewWater=False\r\n"
               "ClipTerrain=True\r\nSculptSize=5\r\nRF0=x.cvtrack\r\n",
               start);
    EXPECT_FALSE(s.rmbrViews || s.rmbrTools || s.rmbrRecents || s.clipTerrain);
    EXPECT_TRUE(s.viewWater);
    EXPECT_EQ(std::tuple(s.sculptSize, s.recentPaths[0]), std::tuple(2, "kept.cvtrack"));
}

TEST(SettingsParsing, SomeKeysCountOnlyWhenPresentAndTheRestReadAMissingKeyAsZero) {
    // UseWaterTrans (with WaterTrans), NoLights and ClipTerrain count only when present.
    const AppSettings s =
        Parsed(";c\r\nWaterTrans=0.25\r\nRmbrViews=1\r\nRmbrTools=-1\r\nRmbrRecents=TRUE\r\n", Changed());
    EXPECT_TRUE(s.noLights && s.clipTerrain && !s.viewGuidelines);
    EXPECT_EQ(std::tuple(s.waterTrans, s.askLoadNoTerrain, s.sculptTool, s.colorTable[3], s.colorTable[14]),
              std::tuple(0.40625f, 0, 0, RgbColour{}, RgbColour{}));
    EXPECT_EQ(s.recentPaths[1] + s.recentTitles[1], "");
    EXPECT_EQ(Parsed(";c\r\nUseWaterTrans=False\r\n").waterTrans, 0.0f);
}

TEST(SettingsParsing, ColoursFromElevenOnAreDerivedFromTheStoredOnes) {
    const AppSettings s = Parsed(";c\r\nCR0=0.5\r\nCG0=1\r\nCB0=0.25\r\nCR11=0.9\r\nCR4=0.2\r\n");
    EXPECT_EQ(s.colorTable[11], (RgbColour{0.25f, 0.5f, 0.125f}));
    EXPECT_EQ(s.colorTable[15], (RgbColour{0.1f, 0.0f, 0.0f}));
}

TEST(SettingsParsing, ARecentFileOnTheLastLineLosesItsLastCharacter) {
    const AppSettings s = Parsed(";c\r\nRmbrRecents=True\r\nRF4=C:\\t\\Loop.cvtrack");
    EXPECT_EQ(s.recentPaths[4] + "|" + s.recentTitles[4], "C:\\t\\Loop.cvtrac|Loop.cvtrac");
}

TEST(SettingsParsing, CommaLocaleStillWritesAndReadsAPoint) {
    const std::string previousC = std::setlocale(LC_ALL, nullptr);
    std::locale previous;
    try {
        previous = std::locale::global(std::locale("de_DE.UTF-8"));
    } catch (const std::runtime_error&) {
        GTEST_SKIP() << "the de_DE.UTF-8 locale is not installed";
    }
    const char comma = *std::localeconv()->decimal_point;
    AppSettings settings;
    settings.waterTrans = 0.25f;
    const IniText text = BuildSettingsText(settings);
    const AppSettings parsed = Parsed(text, Changed());
    std::locale::global(previous);
    std::setlocale(LC_ALL, previousC.c_str());
    ASSERT_EQ(comma, ',');
    EXPECT_NE(text.find("\r\nWaterTrans=0.25\r\n"), std::string::npos);
    EXPECT_EQ(parsed.waterTrans, 0.25f);
}
