#include "TestSupport.h"

#include <atomic>
#include <csignal>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include <sys/resource.h>

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
    static std::atomic<unsigned> counter{0};
    std::random_device entropy;
    path_ = fs::temp_directory_path() /
            ("landwright-test-" + std::to_string(entropy()) + "-" + std::to_string(counter++));
    fs::create_directories(path_);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(path_, ignored);
}

std::vector<std::uint8_t> ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot open " + path);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out) throw std::runtime_error("cannot write " + path);
}

FileSizeLimit::FileSizeLimit(std::uint64_t bytes) {
    previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    previousSoft_ = limit.rlim_cur;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit() {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = previousSoft_;
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, previousHandler_);
}
