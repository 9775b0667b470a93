#include "FileIO.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace fs = std::filesystem;

bool FileExists(const std::string& path) {
    std::error_code ec;
    return !path.empty() && fs::is_regular_file(fs::path(path), ec);
}

bool ReadWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes, std::string& error,
                   std::uintmax_t maxBytes) {
    std::error_code ec;
    const fs::path file = fs::path(path);
    const std::uintmax_t size = fs::file_size(file, ec);
    if (ec) {
        error = "cannot read " + path + ": " + ec.message();
        return false;
    }
    if (size > maxBytes) {
        error = path + " is too large (" + std::to_string(size) + " bytes)";
        return false;
    }
    std::ifstream in(file, std::ios::binary);
    if (!in) {
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

fs::path TemporaryBeside(const fs::path& target) {
    static std::atomic<unsigned> counter{0};
    const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    fs::path temp = target;
    temp += ".~" + std::to_string(stamp) + "-" + std::to_string(counter++) + ".tmp";
    return temp;
}

bool WriteBytesAtomically(const std::string& path, const char* data, std::size_t size, std::string& error) {
    const fs::path target = fs::path(path);
    const fs::path temp = TemporaryBeside(target);
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        if (!out) {
            error = "cannot create " + temp.string() + ": " + std::strerror(errno);
            return false;
        }
        out.write(data, static_cast<std::streamsize>(size));
        out.flush();
        if (!out) {
            error = "cannot write " + path + ": " + std::strerror(errno);
            out.close();
            std::error_code ignored;
            fs::remove(temp, ignored);
            return false;
        }
    }
    std::error_code ec;
    fs::rename(temp, target, ec);
    if (ec) {
        error = "cannot replace " + path + ": " + ec.message();
        fs::remove(temp, ec);
        return false;
    }
    return true;
}

} // namespace

bool WriteFileAtomically(const std::string& path, const std::vector<std::uint8_t>& bytes, std::string& error) {
    return WriteBytesAtomically(path, reinterpret_cast<const char*>(bytes.data()), bytes.size(), error);
}

bool WriteFileAtomically(const std::string& path, const std::string& text, std::string& error) {
    return WriteBytesAtomically(path, text.data(), text.size(), error);
}
