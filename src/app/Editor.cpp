// The session itself: start-up, the preferences and the View menu's switches.
#include "Editor.h"

#include "PathUtil.h"

#include <algorithm>

namespace {

std::string WithTrailingSlash(std::string folder) {
    if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') folder += '/';
    return folder;
}

bool AppSettings::*SwitchField(ViewSwitch which) {
    switch (which) {
    case ViewSwitch::Terrain:
        return &AppSettings::viewTerrain;
    case ViewSwitch::Water:
        return &AppSettings::viewWater;
    case ViewSwitch::Skybox:
        return &AppSettings::viewSkybox;
    case ViewSwitch::Textures:
        return &AppSettings::viewTextures;
    case ViewSwitch::Track:
        return &AppSettings::viewTrack;
    case ViewSwitch::Guidelines:
        return &AppSettings::viewGuidelines;
    case ViewSwitch::Supports:
        return &AppSettings::viewSupports;
    case ViewSwitch::Trees:
        return &AppSettings::viewTrees;
    case ViewSwitch::ClipTerrain:
        return &AppSettings::clipTerrain;
    case ViewSwitch::StayAbove:
        break;
    }
    return &AppSettings::stayAbove;
}

} // namespace

std::string DerivedTrackFolder(const std::string& path) {
    return path.substr(0, FileNameOf(path).size());
}

Editor::Editor(Shell& dialogs, ViewNotifications& view, std::string programFolder)
    : dialogs_(&dialogs), notify_(view), programFolder_(WithTrailingSlash(std::move(programFolder))) {}

void Editor::InitPaths() {
    document_.terrain.trackFolder = programFolder_ + "tracks";
    settings_.colorTable = DefaultColourTable();
}

void Editor::LoadSettings() {
    ::LoadSettings(SettingsPath(), settings_);
    // A hand-edited file may hold sculpt settings out of range.
    KeepSculptSettingsInRange();
}

bool Editor::SaveSettings() {
    std::string error;
    if (::SaveSettings(SettingsPath(), settings_, error)) return true;
    Dialogs().ShowMessage("Error - Could not save the settings file.\n" + error, "Error",
                          MessageIcon::Critical);
    return false;
}

void Editor::ApplySettings(const AppSettings& settings) {
    settings_ = settings;
    DeriveShadedColours(settings_);
    KeepSculptSettingsInRange();
    notify_.RenderScene();
    notify_.UpdateUI();
}

void Editor::KeepSculptSettingsInRange() {
    // Only the square tool changes heights, so settings naming the pyramid or curve tool start with
    // the square tool.
    SetSculptTool(SculptTool::Square);
    SetSculptMode(CurrentSculptMode());
    SetSculptSize(settings_.sculptSize);
}

bool Editor::ViewSwitchOn(ViewSwitch which) const {
    return settings_.*SwitchField(which);
}

void Editor::SetViewSwitch(ViewSwitch which, bool on) {
    settings_.*SwitchField(which) = on;
    notify_.RenderScene();
}

int Editor::RememberedOrAsked(AskKind kind, int& setting) {
    if (setting != 0) return setting;
    const AskResult result = Dialogs().AskDialog(kind);
    if (result.dontAskAgain) setting = result.button + 1;
    return result.button + 1;
}
