#pragma once
// The key/value text store behind the settings file and the custom texture presets. The whole file
// is one string; sections are written for the reader's eye but the lookup ignores them, and every
// save replaces the whole file. Line breaks are CR LF.

#include <string>

using IniText = std::string;

inline constexpr const char* kIniLineBreak = "\r\n";

// Reads the whole file into text and returns true. When there is no such file (or it cannot be
// read) returns false and leaves text untouched.
bool IniLoad(const std::string& path, IniText& text);

// The value of key, or "" when the key is missing. A key counts only where a line break is followed
// by the key and "=", compared ignoring letter case, so a key on the first line is never found;
// sections play no part and the first occurrence wins. The value runs to the next line break and has
// its spaces (only the space character) removed from both ends.
std::string IniGet(const IniText& text, const std::string& key);

// Whether the key occurs, by the same rule as IniGet.
bool IniHasKey(const IniText& text, const std::string& key);

// ";" + comment + line break, or "" for an empty comment.
std::string IniAddComment(const std::string& comment);

// Appends a line break, "[name]" and a line break: every section is preceded by an empty line.
void IniAddSection(IniText& text, const std::string& name);

// Appends "key=value" and a line break.
void IniAddKey(IniText& text, const std::string& key, const std::string& value);

// Replaces the file with the text atomically: a failed save leaves the previous file as it was and
// puts the reason into error.
bool IniSave(const std::string& path, const IniText& text, std::string& error);
