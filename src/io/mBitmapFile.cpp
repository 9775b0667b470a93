#include "mBitmapFile.h"

#include "FileIO.h"

#include <algorithm>
#include <array>
#include <bit>

namespace {

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::size_t kCoreHeaderSize = 12;
constexpr std::size_t kInfoHeaderSize = 40;
constexpr std::size_t kLongestHeader = 124;
constexpr std::uint32_t kRgb = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3, kAlphaBitFields = 6;
// A run-length pair (two bytes) paints at most 255 pixels: a picture claiming far more than that
// per byte of data is refused before its pixels are allocated.
constexpr std::size_t kRunPixelsPerByte = 128;
constexpr std::size_t kRunPixelsAllowance = 4096;

std::uint32_t Little32(std::span<const std::uint8_t> b, std::size_t at) {
    return std::uint32_t{b[at]} | (std::uint32_t{b[at + 1]} << 8) | (std::uint32_t{b[at + 2]} << 16) |
           (std::uint32_t{b[at + 3]} << 24);
}

std::uint32_t Little16(std::span<const std::uint8_t> b, std::size_t at) {
    return std::uint32_t{b[at]} | (std::uint32_t{b[at + 1]} << 8);
}

BitmapReadResult Refuse(const std::string& why) {
    return {false, why};
}

// One colour channel of a 16- or 32-bit pixel: where its bits are and how many values they hold.
struct Channel {
    std::uint32_t mask = 0;
    int shift = 0;
    std::uint32_t top = 0; // the largest value of the channel's bits

    explicit Channel(std::uint32_t m) : mask(m) {
        if (mask == 0) return;
        shift = std::countr_zero(mask);
        top = mask >> shift;
    }
    std::uint8_t Of(std::uint32_t pixel) const {
        if (top == 0) return 0;
        const std::uint64_t value = (pixel & mask) >> shift;
        return static_cast<std::uint8_t>((value * 255 + top / 2) / top);
    }
};

struct Header {
    int width = 0;
    int height = 0; // rows, always positive
    bool topDown = false;
    int bits = 0;
    std::uint32_t compression = kRgb;
    std::array<std::uint32_t, 3> masks{};             // red, green, blue
    std::vector<std::array<std::uint8_t, 3>> palette; // blue, green, red
    std::size_t pixelsAt = 0;
};

bool ReadMasks(std::span<const std::uint8_t> bytes, std::size_t at, Header& h) {
    if (bytes.size() < at + 12) return false;
    for (std::size_t i = 0; i < 3; ++i)
        h.masks[i] = Little32(bytes, at + 4 * i);
    return true;
}

// The colour table: entries of 3 bytes after a core header, 4 otherwise. A table that would run
// into the pixels is cut there, as some writers count more colours than they store.
BitmapReadResult ReadPalette(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t entrySize,
                             std::uint32_t used, Header& h) {
    const std::size_t most = std::size_t{1} << h.bits;
    std::size_t count = used == 0 ? most : std::min<std::size_t>(used, most);
    if (h.pixelsAt > at) count = std::min(count, (h.pixelsAt - at) / entrySize);
    if (bytes.size() < at + count * entrySize) return Refuse("the bitmap's colour table is cut short");
    h.palette.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at + i * entrySize), 3, h.palette[i].begin());
    return {true, {}};
}

bool CompressionFits(const Header& h) {
    switch (h.compression) {
    case kRgb:
        return h.bits == 1 || h.bits == 4 || h.bits == 8 || h.bits == 16 || h.bits == 24 || h.bits == 32;
    case kRle8:
        return h.bits == 8;
    case kRle4:
        return h.bits == 4;
    case kBitFields:
    case kAlphaBitFields:
        return h.bits == 16 || h.bits == 32;
    default:
        return false;
    }
}

BitmapReadResult ReadHeader(std::span<const std::uint8_t> bytes, Header& h) {
    if (bytes.size() < kFileHeaderSize + kCoreHeaderSize || !HasBitmapSignature(bytes))
        return Refuse("the file is not a bitmap");
    const std::size_t headerSize = Little32(bytes, kFileHeaderSize);
    const bool core = headerSize == kCoreHeaderSize;
    if (!core && (headerSize < 16 || headerSize > kLongestHeader))
        return Refuse("the bitmap has a header of an unknown kind");
    if (bytes.size() < kFileHeaderSize + headerSize) return Refuse("the bitmap's header is cut short");
    // Fields a short header leaves out count as zero.
    std::array<std::uint8_t, kFileHeaderSize + kLongestHeader> field{};
    std::copy_n(bytes.begin(), kFileHeaderSize + headerSize, field.begin());
    h.pixelsAt = Little32(field, 10);
    std::int64_t width = 0, height = 0;
    std::uint32_t used = 0;
    if (core) {
        width = Little16(field, 18);
        height = Little16(field, 20);
        h.bits = static_cast<int>(Little16(field, 24));
    } else {
        width = static_cast<std::int32_t>(Little32(field, 18));
        height = static_cast<std::int32_t>(Little32(field, 22));
        h.bits = static_cast<int>(Little16(field, 28));
        h.compression = Little32(field, 30);
        used = Little32(field, 46);
    }
    h.topDown = height < 0;
    height = height < 0 ? -height : height;
    if (width <= 0 || height <= 0 || width > cDIBSection::kMaxSide || height > cDIBSection::kMaxSide)
        return Refuse("the bitmap's size (" + std::to_string(width) + " x " + std::to_string(height) +
                      ") is not one this program reads");
    h.width = static_cast<int>(width);
    h.height = static_cast<int>(height);
    if (!CompressionFits(h)) return Refuse("the bitmap is stored in a way this program does not read");

    std::size_t tableAt = kFileHeaderSize + headerSize;
    const bool masked = h.compression == kBitFields || h.compression == kAlphaBitFields;
    if (masked && headerSize >= 52) {
        ReadMasks(field, kFileHeaderSize + kInfoHeaderSize, h);
    } else if (masked) {
        if (!ReadMasks(bytes, tableAt, h)) return Refuse("the bitmap's colour masks are cut short");
        tableAt += h.compression == kAlphaBitFields ? 16 : 12;
    } else if (h.bits == 16) {
        h.masks = {0x7C00, 0x03E0, 0x001F};
    } else if (h.bits == 32) {
        h.masks = {0xFF0000, 0x00FF00, 0x0000FF};
    }
    if (h.bits <= 8) {
        BitmapReadResult palette = ReadPalette(bytes, tableAt, core ? 3 : 4, used, h);
        if (!palette) return palette;
        tableAt += h.palette.size() * (core ? 3 : 4);
    }
    if (h.pixelsAt == 0) h.pixelsAt = tableAt;
    if (h.pixelsAt >= bytes.size()) return Refuse("the bitmap has no pixel data");
    return {true, {}};
}

std::uint8_t* RowOf(cDIBSection& image, const Header& h, int fileRow) {
    return image.Row(h.topDown ? h.height - 1 - fileRow : fileRow);
}

void PutIndex(std::uint8_t* out, const Header& h, std::size_t index) {
    static constexpr std::array<std::uint8_t, 3> kBlack{};
    const auto& colour = index < h.palette.size() ? h.palette[index] : kBlack;
    std::copy_n(colour.begin(), 3, out);
}

void DecodeRow(const std::uint8_t* in, std::uint8_t* out, const Header& h,
               const std::array<Channel, 3>& channels) {
    for (int x = 0; x < h.width; ++x, out += 3) {
        const auto ux = static_cast<std::size_t>(x);
        switch (h.bits) {
        case 1:
            PutIndex(out, h, (in[ux >> 3] >> (7 - (ux & 7))) & 1u);
            break;
        case 4:
            PutIndex(out, h, (in[ux >> 1] >> ((ux & 1) != 0 ? 0 : 4)) & 0xFu);
            break;
        case 8:
            PutIndex(out, h, in[ux]);
            break;
        case 24:
            std::copy_n(in + 3 * ux, 3, out);
            break;
        default: {
            const std::uint32_t pixel =
                h.bits == 16 ? Little16({in + 2 * ux, 2}, 0) : Little32({in + 4 * ux, 4}, 0);
            out[0] = channels[2].Of(pixel);
            out[1] = channels[1].Of(pixel);
            out[2] = channels[0].Of(pixel);
        }
        }
    }
}

BitmapReadResult DecodePlain(std::span<const std::uint8_t> data, const Header& h, cDIBSection& image) {
    const std::size_t stride =
        (static_cast<std::size_t>(h.width) * static_cast<std::size_t>(h.bits) + 31) / 32 * 4;
    const std::size_t lastRow =
        (static_cast<std::size_t>(h.width) * static_cast<std::size_t>(h.bits) + 7) / 8;
    // The last row's padding may be missing; its pixels may not.
    if (data.size() < stride * static_cast<std::size_t>(h.height - 1) + lastRow)
        return Refuse("the bitmap's pixel data is cut short");
    if (!image.Create(h.width, h.height)) return Refuse("the bitmap is too large");
    const std::array<Channel, 3> channels{Channel(h.masks[0]), Channel(h.masks[1]), Channel(h.masks[2])};
    for (int row = 0; row < h.height; ++row)
        DecodeRow(data.data() + stride * static_cast<std::size_t>(row), RowOf(image, h, row), h, channels);
    return {true, {}};
}

// Run-length pairs: a count and a colour index (two alternating 4-bit indices for 4 bits per
// pixel), or 0 and an escape: 0 ends the row, 1 ends the picture, 2 moves right and up by the next
// two bytes, more starts that many indices stored as they are, padded to an even byte count.
// Pixels the runs skip stay black; runs beyond the picture's edge are cut. Data ending without
// the end mark keeps what was painted.
void DecodeRuns(std::span<const std::uint8_t> data, const Header& h, cDIBSection& image) {
    const bool four = h.compression == kRle4;
    std::size_t x = 0, y = 0, at = 0;
    const auto w = static_cast<std::size_t>(h.width), rows = static_cast<std::size_t>(h.height);
    const auto put = [&](std::size_t index) {
        if (x < w && y < rows) PutIndex(RowOf(image, h, static_cast<int>(y)) + 3 * x, h, index);
        ++x;
    };
    const auto nibble = [four](std::uint8_t pair, std::size_t i) {
        return four ? ((i & 1) != 0 ? pair & 0xFu : std::size_t{pair} >> 4) : std::size_t{pair};
    };
    while (at + 1 < data.size() && y < rows) {
        const std::uint8_t count = data[at], value = data[at + 1];
        at += 2;
        if (count > 0) {
            for (std::size_t i = 0; i < count; ++i)
                put(nibble(value, i));
        } else if (value == 0) {
            x = 0;
            ++y;
        } else if (value == 1) {
            return;
        } else if (value == 2) {
            if (at + 1 >= data.size()) return;
            x += data[at];
            y += data[at + 1];
            at += 2;
        } else {
            const std::size_t stored = four ? (value + 1u) / 2 : value;
            if (data.size() - at < stored) return;
            for (std::size_t i = 0; i < value; ++i)
                put(nibble(data[at + (four ? i / 2 : i)], four ? i : 0));
            at += (stored + 1) & ~std::size_t{1};
        }
    }
}

} // namespace

bool HasBitmapSignature(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M';
}

BitmapReadResult DecodeBitmap(std::span<const std::uint8_t> bytes, cDIBSection& image) {
    Header header;
    BitmapReadResult read = ReadHeader(bytes, header);
    if (!read) return read;
    const std::span<const std::uint8_t> data = bytes.subspan(header.pixelsAt);
    cDIBSection decoded;
    if (header.compression == kRle8 || header.compression == kRle4) {
        const std::size_t pixels =
            static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
        if (pixels > data.size() * kRunPixelsPerByte + kRunPixelsAllowance)
            return Refuse("the bitmap claims far more pixels than its data can hold");
        if (!decoded.Create(header.width, header.height)) return Refuse("the bitmap is too large");
        DecodeRuns(data, header, decoded);
    } else {
        read = DecodePlain(data, header, decoded);
        if (!read) return read;
    }
    image = std::move(decoded);
    return {true, {}};
}

BitmapReadResult LoadBitmapFile(const std::string& path, cDIBSection& image) {
    std::vector<std::uint8_t> bytes;
    std::string error;
    if (!ReadWholeFile(path, bytes, error)) return Refuse(error);
    return DecodeBitmap(bytes, image);
}

std::vector<std::uint8_t> EncodeBitmap(const cDIBSection& image) {
    if (image.IsEmpty()) return {};
    const std::size_t headers = kFileHeaderSize + kInfoHeaderSize;
    const std::size_t total = headers + image.SizeInBytes();
    std::vector<std::uint8_t> out(headers, 0);
    const auto put = [&out](std::size_t at, std::uint64_t value, int size) {
        for (int i = 0; i < size; ++i)
            out[at + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> (8 * i));
    };
    out[0] = 'B';
    out[1] = 'M';
    put(2, total, 4);
    put(10, headers, 4);
    put(14, kInfoHeaderSize, 4);
    put(18, static_cast<std::uint64_t>(image.Width()), 4);
    put(22, static_cast<std::uint64_t>(image.Height()), 4);
    put(26, 1, 2);  // planes
    put(28, 24, 2); // bits per pixel
    put(34, image.SizeInBytes(), 4);
    put(38, 2835, 4); // 72 pixels per inch, in pixels per metre
    put(42, 2835, 4);
    // The picture's rows are already bottom-up and padded to 4 bytes, as a bitmap stores them.
    out.insert(out.end(), image.Bits(), image.Bits() + image.SizeInBytes());
    return out;
}

bool SaveBitmap(const std::string& path, const cDIBSection& image, std::string& error) {
    const std::vector<std::uint8_t> bytes = EncodeBitmap(image);
    if (bytes.empty()) {
        error = "cannot write an empty picture";
        return false;
    }
    return WriteFileAtomically(path, bytes, error);
}
