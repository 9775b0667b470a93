#pragma once
// What the editor tells the window after a command: the view needs new textures or a new frame,
// or the window's state (caption, menu enabling, recent files) must be brought up to date. The
// main window implements it; tests count the calls.

class ViewNotifications {
public:
    virtual ~ViewNotifications() = default;

    // The terrain's texture paths may have changed: the view uploads them again.
    virtual void ReloadTextures() = 0;
    // Asks the view for a new frame.
    virtual void RenderScene() = 0;
    // Caption, menu enabling and the recent-files menu.
    virtual void UpdateUI() = 0;
};
