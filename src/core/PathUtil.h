#pragma once
// Path helpers. Paths may use "/" or "\" as separators (texture paths stored in files keep the
// backslashes the simulator expects), so every split happens at the last of either.

#include <optional>
#include <string>

std::string ToLowerAscii(std::string text);
bool EqualsIgnoreCase(const std::string& a, const std::string& b);

// Whether the last characters of path, lower-cased, are the extension (".cvtrack", ".cvtera").
bool HasExtension(const std::string& path, const std::string& extension);

// The part after the last "/" or "\".
std::string FileNameOf(const std::string& path);

// The title shown for a track: the file name with every ".cvtrack" removed, ignoring case.
std::string TrackTitle(const std::string& path);

// The folder a path's file lies in, ending in "/"; "" when the path has no folder part.
std::string FolderOf(const std::string& path);

// Text kept in files (a texture path in a track) is Latin-1; the system's file names are UTF-8.
// These convert between the two where such a text names a file.
std::string Latin1ToUtf8(const std::string& text);
// Nothing when name is not UTF-8 or holds a letter Latin-1 lacks.
std::optional<std::string> Utf8ToLatin1(const std::string& name);
