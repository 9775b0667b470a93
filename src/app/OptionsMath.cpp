#include "OptionsMath.h"

#include <algorithm>
#include <cmath>

namespace {

// Showing works in single precision, as the settings are held: a stored 0.3 scales to exactly
// 76.5 and goes to the even 76, as its decimal value would.
int ComponentToByte(float component) {
    const float scaled = std::nearbyint(component * 255.0f);
    if (!(scaled > 0.0f)) return 0; // also NaN
    return static_cast<int>(std::min(scaled, 255.0f));
}

float ByteToComponent(int byte) {
    // byte / 256 x 100000 = byte x 390.625 is exact in a double, so the tie to even is decided on
    // the true decimal value: 4 / 256 = 0.015625 becomes 0.01562.
    const double scaled = std::nearbyint(std::clamp(byte, 0, 255) * (100000.0 / 256.0));
    return static_cast<float>(scaled / 100000.0);
}

} // namespace

int WaterTransToPercent(float waterTrans) {
    return static_cast<int>(std::lrint(100.0f - 100.0f * waterTrans));
}

float PercentToWaterTrans(int percent) {
    return static_cast<float>(1.0 - percent * 0.01);
}

std::string TranslucencyLabel(int percent) {
    return std::to_string(percent) + "% Translucent";
}

ByteColour ColourToSwatch(const RgbColour& colour) {
    return {ComponentToByte(colour.r), ComponentToByte(colour.g), ComponentToByte(colour.b)};
}

RgbColour SwatchToColour(const ByteColour& swatch) {
    return {ByteToComponent(swatch.r), ByteToComponent(swatch.g), ByteToComponent(swatch.b)};
}
