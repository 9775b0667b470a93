// Writes small bitmap seeds for the bitmap fuzzer into the folder given: a 24-bit picture written
// by our encoder, an 8-bit run-length encoded one with a palette, and a 16-bit one with masks.
#include "FileIO.h"
#include "mBitmapFile.h"

#include <cstdio>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

void Put(Bytes& out, std::size_t at, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i)
        out[at + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> (8 * i));
}

// A file with a 40-byte header, then the table (palette or masks) and the pixels.
Bytes Bitmap(int width, int height, int bits, std::uint32_t compression, const Bytes& table,
             const Bytes& pixels) {
    Bytes out(54, 0);
    out[0] = 'B';
    out[1] = 'M';
    Put(out, 10, static_cast<std::uint32_t>(54 + table.size()), 4);
    Put(out, 14, 40, 4);
    Put(out, 18, static_cast<std::uint32_t>(width), 4);
    Put(out, 22, static_cast<std::uint32_t>(height), 4);
    Put(out, 26, 1, 2);
    Put(out, 28, static_cast<std::uint32_t>(bits), 2);
    Put(out, 30, compression, 4);
    out.insert(out.end(), table.begin(), table.end());
    out.insert(out.end(), pixels.begin(), pixels.end());
    Put(out, 2, static_cast<std::uint32_t>(out.size()), 4);
    return out;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make-bitmap-seeds FOLDER\n");
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    cDIBSection picture;
    picture.Create(5, 3);
    for (std::size_t i = 0; i < picture.SizeInBytes(); ++i)
        picture.Bits()[i] = static_cast<std::uint8_t>(i * 37);
    const Bytes palette = {0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 0, 0, 255, 0};
    const Bytes runs = {3, 1, 0, 3, 2, 3, 2, 0, 0, 0, 0, 2, 1, 1, 2, 3, 0, 1};
    const Bytes masks = {0, 0xF8, 0, 0, 0xE0, 0x07, 0, 0, 0x1F, 0, 0, 0};
    const Bytes wide = {0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00, 0xFF, 0xFF};
    std::string error;
    const bool ok = WriteFileAtomically(folder + "rgb24.bmp", EncodeBitmap(picture), error) &&
                    WriteFileAtomically(folder + "rle8.bmp", Bitmap(4, 3, 8, 1, palette, runs), error) &&
                    WriteFileAtomically(folder + "masks16.bmp", Bitmap(4, 1, 16, 3, masks, wide), error);
    if (!ok) std::fprintf(stderr, "make-bitmap-seeds: %s\n", error.c_str());
    return ok ? 0 : 1;
}
