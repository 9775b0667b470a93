// libFuzzer target: the bitmap reader on arbitrary bytes, and the 16-bit RAW reader on the same
// bytes. A picture the bitmap reader accepts must respect the size limits, and, written back as a
// 24-bit bitmap, read again to the same pixels.
#include "mBitmapFile.h"
#include "mHeightMap16.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    Grey16Image grey;
    if (DecodeRaw16(bytes, 0, grey)) Require(grey.width <= kMaxGridSide && grey.height <= kMaxGridSide);
    cDIBSection image;
    if (!DecodeBitmap(bytes, image)) return 0;
    Require(image.Width() > 0 && image.Height() > 0);
    Require(image.Width() <= cDIBSection::kMaxSide && image.Height() <= cDIBSection::kMaxSide);
    const std::vector<std::uint8_t> written = EncodeBitmap(image);
    cDIBSection again;
    Require(static_cast<bool>(DecodeBitmap(written, again)));
    Require(again.Width() == image.Width() && again.Height() == image.Height());
    Require(std::equal(image.Bits(), image.Bits() + image.SizeInBytes(), again.Bits()));
    return 0;
}
