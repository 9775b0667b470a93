#include "PathUtil.h"

#include <algorithm>
#include <cctype>

std::string ToLowerAscii(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

bool EqualsIgnoreCase(const std::string& a, const std::string& b) {
    return a.size() == b.size() && ToLowerAscii(a) == ToLowerAscii(b);
}

bool HasExtension(const std::string& path, const std::string& extension) {
    return path.size() >= extension.size() &&
           ToLowerAscii(path.substr(path.size() - extension.size())) == ToLowerAscii(extension);
}

std::string FileNameOf(const std::string& path) {
    const std::size_t cut = path.find_last_of("/\\");
    return cut == std::string::npos ? path : path.substr(cut + 1);
}

std::string TrackTitle(const std::string& path) {
    std::string title = FileNameOf(path);
    const std::string needle = ".cvtrack";
    std::string lower = ToLowerAscii(title);
    for (std::size_t at = lower.find(needle); at != std::string::npos; at = lower.find(needle, at)) {
        title.erase(at, needle.size());
        lower.erase(at, needle.size());
    }
    return title;
}

std::string FolderOf(const std::string& path) {
    const std::size_t cut = path.find_last_of("/\\");
    return cut == std::string::npos ? std::string() : path.substr(0, cut + 1);
}
