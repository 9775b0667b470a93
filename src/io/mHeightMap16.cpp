#include "mHeightMap16.h"

#include "FileIO.h"
#include "PathUtil.h"
#include "mHeightMap.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double kTopValue = 65535.0;

struct Png16Codec {
    Png16Decoder decoder;
    Png16Encoder encoder;
};

Png16Codec& RegisteredCodec() {
    static Png16Codec codec;
    return codec;
}

Grey16ReadResult Refuse(const std::string& why) {
    return {false, why};
}

} // namespace

std::uint16_t HeightToGrey16(float height) {
    const double scaled =
        (static_cast<double>(height) - kHeight16Low) / (kHeight16High - kHeight16Low) * kTopValue;
    if (std::isnan(scaled)) return 0;
    return static_cast<std::uint16_t>(std::lrint(std::clamp(scaled, 0.0, kTopValue)));
}

Grey16Image TerrainToGrey16(const TerrainData& terrain) {
    const HeightGrid& heights = terrain.heights;
    Grey16Image image;
    image.width = heights.Columns();
    image.height = heights.Rows();
    image.values.reserve(heights.Size());
    for (int row = heights.Rows() - 1; row >= 0; --row)
        for (int c = 0; c < heights.Columns(); ++c)
            image.values.push_back(HeightToGrey16(heights.At(row, c)));
    return image;
}

TerrainData Grey16ToTerrain(const Grey16Image& image, const Height16Range& range) {
    TerrainData terrain;
    if (image.Empty()) return terrain;
    terrain.columns = image.width;
    terrain.rows = image.height;
    terrain.spacingX = kTerrainExtent / static_cast<float>(image.width);
    terrain.spacingZ = kTerrainExtent / static_cast<float>(image.height);
    terrain.heights.Resize(image.width, image.height);
    const double span = static_cast<double>(range.high) - static_cast<double>(range.low);
    for (int row = 0; row < image.height; ++row)
        for (int c = 0; c < image.width; ++c) {
            const double height = range.low + image.At(image.height - 1 - row, c) / kTopValue * span;
            terrain.heights.At(row, c) =
                static_cast<float>(std::clamp(height, double{kImportFloor}, double{kImportCeiling}));
        }
    return terrain;
}

Grey16ReadResult CheckGrey16Size(std::int64_t width, std::int64_t height) {
    if (width <= 0 || height <= 0) return Refuse("the height map has no points");
    if (width > kMaxGridSide || height > kMaxGridSide)
        return Refuse("the height map is " + std::to_string(width) + " x " + std::to_string(height) +
                      " points; a terrain has at most " + std::to_string(kMaxGridSide) + " x " +
                      std::to_string(kMaxGridSide));
    return {true, {}};
}

int SquareRaw16Side(std::size_t byteCount) {
    if (byteCount == 0 || byteCount % 2 != 0) return 0;
    const std::size_t values = byteCount / 2;
    auto side = static_cast<std::size_t>(std::sqrt(static_cast<double>(values)));
    while (side * side > values)
        --side;
    while ((side + 1) * (side + 1) <= values)
        ++side;
    if (side * side != values || side > static_cast<std::size_t>(std::numeric_limits<int>::max())) return 0;
    return static_cast<int>(side);
}

Grey16ReadResult DecodeRaw16(std::span<const std::uint8_t> bytes, int width, Grey16Image& image) {
    if (bytes.empty() || bytes.size() % 2 != 0)
        return Refuse("a 16-bit RAW file holds two bytes per point; this one has " +
                      std::to_string(bytes.size()) + " bytes");
    const std::size_t values = bytes.size() / 2;
    if (width == 0) width = SquareRaw16Side(bytes.size());
    if (width <= 0)
        return Refuse("the file's " + std::to_string(values) + " points make no square: give its width");
    const auto columns = static_cast<std::size_t>(width);
    if (values % columns != 0)
        return Refuse("a width of " + std::to_string(width) + " does not divide the file's " +
                      std::to_string(values) + " points into whole rows");
    const std::size_t rows = values / columns;
    Grey16ReadResult size = CheckGrey16Size(width, static_cast<std::int64_t>(rows));
    if (!size) return size;
    Grey16Image decoded;
    decoded.width = width;
    decoded.height = static_cast<int>(rows);
    decoded.values.resize(values);
    for (std::size_t i = 0; i < values; ++i)
        decoded.values[i] = static_cast<std::uint16_t>(bytes[2 * i] | (bytes[2 * i + 1] << 8));
    image = std::move(decoded);
    return {true, {}};
}

std::vector<std::uint8_t> EncodeRaw16(const Grey16Image& image) {
    std::vector<std::uint8_t> out;
    out.reserve(image.values.size() * 2);
    for (const std::uint16_t value : image.values) {
        out.push_back(static_cast<std::uint8_t>(value & 0xFF));
        out.push_back(static_cast<std::uint8_t>(value >> 8));
    }
    return out;
}

void SetPng16Codec(Png16Decoder decoder, Png16Encoder encoder) {
    RegisteredCodec() = {std::move(decoder), std::move(encoder)};
}

bool IsPng16Path(const std::string& path) {
    return HasExtension(path, ".png");
}

Grey16ReadResult ReadHeightMap16Bytes(const std::string& path, std::vector<std::uint8_t>& bytes) {
    std::string error;
    if (!ReadWholeFile(path, bytes, error)) return Refuse(error);
    return {true, {}};
}

Grey16ReadResult DecodeHeightMap16(std::span<const std::uint8_t> bytes, bool png, int width,
                                   Grey16Image& image) {
    if (!png) return DecodeRaw16(bytes, width, image);
    const Png16Decoder& decoder = RegisteredCodec().decoder;
    if (!decoder) return Refuse("this program was built without a PNG reader");
    return decoder(bytes, image);
}

Grey16ReadResult ReadHeightMap16(const std::string& path, int width, Grey16Image& image) {
    std::vector<std::uint8_t> bytes;
    Grey16ReadResult read = ReadHeightMap16Bytes(path, bytes);
    if (!read) return read;
    return DecodeHeightMap16(bytes, IsPng16Path(path), width, image);
}

bool WriteHeightMap16(const std::string& path, const TerrainData& terrain, std::string& error) {
    const Grey16Image image = TerrainToGrey16(terrain);
    if (image.Empty()) {
        error = "there are no heights to write";
        return false;
    }
    std::vector<std::uint8_t> bytes;
    if (IsPng16Path(path)) {
        const Png16Encoder& encoder = RegisteredCodec().encoder;
        if (encoder) bytes = encoder(image);
        if (bytes.empty()) {
            error =
                encoder ? "the PNG picture could not be made" : "this program was built without a PNG writer";
            return false;
        }
    } else {
        bytes = EncodeRaw16(image);
    }
    return WriteFileAtomically(path, bytes, error);
}
