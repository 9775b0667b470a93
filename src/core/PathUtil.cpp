#include "PathUtil.h"

#include <algorithm>
#include <cctype>

std::string ToLowerAscii(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
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

std::string Latin1ToUtf8(const std::string& text) {
    std::string name;
    name.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            name += c;
            continue;
        }
        name += static_cast<char>(0xC0 | byte >> 6);
        name += static_cast<char>(0x80 | (byte & 0x3F));
    }
    return name;
}

std::optional<std::string> Utf8ToLatin1(const std::string& name) {
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto lead = static_cast<unsigned char>(name[i]);
        if (lead < 0x80) {
            text += name[i];
            continue;
        }
        // Latin-1 letters are the two-byte sequences led by 0xC2 and 0xC3.
        if ((lead != 0xC2 && lead != 0xC3) || i + 1 >= name.size()) return std::nullopt;
        const auto next = static_cast<unsigned char>(name[++i]);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        text += static_cast<char>((lead & 0x03) << 6 | (next & 0x3F));
    }
    return text;
}
