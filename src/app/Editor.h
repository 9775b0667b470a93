#pragma once
// The editing session: the terrain, the open track, the preferences and the commands that the
// menus, keys and command line call. Talks to the user only through its Shell.

#include "AppSettings.h"
#include "AreaClipboard.h"
#include "AreaOperations.h"
#include "GridRect.h"
#include "RenderMesh.h"
#include "Sculpt.h"
#include "Shell.h"
#include "TerrainFilter.h"
#include "TerrainModel.h"
#include "TrackDocument.h"
#include "UndoHistory.h"
#include "Version.h"
#include "mCV_TraceTrack.h"
#include "mCamera.h"

#include <functional>
#include <optional>
#include <string>

struct TerrainSettingsValues;
enum class TerrainApplyResult;

inline constexpr const char* kSettingsFileName = "CorvantaLandwright.ini";
inline constexpr const char* kSimulatorFileName = "CorvantaSimulator.exe";
inline constexpr const char* kHelpIndexPath = "help/landwright/index.htm";
// The largest brush radius the slider offers (a 65 x 65 point area).
inline constexpr int kMaxSculptRadius = 32;

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
    // What the 3D view shows: the terrain as drawn, the flying camera and the terrain cursor.
    RenderMesh mesh;
    CameraState camera;
    CursorState cursor;
    // The traced track: rebuilt when a track is opened, emptied when the track data is removed.
    TrackSpine spine;
    // Snapshots of the heights before each edit, and the program's own copy of an area's heights.
    UndoHistory undo;
    AreaClipboard areaClipboard;

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
    // Asks before removing a present terrain; true when the terrain settings may open for a new one.
    bool NewTerrain();
    // The terrain settings dialog's confirm (TerrainSettings.cpp); the result says whether it may close.
    TerrainApplyResult ApplyTerrainSettings(const TerrainSettingsValues& values);

    bool CanSaveTrack() const { return terrain.trackPresent; }

    // The ground under the camera, or null without terrain.
    std::optional<SceneGround> Ground() const;
    // Back to the start position over the terrain (or at height 10 without one).
    void ResetView();
    // The cursor takes the height of the grid point under it (0 without terrain).
    void UpdateCursorHeight();

    // Editing (EditCommands.cpp). Each command acts only when it is enabled, and changes the heights
    // through RunEdit: one undo step, the change, the view's mesh refreshed where it changed, the
    // terrain marked changed, a redraw and a window refresh.
    bool CanEditTerrain() const { return terrain.terrainPresent && !terrain.heights.Empty(); }
    bool CanPaste() const { return CanEditTerrain() && areaClipboard.HasTerrainClipboard(); }
    bool CanUndo() const { return CanEditTerrain() && undo.CanUndo(); }
    bool CanRedo() const { return CanEditTerrain() && undo.CanRedo(); }
    // Runs change as one edit; false (and nothing pushed) when there is no terrain to edit.
    bool RunEdit(const std::function<GridRect()>& change);
    // Stores the heights as the newest undo step and marks the terrain changed.
    void PushUndo();
    // Empties both undo stacks; the terrain counts as unchanged.
    void ResetUndoHistory();
    void Undo();
    void Redo();

    // A sculpt stroke: the press stores one undo step, each vertical mouse move of dy pixels
    // (positive downwards) raises or lowers the area under the cursor by -dy / 10 units.
    void BeginStroke();
    void StrokeMove(int dy);
    // Brings the view's mesh in line with heights changed inside `changed`: those points, the face
    // normals and block bounds around them, or the whole mesh when the whole grid changed.
    void RefreshMesh(const GridRect& changed);

    void FlipArea();
    void MirrorArea();
    void InvertArea();
    void FlattenToGround();
    void FlattenToWater();
    void FlattenArea();
    void CopyArea();
    void PasteArea();
    // Asks first; only Yes flattens the whole terrain.
    void ResetTerrain();
    void AdjustHeights(float amount, AdjustMode mode);
    void FilterTerrain(const FilterMatrix& matrix, bool onlyInArea);

    // The sculpt settings (the settings keep them as numbers). A size above Gigantic is the custom
    // radius; it is kept within 0 .. kMaxSculptRadius.
    void SetSculptTool(SculptTool tool);
    void SetSculptMode(SculptMode mode);
    void SetSculptSize(int radius);
    SculptTool CurrentSculptTool() const;
    SculptMode CurrentSculptMode() const;

private:
    void DecideTerrainOnOpen(bool hadTerrain);
    // The terrain was replaced or restyled: rebuild the mesh, reload textures, redraw, refresh the window;
    // the camera goes back to its start unless the grid stayed the same.
    void AfterTerrainReplaced(bool resetCamera = true);

    std::string programFolder_;
};

// The start folder of the next track dialog after opening path: the first n characters of the
// path, where n is the length of its file name. This odd rule is deliberate and kept unchanged; it
// yields the folder only when the folder part and the name happen to be equally long.
std::string DerivedTrackFolder(const std::string& path);
