#pragma once
// cDIBSection: a 24-bit picture in memory laid out as a device-independent bitmap. Rows run
// bottom-up (row 0 is the bottom row of the picture); each pixel is three bytes blue, green, red;
// each row is padded with zero bytes to a multiple of 4 bytes (BytesPerScanLine). The object owns
// its bytes and copies like a value. An empty image (after ClearUp or a refused Create) has
// width and height 0 and no bits.
//
// Putting the picture on the system clipboard belongs to the user interface: it takes Bits(),
// Width(), Height() and BytesPerScanLine() from here.

#include "RandomSource.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class cDIBSection {
public:
    static constexpr int kMaxSide = 16384;
    static constexpr std::size_t kMaxBytes = std::size_t{256} << 20;

    // Replaces any previous picture by a black one of the given size. Refuses (returns false and
    // leaves the image empty) a side <= 0 or above kMaxSide, or more than kMaxBytes of bits.
    bool Create(int width, int height);
    void ClearUp();

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool IsEmpty() const { return bits_.empty(); }
    // width * 3 rounded up to a multiple of 4.
    int BytesPerScanLine() const { return ScanLineBytes(width_); }
    static int ScanLineBytes(int width) { return (width * 3 + 3) & ~3; }

    // The first byte of the bottom row; nullptr when empty. Height() rows of BytesPerScanLine().
    std::uint8_t* Bits() { return bits_.empty() ? nullptr : bits_.data(); }
    const std::uint8_t* Bits() const { return bits_.empty() ? nullptr : bits_.data(); }
    std::size_t SizeInBytes() const { return bits_.size(); }

    // Row 0 is the bottom row; the row must lie in 0 .. Height() - 1.
    std::uint8_t* Row(int row) { return bits_.data() + Offset(row); }
    const std::uint8_t* Row(int row) const { return bits_.data() + Offset(row); }

    // The pixels without row padding, bottom row first, blue-green-red: what a texture upload or
    // a Targa file wants.
    std::vector<std::uint8_t> PackedBgr() const;

    // Fills every pixel with random bytes; with gray set, blue, green and red of a pixel are equal.
    // The padding stays zero. Takes one number from random per byte (gray: per pixel).
    void RandomiseBits(bool gray, RandomSource& random);

    // A new picture of the given size made from this one; empty when either is empty or the size
    // is refused. Each axis is filtered on its own: an axis that grows is interpolated linearly
    // between the centres of the source pixels, an axis that shrinks averages the source pixels
    // each target pixel covers, weighted by the covered fraction (an area average, so thin
    // details fade rather than flicker). Pixels beyond the edges repeat the edge pixel.
    cDIBSection Resample(int newHeight, int newWidth) const;

private:
    std::size_t Offset(int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(BytesPerScanLine());
    }

    int width_ = 0;
    int height_ = 0;
    std::vector<std::uint8_t> bits_;
};
