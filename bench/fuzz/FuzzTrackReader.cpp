// libFuzzer target: the track reader on arbitrary bytes. Whatever it accepts must write back as a
// file it accepts again, unchanged.
#include "TrackFile.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TrackDocument doc;
    if (!ParseTrack({data, size}, doc)) return 0;
    const std::vector<std::uint8_t> written = SerializeTrack(doc);
    TrackDocument again;
    if (!ParseTrack(written, again) || SerializeTrack(again) != written) std::abort();
    return 0;
}
