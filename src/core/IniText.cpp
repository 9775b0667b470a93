#include "IniText.h"

#include "FileIO.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <vector>

namespace {

// Settings and presets are a few kilobytes; anything far larger is not one of ours.
constexpr std::uintmax_t kMaxIniBytes = std::uintmax_t{16} << 20;

bool SameLetterIgnoringCase(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

// Where the value of key starts, or npos when the key is missing.
std::size_t FindValueStart(const IniText& text, const std::string& key) {
    const std::string needle = kIniLineBreak + key + "=";
    const auto found =
        std::search(text.begin(), text.end(), needle.begin(), needle.end(), SameLetterIgnoringCase);
    if (found == text.end()) return std::string::npos;
    return static_cast<std::size_t>(found - text.begin()) + needle.size();
}

std::string TrimSpaces(const std::string& value) {
    const std::size_t first = value.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return value.substr(first, value.find_last_not_of(' ') - first + 1);
}

} // namespace

bool IniLoad(const std::string& path, IniText& text) {
    if (!FileExists(path)) return false;
    std::vector<std::uint8_t> bytes;
    std::string error;
    if (!ReadWholeFile(path, bytes, error, kMaxIniBytes)) return false;
    text.assign(bytes.begin(), bytes.end());
    return true;
}

std::string IniGet(const IniText& text, const std::string& key) {
    const std::size_t start = FindValueStart(text, key);
    if (start == std::string::npos) return {};
    std::size_t end = text.find(kIniLineBreak, start);
    // Without a line break after it the value ends one character before the end of the text, so a
    // last line without a line break loses its last character. Kept on purpose, so that existing
    // settings and preset files read exactly as they always have.
    if (end == std::string::npos) end = text.size() - 1;
    if (end <= start) return {};
    return TrimSpaces(text.substr(start, end - start));
}

bool IniHasKey(const IniText& text, const std::string& key) {
    return FindValueStart(text, key) != std::string::npos;
}

std::string IniAddComment(const std::string& comment) {
    return comment.empty() ? std::string() : ";" + comment + kIniLineBreak;
}

void IniAddSection(IniText& text, const std::string& name) {
    text += kIniLineBreak;
    text += "[" + name + "]";
    text += kIniLineBreak;
}

void IniAddKey(IniText& text, const std::string& key, const std::string& value) {
    text += key + "=" + value;
    text += kIniLineBreak;
}

bool IniSave(const std::string& path, const IniText& text, std::string& error) {
    return WriteFileAtomically(path, text, error);
}
