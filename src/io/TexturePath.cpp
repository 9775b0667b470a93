#include "TexturePath.h"

#include "PathUtil.h"
#include "mPictureLoader.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::vector<std::string> SplitParts(const std::string& path) {
    std::vector<std::string> parts;
    std::string part;
    for (const char c : path + "/") {
        if (c != '/' && c != '\\') {
            part += c;
            continue;
        }
        if (!part.empty() && part != ".") parts.push_back(part);
        part.clear();
    }
    return parts;
}

// The entry of folder whose name equals name ignoring case; the first in name order when several
// do, so the choice does not depend on the directory's order.
std::optional<std::string> FindIgnoringCase(const fs::path& folder, const std::string& name) {
    std::error_code ec;
    std::vector<std::string> matches;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string entry = it->path().filename().string();
        if (EqualsIgnoreCase(entry, name)) matches.push_back(entry);
    }
    if (matches.empty()) return std::nullopt;
    return *std::min_element(matches.begin(), matches.end());
}

} // namespace

bool IsRelativeTexturePath(const std::string& path) {
    if (path.empty() || path[0] == '/' || path[0] == '\\') return false;
    return !(path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])));
}

std::optional<std::string> ResolveTexturePath(const std::string& programFolder,
                                              const std::string& storedPath) {
    if (!IsRelativeTexturePath(storedPath)) return std::nullopt;
    fs::path resolved = programFolder.empty() ? fs::path(".") : fs::path(programFolder);
    bool found = true;
    for (const std::string& stored : SplitParts(storedPath)) {
        // The stored text is Latin-1; the folders and files it names have UTF-8 names. A part that
        // is already a UTF-8 name (written by another tool) is taken as it is when it exists.
        const std::string part = Latin1ToUtf8(stored);
        std::error_code ec;
        if (found && part != stored && !fs::exists(resolved / part, ec) &&
            fs::exists(resolved / stored, ec)) {
            resolved /= stored;
            continue;
        }
        if (found && !fs::exists(resolved / part, ec)) {
            const std::optional<std::string> match = FindIgnoringCase(resolved, part);
            found = match.has_value();
            resolved /= match.value_or(part);
            continue;
        }
        resolved /= part;
    }
    return resolved.string();
}

bool LoadTexturePicture(const std::string& programFolder, const std::string& storedPath, cDIBSection& image) {
    const std::optional<std::string> file = ResolveTexturePath(programFolder, storedPath);
    return file && LoadPictureFile(*file, image);
}
