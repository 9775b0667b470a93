#pragma once
// Texture paths as track files and settings store them: relative to the program's folder, with
// backslashes ("teratextures\GrassTerrain.jpg") because the simulator reads the same files.

#include "cDIBSection.h"

#include <optional>
#include <string>

// True when path is not empty and relative: no leading "/" or "\" and no drive letter ("C:").
bool IsRelativeTexturePath(const std::string& path);

// The file to open for a stored texture path: the path with "\" turned into "/" under
// programFolder (a path of the system's bytes), its Latin-1 letters turned into the UTF-8 of file
// names. Where a folder or file of that exact name is missing, a name differing only in
// case is taken (textures copied from case-blind file systems keep working). When nothing
// matches, the path as written is returned, so the caller's error names it. nullopt when the
// stored path is not relative.
std::optional<std::string> ResolveTexturePath(const std::string& programFolder,
                                              const std::string& storedPath);

// Loads the picture a stored texture path names (resolved as above) into image. False, leaving
// image as it was, when the path is not relative or the file cannot be read as a picture.
bool LoadTexturePicture(const std::string& programFolder, const std::string& storedPath, cDIBSection& image);
