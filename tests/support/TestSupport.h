#pragma once
// Helpers shared by the tests: scratch folders and whole-file access.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

// A fresh, empty folder under the system's temporary folder, removed when the object goes.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

std::vector<std::uint8_t> ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes);
inline std::string ReadText(const std::string& path) {
    const std::vector<std::uint8_t> bytes = ReadBytes(path);
    return {bytes.begin(), bytes.end()};
}
inline void WriteText(const std::string& path, const std::string& text) {
    WriteBytes(path, {text.begin(), text.end()});
}

// Limits the size of files this process may write while the object lives (writes beyond it fail
// instead of raising a signal), to make a save fail part-way.
class FileSizeLimit {
public:
    explicit FileSizeLimit(std::uint64_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    std::uint64_t previousSoft_ = 0;
    void (*previousHandler_)(int) = nullptr;
};
