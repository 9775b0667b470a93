#include "AppSettings.h"

#include "NumberText.h"
#include "PathUtil.h"
#include "Version.h"

namespace {

struct WholeKey {
    const char* key;
    int AppSettings::*field;
};

struct BooleanKey {
    const char* key;
    bool AppSettings::*field;
};

// Each list holds its keys in the order they stand in the file.
constexpr WholeKey kAskKeys[] = {{"AskImportOverwrite", &AppSettings::askImportOverwrite},
                                 {"AskLoadNoTerrain", &AppSettings::askLoadNoTerrain},
                                 {"AskLoadTrackTerrain", &AppSettings::askLoadTrackTerrain}};

constexpr BooleanKey kRememberKeys[] = {{"RmbrViews", &AppSettings::rmbrViews},
                                        {"RmbrTools", &AppSettings::rmbrTools},
                                        {"RmbrRecents", &AppSettings::rmbrRecents}};

// ClipTerrain follows these in the file but is read only when present.
constexpr BooleanKey kViewKeys[] = {{"StayAbove", &AppSettings::stayAbove},
                                    {"ViewTerrain", &AppSettings::viewTerrain},
                                    {"ViewWater", &AppSettings::viewWater},
                                    {"ViewSkybox", &AppSettings::viewSkybox},
                                    {"ViewTextures", &AppSettings::viewTextures},
                                    {"ViewTrack", &AppSettings::viewTrack},
                                    {"ViewGuidelines", &AppSettings::viewGuidelines},
                                    {"ViewSupports", &AppSettings::viewSupports},
                                    {"ViewTrees", &AppSettings::viewTrees}};

constexpr WholeKey kToolKeys[] = {{"SculptTool", &AppSettings::sculptTool},
                                  {"SculptMode", &AppSettings::sculptMode},
                                  {"SculptSize", &AppSettings::sculptSize}};

struct ColourKeys {
    std::string red, green, blue;
};

ColourKeys ColourKeysOf(int index) {
    const std::string number = FormatWholeNumber(index);
    return {"CR" + number, "CG" + number, "CB" + number};
}

std::string RecentKeyOf(int index) {
    return "RF" + FormatWholeNumber(index);
}

bool GetBoolean(const IniText& text, const char* key) {
    return ParseBoolean(IniGet(text, key));
}

void ReadGeneral(const IniText& text, AppSettings& settings) {
    for (const WholeKey& entry : kAskKeys)
        settings.*entry.field = ParseWholeNumber(IniGet(text, entry.key));
    if (IniHasKey(text, "UseWaterTrans")) {
        settings.useWaterTrans = GetBoolean(text, "UseWaterTrans");
        settings.waterTrans = ParseSingle(IniGet(text, "WaterTrans"));
    }
    if (IniHasKey(text, "NoLights")) settings.noLights = GetBoolean(text, "NoLights");
    for (const BooleanKey& entry : kRememberKeys)
        settings.*entry.field = GetBoolean(text, entry.key);
}

void ReadViews(const IniText& text, AppSettings& settings) {
    for (const BooleanKey& entry : kViewKeys)
        settings.*entry.field = GetBoolean(text, entry.key);
    if (IniHasKey(text, "ClipTerrain")) settings.clipTerrain = GetBoolean(text, "ClipTerrain");
}

void ReadTools(const IniText& text, AppSettings& settings) {
    for (const WholeKey& entry : kToolKeys)
        settings.*entry.field = ParseWholeNumber(IniGet(text, entry.key));
}

void ReadColours(const IniText& text, AppSettings& settings) {
    for (int i = 0; i < kStoredColourCount; ++i) {
        const ColourKeys keys = ColourKeysOf(i);
        RgbColour& colour = settings.colorTable[static_cast<std::size_t>(i)];
        colour.r = ParseSingle(IniGet(text, keys.red));
        colour.g = ParseSingle(IniGet(text, keys.green));
        colour.b = ParseSingle(IniGet(text, keys.blue));
    }
    DeriveShadedColours(settings);
}

void ReadRecents(const IniText& text, AppSettings& settings) {
    for (int i = 0; i < kRecentFileCount; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        settings.recentPaths[slot] = IniGet(text, RecentKeyOf(i));
        // A free slot gets an empty title too, so the two lists never disagree.
        settings.recentTitles[slot] = TrackTitle(settings.recentPaths[slot]);
    }
}

void WriteGeneral(IniText& text, const AppSettings& settings) {
    IniAddSection(text, "General");
    for (const WholeKey& entry : kAskKeys)
        IniAddKey(text, entry.key, FormatWholeNumber(settings.*entry.field));
    IniAddKey(text, "UseWaterTrans", FormatBoolean(settings.useWaterTrans));
    IniAddKey(text, "WaterTrans", FormatNumber(settings.waterTrans));
    IniAddKey(text, "NoLights", FormatBoolean(settings.noLights));
    for (const BooleanKey& entry : kRememberKeys)
        IniAddKey(text, entry.key, FormatBoolean(settings.*entry.field));
}

void WriteViewsAndTools(IniText& text, const AppSettings& settings) {
    IniAddSection(text, "Views");
    for (const BooleanKey& entry : kViewKeys)
        IniAddKey(text, entry.key, FormatBoolean(settings.*entry.field));
    IniAddKey(text, "ClipTerrain", FormatBoolean(settings.clipTerrain));
    IniAddSection(text, "Tools");
    for (const WholeKey& entry : kToolKeys)
        IniAddKey(text, entry.key, FormatWholeNumber(settings.*entry.field));
}

void WriteColoursAndRecents(IniText& text, const AppSettings& settings) {
    IniAddSection(text, "Colors");
    for (int i = 0; i < kStoredColourCount; ++i) {
        const ColourKeys keys = ColourKeysOf(i);
        const RgbColour& colour = settings.colorTable[static_cast<std::size_t>(i)];
        IniAddKey(text, keys.red, FormatNumber(colour.r));
        IniAddKey(text, keys.green, FormatNumber(colour.g));
        IniAddKey(text, keys.blue, FormatNumber(colour.b));
    }
    IniAddSection(text, "Recents");
    for (int i = 0; i < kRecentFileCount; ++i) {
        IniAddKey(text, RecentKeyOf(i), settings.recentPaths[static_cast<std::size_t>(i)]);
    }
}

} // namespace

ColourTable DefaultColourTable() {
    return {{{0.0f, 0.0f, 1.0f},
             {1.0f, 0.5f, 0.0f},
             {0.0f, 1.0f, 0.0f},
             {1.0f, 1.0f, 0.0f},
             {1.0f, 0.0f, 0.0f},
             {0.75f, 0.75f, 0.75f},
             {0.0f, 0.5f, 0.0f},
             {1.0f, 0.0f, 1.0f},
             {0.5f, 0.5f, 0.5f},
             {0.3f, 0.5f, 0.3f},
             {0.2f, 0.4f, 0.5f},
             {0.0f, 0.0f, 0.5f},
             {0.5f, 0.25f, 0.0f},
             {0.0f, 0.5f, 0.0f},
             {0.5f, 0.5f, 0.0f},
             {0.5f, 0.0f, 0.0f}}};
}

void DeriveShadedColours(AppSettings& settings) {
    for (std::size_t i = 0; i < kShadedColourCount; ++i) {
        const RgbColour& full = settings.colorTable[kColourTrack + i];
        settings.colorTable[kColourGuideline + i] = {full.r * 0.5f, full.g * 0.5f, full.b * 0.5f};
    }
}

void ParseSettings(const IniText& text, AppSettings& settings) {
    ReadGeneral(text, settings);
    if (settings.rmbrViews) ReadViews(text, settings);
    if (settings.rmbrTools) ReadTools(text, settings);
    ReadColours(text, settings);
    if (settings.rmbrRecents) ReadRecents(text, settings);
}

bool LoadSettings(const std::string& path, AppSettings& settings) {
    IniText text;
    if (!IniLoad(path, text)) return false;
    ParseSettings(text, settings);
    return true;
}

IniText BuildSettingsText(const AppSettings& settings) {
    IniText text = IniAddComment(std::string(kProgramName) + " v" + kProgramVersion);
    WriteGeneral(text, settings);
    WriteViewsAndTools(text, settings);
    WriteColoursAndRecents(text, settings);
    return text;
}

bool SaveSettings(const std::string& path, const AppSettings& settings, std::string& error) {
    return IniSave(path, BuildSettingsText(settings), error);
}
