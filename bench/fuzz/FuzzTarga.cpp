// libFuzzer target: the Targa reader on arbitrary bytes. A picture it accepts has the size its
// header gives, and its pixels written back read as the same picture.
#include "mPictureLoader.h"
#include "mSaveTGA.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    cDIBSection image;
    if (!DecodeTarga({data, size}, image)) return 0;
    if (size < 18 || image.Width() != (data[12] | data[13] << 8) ||
        image.Height() != (data[14] | data[15] << 8))
        std::abort();
    cDIBSection again;
    if (!DecodeTarga(EncodeTGA(image.PackedBgr(), image.Width(), image.Height()), again) ||
        again.PackedBgr() != image.PackedBgr())
        std::abort();
    return 0;
}
