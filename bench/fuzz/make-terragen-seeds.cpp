// Writes small seed files for the Terragen fuzzer into the folder given: a file with every block,
// one without the optional blocks (refused), and one without the end marker.
#include "TerragenSample.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace {

bool Write(const std::string& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-terragen-seeds FOLDER\n");
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    const std::vector<std::int16_t> hills = RollingTerragenElevations(8);
    const bool ok = Write(folder + "hills.ter", MakeTerragenFile({8, 8, false, true}, hills)) &&
                    Write(folder + "short-layout.ter", MakeTerragenFile({8, 8, true, true}, hills)) &&
                    Write(folder + "no-marker.ter", MakeTerragenFile({5, 3, false, false}, hills));
    return ok ? 0 : 1;
}
