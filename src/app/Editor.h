#pragma once
// The editing session: the document (terrain and open track), what the view shows of it, the
// preferences, the undo history and the area clipboard, and the commands that the menus, keys,
// dialogs and command line call. Its state is read through the accessors and changed only by its
// commands. It talks to the user only through its Shell and tells the window what changed through
// its ViewNotifications.
//
// The commands are defined by group: Editor.cpp (start-up, preferences, view switches),
// EditorFiles.cpp (open, save, recent files, exit, ride, help), EditorTerrain.cpp (new, delete,
// remove the track data, terrain settings, ReplaceTerrain), EditorImportExport.cpp (terrain files
// and the import question), EditorTerragenObj.cpp (Terragen import, OBJ export), EditorExport3DS.cpp
// (the 3DS export), EditorEditing.cpp (undo, sculpt, area and whole-terrain operations, clipboard,
// filter) and EditorView.cpp (camera and cursor).

#include "AppSettings.h"
#include "AreaClipboard.h"
#include "AreaOperations.h"
#include "GridRect.h"
#include "RenderMesh.h"
#include "SampleGrid.h"
#include "Sculpt.h"
#include "Shell.h"
#include "TerrainFilter.h"
#include "TerrainModel.h"
#include "TrackDocument.h"
#include "UndoHistory.h"
#include "Version.h"
#include "ViewNotifications.h"
#include "mCV_TraceTrack.h"
#include "mCamera.h"
#include "mHeightMap.h"
#include "mHeightMap16.h"

#include <functional>
#include <optional>
#include <string>

struct TerrainSettingsValues;
enum class TerrainApplyResult;
enum class TerrainSettingsPurpose;

inline constexpr const char* kSettingsFileName = "CorvantaLandwright.ini";
inline constexpr const char* kSimulatorFileName = "CorvantaSimulator.exe";
inline constexpr const char* kHelpIndexPath = "help/landwright/index.htm";
// The largest brush radius the slider offers (a 65 x 65 point area).
inline constexpr int kMaxSculptRadius = 32;

inline constexpr const char* kTrackFilter = "Corvanta Track Files (*.cvtrack)|*.cvtrack";

// What a track file holds: the terrain with the scene flags beside it, and the open track's records.
struct Document {
    TerrainModel terrain;
    TrackDocument track;
};

// What the 3D view shows besides the document: the traced track (rebuilt when a track is opened,
// emptied when the track data is removed), the terrain as drawn, the flying camera and the cursor.
struct ViewState {
    TrackSpine spine;
    RenderMesh mesh;
    CameraState camera;
    CursorState cursor;
};

// The switches of the View menu.
enum class ViewSwitch {
    Terrain,
    Water,
    Skybox,
    Textures,
    Track,
    Guidelines,
    Supports,
    Trees,
    ClipTerrain,
    StayAbove
};

// A 16-bit height map read and waiting for its range (and, for a RAW file that is not square, its
// width): a PNG or square RAW file is decoded already, other RAW files wait as their bytes.
struct PendingHeightMap16 {
    std::string path;
    Grey16Image image;               // decoded, or empty while the width is unknown
    std::vector<std::uint8_t> bytes; // a RAW file waiting for its width
    bool NeedsWidth() const { return image.Empty(); }
};

// Writes a new terrain into the fresh TerrainData it is given. Returning false (nothing to take: a
// read failed, the user cancelled) leaves the editor as it was.
using TerrainFill = std::function<bool(TerrainData&)>;

// How a new terrain takes the place of the editor's.
struct TerrainReplacement {
    // Asked first when the editor holds a terrain; false keeps it and nothing changes. Empty: no
    // question (opening a track asks its own, the terrain settings have asked already).
    std::function<bool()> confirmOverwrite;
    // Fill in the textures and tilings the new terrain lacks (ApplyTerrainDefaults).
    bool applyDefaults = false;
    // Put the camera back to its start over the new terrain.
    bool resetCamera = true;
    // Whether the new terrain counts as an unsaved change (terrainChanged afterwards).
    bool changed = false;
};

class Editor {
public:
    // programFolder: the folder of the executable (settings, textures, help, simulator), with or
    // without a trailing "/".
    Editor(Shell& dialogs, ViewNotifications& view, std::string programFolder);

    // The session's state, read only.
    const TerrainModel& Terrain() const { return document_.terrain; }
    const TrackDocument& Track() const { return document_.track; }
    const AppSettings& Settings() const { return settings_; }
    const RenderMesh& Mesh() const { return view_.mesh; }
    const CameraState& Camera() const { return view_.camera; }
    const CursorState& Cursor() const { return view_.cursor; }
    const TrackSpine& Spine() const { return view_.spine; }
    const UndoHistory& History() const { return undo_; }
    const AreaClipboard& Clipboard() const { return clipboard_; }
    // Where messages, questions and dialogs go; tests put a scripted shell there.
    Shell& Dialogs() const { return *dialogs_; }
    void SetDialogs(Shell& dialogs) { dialogs_ = &dialogs; }

    const std::string& ProgramFolder() const { return programFolder_; }
    std::string SettingsPath() const { return programFolder_ + kSettingsFileName; }
    std::string SimulatorPath() const { return programFolder_ + kSimulatorFileName; }
    std::string HelpIndexPath() const { return programFolder_ + kHelpIndexPath; }

    // Start-up: trackFolder becomes the program folder's "tracks", the colours their defaults.
    void InitPaths();
    void LoadSettings();
    // Writes the settings file; a failure is reported to the user. Returns whether it was written.
    bool SaveSettings();
    // The options dialog's OK: the preferences take effect (sculpt settings kept in range, the
    // guideline colours derived from the track colours), then a redraw and a window refresh.
    void ApplySettings(const AppSettings& settings);
    bool ViewSwitchOn(ViewSwitch which) const;
    void SetViewSwitch(ViewSwitch which, bool on);

    // Files (EditorFiles.cpp).
    // Opens a track; an empty path asks for one with the open dialog. A file that cannot be read
    // is reported and changes nothing.
    void OpenTrack(const std::string& path);
    // Takes a track already read from path as the open track: the terrain question, the trace, the
    // recent files, the camera; the window's state changes only once all is done.
    void OpenTrackDocument(TrackDocument document, const std::string& path);
    // Saves the open track with the editor's terrain to path; nothing happens without a track.
    // Returns whether the file was written; a failure is reported and the terrain stays changed.
    bool SaveTrack(const std::string& path);
    void SaveTrackAs();
    bool CanSaveTrack() const { return Terrain().trackPresent; }
    void AddRecentFile(const std::string& path);
    void ClearRecentFiles();
    std::string Caption() const;
    // The question before the main window closes; true when closing may go on.
    bool ConfirmClose();
    // Saves the track and starts the simulator on it.
    void RideTrack();
    // Opens the manual; when it is missing or nothing can show it, says so and gives its path.
    void OpenHelpIndex();

    // Terrain (EditorTerrain.cpp).
    // "New": asks before a present terrain would go; true when the terrain settings may open for a
    // new one. Nothing changes here: the new grid replaces the terrain when those settings apply.
    bool NewTerrain();
    // The terrain settings dialog's confirm; the result says whether it may close. For a new
    // terrain the grid is always made anew, without the structure question.
    TerrainApplyResult ApplyTerrainSettings(const TerrainSettingsValues& values,
                                            TerrainSettingsPurpose purpose);
    // Terrain menu: removing the terrain, removing the track data. Each asks first.
    void DeleteTerrain();
    void RemoveTrackData();
    // Every way a terrain arrives (a track's terrain, a new grid, the importers, the generator):
    // the overwrite question if asked for, the fill, the defaults, the undo history reset, the
    // change mark, the mesh, the camera, the textures, a redraw and a window refresh. Returns
    // whether the terrain was replaced.
    bool ReplaceTerrain(const TerrainFill& fill, const TerrainReplacement& how);

    // Import and export (EditorImportExport.cpp for terrain files; the picture, Terragen and 3D
    // formats in files of their own). Every import asks ConfirmImportOverwrite first and arrives
    // through ReplaceTerrain; every export needs a terrain.
    // The question before an import replaces the terrain: never asked without one; otherwise as
    // AskImportOverwrite says (0 ask, 1 always import, 2 never). True when the import may go on.
    bool ConfirmImportOverwrite();
    bool CanExportTerrain() const { return Terrain().terrainPresent && !Terrain().heights.Empty(); }
    void ImportTerrainFile();
    void ExportTerrainFile();
    void ImportTerrainFromTrack();
    // Terragen import, first step: the question, the open dialog and the file read. Returns the
    // file's samples for the import dialog's preview, or nothing (cancelled, or the file refused
    // with a message) with the terrain as it was.
    std::optional<SampleGrid> ImportTerragen();
    // The import dialog's confirm: the samples become the terrain (TerrainFromTerragen), with water
    // at waterHeight or, without water, the heights measured from 0.
    bool TakeTerragenImport(const SampleGrid& samples, bool water, float waterHeight);
    // Writes the terrain as an OBJ object to a file chosen in the save dialog; a failed write is
    // reported and leaves an existing file as it was.
    void ExportObj();

    // 3DS export (EditorExport3DS.cpp): the save dialog first, then the export dialog's choices.
    // The path chosen, or nothing (no terrain, or the dialog cancelled).
    std::optional<std::string> Export3DS();
    // The track can go into the export: one is open and traced.
    bool CanExport3DSTrack() const { return Terrain().trackPresent && Spine().drawnPoints.size() >= 2; }
    // The colours the export dialog starts with: the untextured terrain's and the track's.
    ByteColour Export3DSTerrainColour() const;
    ByteColour Export3DSTrackColour() const;
    // Writes the terrain (and the track when asked and there is one) to path as a 3DS file,
    // reporting each object written through the Shell's progress, which may cancel it. A failure
    // is reported; a cancel or failure leaves an existing file as it was. True when written.
    bool Save3DS(const std::string& path, const ByteColour& terrainColour, const ByteColour& trackColour,
                 bool includeTrack);

    // Height maps and pictures (EditorHeightMaps.cpp).
    void ImportHeightMap();
    void ExportHeightMap();
    void ExportPicture();
    // The picture import's first step: the question, the open dialog and the reading. The
    // picture's greys for frmImportPicture, or nothing when the import ends here (a refusal, a
    // cancel, a file that is no picture: each already told).
    std::optional<SampleGrid> BeginImportPicture();
    // frmImportPicture's confirm: the greys become the terrain.
    bool ImportPicture(const SampleGrid& greys, const PictureImportOptions& options);
    // 16-bit height maps. The first step reads the file; what it returns goes to the range dialog,
    // whose confirm imports it (false keeps the dialog open: the width or range was refused and
    // the user told).
    std::optional<PendingHeightMap16> BeginImportHeightMap16();
    bool ImportHeightMap16(const PendingHeightMap16& pending, const Height16Range& range, int width);
    void ExportHeightMap16();

    // Camera and cursor (EditorView.cpp). Each redraws.
    // The ground under the camera, or nothing without terrain.
    std::optional<SceneGround> Ground() const;
    // Back to the start position over the terrain (or at height 10 without one).
    void ResetView();
    void SetCamera(const CameraState& camera);
    // One keyboard tick, elapsedSeconds after the previous one, with the ground rule when the
    // camera is to stay above the ground.
    void FlyByKeys(const HeldKeys& keys, double elapsedSeconds);
    // A mouse-button tick: forward or back along the view at the modifiers' speed, kept in the scene.
    void FlyByMouse(bool forward, const HeldKeys& modifiers, double elapsedSeconds);
    // Mouse-look by the pointer's offset in pixels; the pitch stops at straight up and down.
    void LookByMouse(int dx, int dy);
    // The cursor to a world position, kept in the scene; its height follows the terrain.
    void MoveCursorTo(float x, float z);
    // A cursor drag by the pointer's offset in pixels (right: the camera's right, up: away from
    // it); only with a terrain.
    void DragCursor(int dx, int dy);
    // The cursor 50 units ahead of the camera; only with a terrain.
    void MoveCursorIntoView();
    // The cursor takes the height of the grid point under it (0 without terrain).
    void UpdateCursorHeight();

    // Editing (EditorEditing.cpp). Each command acts only when it is enabled, and changes the
    // heights through RunEdit: one undo step, the change, the view's mesh refreshed where it
    // changed, the terrain marked changed, a redraw and a window refresh.
    bool CanEditTerrain() const { return Terrain().terrainPresent && !Terrain().heights.Empty(); }
    bool CanPaste() const { return CanEditTerrain() && clipboard_.HasTerrainClipboard(); }
    bool CanUndo() const { return CanEditTerrain() && undo_.CanUndo(); }
    bool CanRedo() const { return CanEditTerrain() && undo_.CanRedo(); }
    // Runs change on the terrain as one edit; change returns the points it changed. False (and
    // nothing stored) when there is no terrain to edit.
    bool RunEdit(const std::function<GridRect(TerrainData&)>& change);
    // Empties both undo stacks; the terrain counts as unchanged.
    void ResetUndoHistory();
    void Undo();
    void Redo();

    // A sculpt stroke: the press stores one undo step, each vertical mouse move of dy pixels
    // (positive downwards) raises or lowers the area under the cursor by -dy / 10 units.
    void BeginStroke();
    void StrokeMove(int dy);

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
    // The remembered answer of an ask dialog (1 or 2), asking when there is none (0); a ticked
    // "Don't Ask Me Again." stores the answer in setting.
    int RememberedOrAsked(AskKind kind, int& setting);
    // How every importer hands over its terrain, once the overwrite question was answered and the
    // file read: through ReplaceTerrain with the texture defaults, the camera back to its start,
    // and the new terrain counted as an unsaved change.
    bool TakeImportedTerrain(TerrainData imported);
    enum class TerrainOnOpen { TakeTracks, Keep, Remove };
    TerrainOnOpen DecideTerrainOnOpen(const TrackDocument& opened);
    void KeepSculptSettingsInRange();
    // Stores the heights as the newest undo step and marks the terrain changed.
    void PushUndo();
    // Brings the view's mesh in line with heights changed inside `changed`: those points, the face
    // normals and block bounds around them, or the whole mesh when the whole grid changed.
    void RefreshMesh(const GridRect& changed);
    void CopyTerrainToTrack();
    // The path at the top of the recent files (when they are remembered), without a window refresh.
    void RememberRecentFile(const std::string& path);
    void PlaceCameraAtStart();
    // The terrain was replaced, removed or restyled: rebuild the mesh, put the camera back if asked,
    // reload textures, redraw, refresh the window.
    void ShowTerrain(bool resetCamera);
    // Only the same grid restyled: textures, tilings and water.
    TerrainApplyResult RestyleTerrain(const TerrainSettingsValues& values);

    Shell* dialogs_;
    ViewNotifications& notify_;
    Document document_;
    ViewState view_;
    AppSettings settings_;
    // Snapshots of the heights before each edit, and the program's own copy of an area's heights.
    UndoHistory undo_;
    AreaClipboard clipboard_;
    std::string programFolder_;
};

// The start folder of the next track dialog after opening path: the first n characters of the
// path, where n is the length of its file name. This odd rule is deliberate and kept unchanged; it
// yields the folder only when the folder part and the name happen to be equally long.
std::string DerivedTrackFolder(const std::string& path);
