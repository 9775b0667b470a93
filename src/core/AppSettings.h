#pragma once
// The user's preferences, kept in "CorvantaLandwright.ini" in the program folder: read once at
// start-up, written when the main window closes and whenever the options dialog is confirmed. The
// file is rewritten whole from these values, so unknown keys in it are dropped at the next save.

#include "IniText.h"

#include <array>
#include <cstddef>
#include <string>

// An interface colour; each component from 0 to 1, in single precision as GL takes it.
struct RgbColour {
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    bool operator==(const RgbColour&) const = default;
};

inline constexpr int kColourCount = 16;

// The slots of the colour table, by what each colours. The track and the guidelines have one slot
// per segment type (0 track, 1 station, 2 lift, 3 transport, 4 brake), counted from their first.
enum ColourSlot : std::size_t {
    kColourTrack = 0, // track rails, up to 4
    kColourSupports = 5,
    kColourTrees = 6,
    kColourBrush = 7,      // the cells and points under the brush
    kColourCursor = 8,     // the cursor marker
    kColourTerrain = 9,    // untextured terrain
    kColourWater = 10,     // untextured water
    kColourGuideline = 11, // guidelines and cross-pieces, up to 15: the track colours at half strength
};

// Colours 0 to 10 are stored in the file; 11 to 15 are always derived from 0 to 4.
inline constexpr int kStoredColourCount = kColourGuideline;
inline constexpr int kShadedColourCount = kColourCount - kStoredColourCount;
inline constexpr int kRecentFileCount = 5;

using ColourTable = std::array<RgbColour, kColourCount>;

// Track colours 0-4 (one per segment type), supports, trees, brush cells, cursor, untextured terrain
// and water; then the guideline colours 11-15, which are the track colours at half strength.
ColourTable DefaultColourTable();

// The start-up value of every field is what the program uses when there is no settings file.
struct AppSettings {
    // What to do when terrain is already in the editor: 0 asks, 1 and 2 are a remembered answer.
    int askImportOverwrite = 0;
    int askLoadNoTerrain = 0;
    int askLoadTrackTerrain = 0;

    bool useWaterTrans = true;
    float waterTrans = 0.75f; // the water's alpha, 0 to 1
    bool noLights = false;

    // Whether the views, the sculpt settings and the recent files carry over to the next run.
    bool rmbrViews = true;
    bool rmbrTools = true;
    bool rmbrRecents = true;

    bool stayAbove = true;
    bool viewTerrain = true;
    bool viewWater = true;
    bool viewSkybox = true;
    bool viewTextures = true;
    bool viewTrack = true;
    bool viewGuidelines = false;
    bool viewSupports = true;
    bool viewTrees = true;
    bool clipTerrain = false;

    // Square tool (the one tool that changes heights) in Relational mode with radius 2 ("Medium", a
    // 5 by 5 brush). sculptSize is the brush radius in grid points, which for the six preset sizes
    // equals the size's index.
    int sculptTool = 0;
    int sculptMode = 0;
    int sculptSize = 2;

    ColourTable colorTable = DefaultColourTable();

    // Index 0 is the newest; "" marks a free slot. Titles are the file names without ".cvtrack".
    std::array<std::string, kRecentFileCount> recentPaths;
    std::array<std::string, kRecentFileCount> recentTitles;

    bool operator==(const AppSettings&) const = default;
};

// Colours 11 to 15 become colours 0 to 4 with every component halved.
void DeriveShadedColours(AppSettings& settings);

// Applies a settings text to settings. Keys that are missing read as 0 or "", except those read
// only when present (UseWaterTrans with WaterTrans, NoLights, ClipTerrain). The views, the sculpt
// settings and the recent files are taken only when the text itself says to remember them.
void ParseSettings(const IniText& text, AppSettings& settings);

// Reads the settings file into settings. Returns false, changing nothing, when there is no file;
// that is not an error, the start-up values simply stay.
bool LoadSettings(const std::string& path, AppSettings& settings);

// The whole settings file: a comment naming the program and version, then the sections General,
// Views, Tools, Colors and Recents.
IniText BuildSettingsText(const AppSettings& settings);

// Replaces the settings file atomically; on failure the previous file stays and error says why.
bool SaveSettings(const std::string& path, const AppSettings& settings, std::string& error);
