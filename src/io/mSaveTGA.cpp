#include "mSaveTGA.h"

#include "FileIO.h"

#include <algorithm>

namespace {

constexpr int kMaxTargaSide = 65535;

void PutLittle16(std::vector<std::uint8_t>& out, std::size_t at, int value) {
    out[at] = static_cast<std::uint8_t>(value & 0xFF);
    out[at + 1] = static_cast<std::uint8_t>((value >> 8) & 0xFF);
}

} // namespace

std::vector<std::uint8_t> EncodeTGA(std::span<const std::uint8_t> rows, int width, int height) {
    if (width <= 0 || height <= 0 || width > kMaxTargaSide || height > kMaxTargaSide) return {};
    const std::size_t pixelBytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
    if (rows.size() < pixelBytes) return {};
    // Header, pixels and the trailing zero byte; every header field not set here is zero.
    std::vector<std::uint8_t> out(18 + pixelBytes + 1, 0);
    out[2] = 2;
    PutLittle16(out, 12, width);
    PutLittle16(out, 14, height);
    out[16] = 24;
    std::copy_n(rows.begin(), pixelBytes, out.begin() + 18);
    return out;
}

bool SaveTGA(const std::string& path, std::span<const std::uint8_t> rows, int width, int height,
             std::string& error) {
    const std::vector<std::uint8_t> bytes = EncodeTGA(rows, width, height);
    if (bytes.empty()) {
        error = "cannot write a Targa picture of " + std::to_string(width) + " x " + std::to_string(height) +
                " pixels from " + std::to_string(rows.size()) + " bytes";
        return false;
    }
    return WriteFileAtomically(path, bytes, error);
}

bool SaveTGA(const std::string& path, const cDIBSection& image, std::string& error) {
    const std::vector<std::uint8_t> packed = image.PackedBgr();
    return SaveTGA(path, packed, image.Width(), image.Height(), error);
}
