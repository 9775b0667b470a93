#pragma once
// The editing session: the terrain, the open track, the preferences and the commands that the
// menus, keys and command line call. Talks to the user only through its Shell.

#include "AppSettings.h"
#include "Shell.h"
#include "TerrainModel.h"
#include "TrackDocument.h"
#include "Version.h"

#include <string>

inline constexpr const char* kSettingsFileName = "CorvantaLandwright.ini";
inline constexpr const char* kSimulatorFileName = "CorvantaSimulator.exe";
inline constexpr const char* kHelpIndexPath = "help/landwright/index.htm";
inline constexpr const char* kTrackFilter = "Corvanta Track Files (*.cvtrack)|*.cvtrack";

class Editor {
public:
    // programFolder: the folder of the executable (settings, textures, help, simulator), with or
    // without a trailing "/".
    Editor(Shell& shell, std::string programFolder);

    Shell& shell;
    TerrainModel terrain;
    TrackDocument track;
    AppSettings settings;

    const std::string& ProgramFolder() const { return programFolder_; }
    std::string SettingsPath() const { return programFolder_ + kSettingsFileName; }
    std::string SimulatorPath() const { return programFolder_ + kSimulatorFileName; }
    std::string HelpIndexPath() const { return programFolder_ + kHelpIndexPath; }

    // Start-up: trackFolder becomes the program folder's "tracks", the colours their defaults.
    void InitPaths();
    void LoadSettings();
    // Writes the settings file; a failure is reported to the user. Returns whether it was written.
    bool SaveSettings();

    // Opens a track; an empty path asks for one with the open dialog.
    void OpenTrack(const std::string& path);
    // Saves the open track with the editor's terrain to path; nothing happens without a track.
    // Returns whether the file was written; a failure is reported and the terrain stays changed.
    bool SaveTrack(const std::string& path);
    void SaveTrackAs();

    void AddRecentFile(const std::string& path);
    void ClearRecentFiles();

    void CopyTerrainFromTrack();
    void CopyTerrainToTrack(bool force);

    std::string Caption() const;
    // The question before the main window closes; true when closing may go on.
    bool ConfirmClose();

    // Saves the track and starts the simulator on it.
    void RideTrack();
    void OpenHelpIndex();

    // Terrain menu: removing the terrain, removing the track data. Each asks first.
    void DeleteTerrain();
    void RemoveTrackData();

    bool CanSaveTrack() const { return terrain.trackPresent; }

private:
    void DecideTerrainOnOpen(bool hadTerrain);
    void AfterTerrainReplaced();

    std::string programFolder_;
};

// The start folder of the next track dialog after opening path: the first n characters of the
// path, where n is the length of its file name. This odd rule is deliberate and kept unchanged; it
// yields the folder only when the folder part and the name happen to be equally long.
std::string DerivedTrackFolder(const std::string& path);
