#pragma once
// Whole-file reading and safe whole-file writing: the one place the program's files are read into
// memory and replaced on disk. Paths are the bytes the system uses for file names.

#include <cstdint>
#include <string>
#include <vector>

// No file the program reads is larger: a 513 x 513 track is about 1.1 MB, so anything bigger is
// refused before a byte is read.
inline constexpr std::uintmax_t kMaxFileBytes = std::uintmax_t{64} << 20;

bool FileExists(const std::string& path);

// Fails with a reason naming the path when the file cannot be examined or is larger than maxBytes.
bool CheckFileSize(const std::string& path, std::string& error, std::uintmax_t maxBytes = kMaxFileBytes);

// Reads the whole file. Fails with a reason when it cannot be opened or is larger than maxBytes.
bool ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes, std::string& error,
                   std::uintmax_t maxBytes = kMaxFileBytes);

// Replaces the file at path with the bytes so that a failure at any point leaves the previous file
// as it was: the bytes go to a temporary file in the same folder, which is flushed to the disk and
// renamed over the target, and the folder is flushed too. A path that is a symbolic link (or a
// chain of them) has the file it finally names replaced and stays a link; a dangling link gets
// its file created. The file keeps its permission bits. A file without write permission, or a
// folder without it, is refused (also when running as root). The reason names path, never the
// temporary file.
bool WriteFileAtomically(const std::string& path, const std::vector<std::uint8_t>& bytes, std::string& error);
bool WriteFileAtomically(const std::string& path, const std::string& text, std::string& error);
