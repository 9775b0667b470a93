#pragma once
// Whole-file reading and atomic whole-file writing.

#include <cstdint>
#include <string>
#include <vector>

bool FileExists(const std::string& path);

// Reads the whole file. Fails with a reason when it cannot be opened or is larger than maxBytes.
bool ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes, std::string& error,
                   std::uintmax_t maxBytes = std::uintmax_t{1} << 30);

// Writes the bytes to a temporary file in the target's folder and renames it over the target, so
// the previous file survives any failure. Fails with a reason.
bool WriteFileAtomically(const std::string& path, const std::vector<std::uint8_t>& bytes, std::string& error);
bool WriteFileAtomically(const std::string& path, const std::string& text, std::string& error);
