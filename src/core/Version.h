#pragma once
// The program's name and version, as the settings file's first line and the About box show them.
// Keep the version in step with project(... VERSION ...) in the top-level CMakeLists.txt.

inline constexpr const char* kProgramName = "CorvantaLandwright";
inline constexpr const char* kProgramVersion = "0.1.0";
