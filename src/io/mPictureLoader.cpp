#include "mPictureLoader.h"

#include "FileIO.h"
#include "PathUtil.h"
#include "mBitmapFile.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <utility>
#include <vector>

namespace {

PictureDecoder& RegisteredDecoder() {
    static PictureDecoder decoder;
    return decoder;
}

constexpr std::size_t kHeaderSize = 18;
constexpr std::uint8_t kTypeTrueColour = 2;
constexpr std::uint8_t kTypeRunLengthTrueColour = 10;
constexpr std::uint8_t kTopDownBit = 0x20;

struct TargaHeader {
    std::size_t pixelsOffset = kHeaderSize;
    std::uint8_t type = 0;
    int width = 0;
    int height = 0;
    int bytesPerPixel = 0;
    bool topDown = false;
};

int Little16(std::span<const std::uint8_t> bytes, std::size_t at) {
    return bytes[at] | (bytes[at + 1] << 8);
}

bool ReadHeader(std::span<const std::uint8_t> bytes, TargaHeader& header) {
    if (bytes.size() < kHeaderSize) return false;
    header.type = bytes[2];
    if (header.type != kTypeTrueColour && header.type != kTypeRunLengthTrueColour) return false;
    const int bits = bytes[16];
    if (bits != 24 && bits != 32) return false;
    header.bytesPerPixel = bits / 8;
    header.width = Little16(bytes, 12);
    header.height = Little16(bytes, 14);
    header.topDown = (bytes[17] & kTopDownBit) != 0;
    // Skip the identification field and a colour map, should a writer have put them there.
    std::size_t skip = bytes[0];
    if (bytes[1] == 1) skip += static_cast<std::size_t>(Little16(bytes, 5)) * ((bytes[7] + 7u) / 8u);
    header.pixelsOffset = kHeaderSize + skip;
    return header.pixelsOffset <= bytes.size();
}

// Expands run-length packets until expected bytes are out; a run reaching past the end of the
// picture is cut there. Fails when the packets end early.
bool DecodeRuns(std::span<const std::uint8_t> in, std::size_t pixelBytes, std::size_t expected,
                std::vector<std::uint8_t>& out) {
    out.clear();
    out.reserve(expected);
    std::size_t at = 0;
    while (out.size() < expected) {
        if (at >= in.size()) return false;
        const std::uint8_t packet = in[at++];
        const std::size_t count = (packet & 0x7F) + 1u;
        const bool repeated = packet >= 128;
        const std::size_t literal = repeated ? pixelBytes : count * pixelBytes;
        if (in.size() - at < literal) return false;
        const std::size_t room = expected - out.size();
        const std::uint8_t* packetBytes = in.data() + at;
        if (repeated) {
            for (std::size_t i = 0; i < count && out.size() < expected; ++i)
                out.insert(out.end(), packetBytes, packetBytes + pixelBytes);
        } else {
            out.insert(out.end(), packetBytes, packetBytes + std::min(literal, room));
        }
        at += literal;
    }
    return true;
}

void CopyPixels(const std::uint8_t* pixels, const TargaHeader& header, cDIBSection& image) {
    const std::size_t stride =
        static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.bytesPerPixel);
    for (int row = 0; row < header.height; ++row) {
        const int target = header.topDown ? header.height - 1 - row : row;
        const std::uint8_t* in = pixels + stride * static_cast<std::size_t>(row);
        std::uint8_t* out = image.Row(target);
        for (int x = 0; x < header.width; ++x, in += header.bytesPerPixel, out += 3)
            std::copy_n(in, 3, out);
    }
}

bool EndsWithSeparator(const std::string& path) {
    return !path.empty() && (path.back() == '\\' || path.back() == '/');
}

// Bitmaps are told by their first two bytes, whatever their name says.
bool StartsAsBitmap(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::array<char, 2> head{};
    if (!file.read(head.data(), 2)) return false;
    return HasBitmapSignature({reinterpret_cast<const std::uint8_t*>(head.data()), head.size()});
}

} // namespace

void SetPictureDecoder(PictureDecoder decoder) {
    RegisteredDecoder() = std::move(decoder);
}

bool DecodeTarga(std::span<const std::uint8_t> bytes, cDIBSection& image) {
    TargaHeader header;
    if (!ReadHeader(bytes, header)) return false;
    const std::span<const std::uint8_t> data = bytes.subspan(header.pixelsOffset);
    const std::size_t pixelCount =
        static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
    const std::size_t pixelBytes = static_cast<std::size_t>(header.bytesPerPixel);
    const std::size_t expected = pixelCount * pixelBytes;
    // Checked before anything is allocated: a packet covers at most 128 pixels.
    const bool runs = header.type == kTypeRunLengthTrueColour;
    const std::size_t least = runs ? (pixelCount + 127) / 128 * (1 + pixelBytes) : expected;
    if (data.size() < least) return false;
    cDIBSection decoded;
    if (!decoded.Create(header.width, header.height)) return false;
    std::vector<std::uint8_t> expanded;
    if (runs && !DecodeRuns(data, pixelBytes, expected, expanded)) return false;
    CopyPixels(runs ? expanded.data() : data.data(), header, decoded);
    image = std::move(decoded);
    return true;
}

bool LoadTargaFile(const std::string& path, cDIBSection& image) {
    std::vector<std::uint8_t> bytes;
    std::string error;
    if (!ReadWholeFile(path, bytes, error)) return false;
    return DecodeTarga(bytes, image);
}

bool LoadPictureFile(const std::string& path, cDIBSection& image) {
    if (path.empty() || EndsWithSeparator(path)) return false;
    if (path.size() >= 3 && ToLowerAscii(path.substr(path.size() - 3)) == "tga")
        return LoadTargaFile(path, image);
    if (StartsAsBitmap(path)) return static_cast<bool>(LoadBitmapFile(path, image));
    const PictureDecoder& decoder = RegisteredDecoder();
    std::string error;
    // The decoder reads the file itself: its size is checked here, before it does.
    if (!decoder || !CheckFileSize(path, error)) return false;
    cDIBSection decoded;
    if (!decoder(path, decoded) || decoded.IsEmpty()) return false;
    image = std::move(decoded);
    return true;
}
