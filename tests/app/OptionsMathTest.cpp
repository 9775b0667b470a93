#include "OptionsMath.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// The byte a swatch shows for a stored component, and the component stored for a swatch byte.
int Shown(float component) {
    return ColourToSwatch({component, 0.0f, 0.0f}).r;
}
float Stored(int byte) {
    return SwatchToColour({byte, 0, 0}).r;
}

} // namespace

TEST(WaterTranslucency, StoredAlphaShowsAsPercentTranslucentRoundedToEvenAndStoresBackUnchanged) {
    EXPECT_EQ(TranslucencyLabel(WaterTransToPercent(0.75f)), "25% Translucent");
    const std::pair<float, int> shown[] = {{1.0f, 0}, {0.0f, 100}, {0.125f, 88}, {0.375f, 62}}; // 87.5, 62.5
    for (const auto& [alpha, percent] : shown)
        EXPECT_EQ(WaterTransToPercent(alpha), percent) << alpha;
    EXPECT_FLOAT_EQ(PercentToWaterTrans(40), 0.6f);
    // Opening the dialog again must show the value the user confirmed, whatever the float error.
    for (int percent = 0; percent <= 100; ++percent)
        EXPECT_EQ(WaterTransToPercent(PercentToWaterTrans(percent)), percent) << percent;
}

TEST(ColourSwatch, ShowsEachComponentTimes255RoundedToEvenAndHeldToByteRange) {
    EXPECT_EQ(ColourToSwatch({1.0f, 0.5f, 0.0f}), (ByteColour{255, 128, 0})); // 127.5 goes up to even
    // A hand-edited settings file may hold anything.
    EXPECT_EQ(ColourToSwatch({-0.5f, 1.5f, 2.0f}), (ByteColour{0, 255, 255}));
    const std::pair<float, int> cases[] = {
        {0.3f, 76}, {0.75f, 191}, {std::numeric_limits<float>::quiet_NaN(), 0}}; // 76.5, 191.25
    for (const auto& [component, byte] : cases)
        EXPECT_EQ(Shown(component), byte) << component;
}

TEST(ColourSwatch, StoresEachByteOver256RoundedToFiveDecimalsAndEachConfirmDarkensOnlyBrightOnes) {
    EXPECT_EQ(SwatchToColour({128, 255, 64}), (RgbColour{0.5f, 0.99609f, 0.25f}));
    // 0.00390625, and exact ties on the fifth decimal (0.015625, 0.046875) to even.
    const std::pair<int, float> cases[] = {{1, 0.00391f}, {4, 0.01562f}, {12, 0.04688f}};
    for (const auto& [byte, component] : cases)
        EXPECT_FLOAT_EQ(Stored(byte), component) << byte;
    // Showing scales by 255, storing divides by 256: a byte above the middle loses one step per
    // confirm, while 128 and below come back unchanged, so colours settle instead of going black.
    for (int byte = 0; byte <= 255; ++byte)
        EXPECT_EQ(Shown(Stored(byte)), byte > 128 ? byte - 1 : byte) << byte;
}
