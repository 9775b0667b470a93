#include "FileIO.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

bool FileExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && fs::is_regular_file(fs::path(path), ec);
}

bool CheckFileSize(const std::string& path, std::string& error, std::uintmax_t maxBytes) {
    std::error_code ec;
    const std::uintmax_t size = fs::file_size(fs::path(path), ec);
    if (ec) {
        error = "cannot read " + path + ": " + ec.message();
        return false;
    }
    if (size > maxBytes) {
        error = path + " is too large (" + std::to_string(size) + " bytes; at most " +
                std::to_string(maxBytes) + " are read)";
        return false;
    }
    return true;
}

bool ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes, std::string& error,
                   std::uintmax_t maxBytes) {
    if (!CheckFileSize(path, error, maxBytes)) return false;
    std::error_code ec;
    const std::uintmax_t size = fs::file_size(fs::path(path), ec);
    std::ifstream in(fs::path(path), std::ios::binary);
    if (ec || !in) {
        error = "cannot open " + path + ": " + std::strerror(errno);
        return false;
    }
    bytes.resize(static_cast<std::size_t>(size));
    in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    if (static_cast<std::uintmax_t>(in.gcount()) != size) {
        error = "cannot read " + path + ": the file ended early";
        return false;
    }
    return true;
}

namespace {

constexpr int kMaxLinkDepth = 40; // as the kernel's own limit on following links

std::string SystemReason(int code) {
    return std::strerror(code);
}

// The file a write to path replaces: path itself, or where its chain of symbolic links ends.
bool FollowLinks(const fs::path& path, fs::path& target, std::string& reason) {
    target = path;
    for (int depth = 0; depth < kMaxLinkDepth; ++depth) {
        std::error_code ec;
        if (!fs::is_symlink(fs::symlink_status(target, ec))) return true;
        const fs::path next = fs::read_symlink(target, ec);
        if (ec) {
            reason = ec.message();
            return false;
        }
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    reason = SystemReason(ELOOP);
    return false;
}

// Whether the user may change the entry. Root may change anything, so for root the permission
// bits decide: an entry nobody may write is refused as the user would expect.
bool MayWrite(const fs::path& path, const struct stat& info) {
    if (geteuid() == 0) return (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
    return access(path.c_str(), W_OK) == 0;
}

fs::path FolderOfFile(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// What is known of the file before it is replaced.
struct Existing {
    bool present = false;
    struct stat info {};
};

bool CheckTarget(const fs::path& target, Existing& existing, std::string& reason) {
    struct stat folderInfo {};
    const fs::path folder = FolderOfFile(target);
    if (stat(folder.c_str(), &folderInfo) != 0) {
        reason = SystemReason(errno);
        return false;
    }
    if (stat(target.c_str(), &existing.info) == 0) {
        existing.present = true;
        if (!S_ISREG(existing.info.st_mode)) {
            reason = "it is not a plain file";
            return false;
        }
        if (!MayWrite(target, existing.info)) {
            reason = "the file is read-only";
            return false;
        }
    } else if (errno != ENOENT) {
        reason = SystemReason(errno);
        return false;
    }
    if (!MayWrite(folder, folderInfo)) {
        reason = "its folder is read-only";
        return false;
    }
    return true;
}

int CreateTemporary(const fs::path& target, fs::path& temp) {
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < 100; ++attempt) {
        const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
        temp = FolderOfFile(target) / ("." + target.filename().string() + ".~" + std::to_string(stamp) + "-" +
                                       std::to_string(counter++) + ".tmp");
        const int fd = open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    errno = EEXIST;
    return -1;
}

bool WriteAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t written = write(fd, data, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            if (written == 0) errno = EIO;
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

// Fills the temporary file, gives it the old file's permission bits (and owner, where allowed) and
// flushes it to the disk.
bool FillTemporary(int fd, const char* data, std::size_t size, const Existing& existing) {
    if (!WriteAll(fd, data, size)) return false;
    if (existing.present) {
        if (fchmod(fd, existing.info.st_mode & 07777) != 0) return false;
        // Only root may give a file away; anyone else keeps owning the new file.
        [[maybe_unused]] const int owned = fchown(fd, existing.info.st_uid, existing.info.st_gid);
    }
    return fsync(fd) == 0;
}

void SyncFolder(const fs::path& folder) {
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    // The rename has happened; a folder that cannot be flushed leaves it to the system's own
    // write-back, which is no reason to call the save failed.
    fsync(fd);
    close(fd);
}

bool ReplaceTarget(const fs::path& target, const char* data, std::size_t size, const Existing& existing,
                   std::string& reason) {
    fs::path temp;
    const int fd = CreateTemporary(target, temp);
    if (fd < 0) {
        reason = SystemReason(errno);
        return false;
    }
    bool ok = FillTemporary(fd, data, size, existing);
    int code = errno;
    if (close(fd) != 0 && ok) {
        ok = false;
        code = errno;
    }
    if (ok && rename(temp.c_str(), target.c_str()) != 0) {
        ok = false;
        code = errno;
    }
    if (!ok) {
        unlink(temp.c_str());
        reason = SystemReason(code);
        return false;
    }
    SyncFolder(FolderOfFile(target));
    return true;
}

bool WriteBytesAtomically(const std::string& path, const char* data, std::size_t size, std::string& error) {
    std::string reason;
    fs::path target;
    Existing existing;
    const bool ok = !path.empty() && FollowLinks(fs::path(path), target, reason) &&
                    CheckTarget(target, existing, reason) &&
                    ReplaceTarget(target, data, size, existing, reason);
    if (!ok) error = "cannot write " + path + ": " + (reason.empty() ? "no file name" : reason);
    return ok;
}

} // namespace

bool WriteFileAtomically(const std::string& path, const std::vector<std::uint8_t>& bytes,
                         std::string& error) {
    return WriteBytesAtomically(path, reinterpret_cast<const char*>(bytes.data()), bytes.size(), error);
}

bool WriteFileAtomically(const std::string& path, const std::string& text, std::string& error) {
    return WriteBytesAtomically(path, text.data(), text.size(), error);
}
