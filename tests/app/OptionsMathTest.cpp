#include "OptionsMath.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// The byte a swatch shows for a stored component.
int Shown(float component) {
    return ColourToSwatch({component, 0.0f, 0.0f}).r;
}

// The component stored for a swatch byte.
float Stored(int byte) {
    return SwatchToColour({byte, 0, 0}).r;
}

} // namespace

TEST(WaterTranslucency, StoredAlphaShowsAsPercentTranslucentRoundedToEven) {
    EXPECT_EQ(WaterTransToPercent(0.75f), 25);
    EXPECT_EQ(TranslucencyLabel(WaterTransToPercent(0.75f)), "25% Translucent");
    EXPECT_EQ(WaterTransToPercent(1.0f), 0) << "opaque water";
    EXPECT_EQ(WaterTransToPercent(0.0f), 100);
    EXPECT_EQ(WaterTransToPercent(0.125f), 88); // 87.5
    EXPECT_EQ(WaterTransToPercent(0.375f), 62); // 62.5
}

TEST(WaterTranslucency, BarValueStoresBackAsAlpha) {
    EXPECT_FLOAT_EQ(PercentToWaterTrans(40), 0.6f);
    EXPECT_FLOAT_EQ(PercentToWaterTrans(0), 1.0f);
    EXPECT_FLOAT_EQ(PercentToWaterTrans(100), 0.0f);
    // Opening the dialog again must show the value the user confirmed, whatever the float error.
    for (int percent = 0; percent <= 100; ++percent)
        EXPECT_EQ(WaterTransToPercent(PercentToWaterTrans(percent)), percent) << percent;
}

TEST(ColourSwatch, ShowsEachComponentScaledTo255RoundedToEven) {
    EXPECT_EQ(ColourToSwatch({1.0f, 0.5f, 0.0f}), (ByteColour{255, 128, 0})); // 127.5 goes up to even
    EXPECT_EQ(Shown(0.3f), 76) << "76.5 goes down to even";
    EXPECT_EQ(Shown(0.75f), 191); // 191.25
    EXPECT_EQ(Shown(0.2f), 51);
}

TEST(ColourSwatch, ComponentsOutsideZeroToOneAreHeldToByteRange) {
    // A hand-edited settings file may hold anything.
    EXPECT_EQ(ColourToSwatch({-0.5f, 1.5f, 2.0f}), (ByteColour{0, 255, 255}));
    EXPECT_EQ(Shown(std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST(ColourSwatch, StoresEachByteOver256RoundedToFiveDecimals) {
    EXPECT_EQ(SwatchToColour({128, 0, 0}), (RgbColour{0.5f, 0.0f, 0.0f}));
    EXPECT_FLOAT_EQ(Stored(255), 0.99609f); // 0.99609375
    EXPECT_FLOAT_EQ(Stored(1), 0.00391f);   // 0.00390625
    EXPECT_FLOAT_EQ(Stored(64), 0.25f);
    // Exact ties on the fifth decimal go to even.
    EXPECT_FLOAT_EQ(Stored(4), 0.01562f);  // 0.015625
    EXPECT_FLOAT_EQ(Stored(12), 0.04688f); // 0.046875
}

TEST(ColourSwatch, EachConfirmDarkensABrightComponentByOneAndKeepsADarkOne) {
    // Showing scales by 255, storing divides by 256: a byte above the middle loses one step per
    // confirm, while 128 and below come back unchanged, so colours settle instead of going black.
    for (int byte = 0; byte <= 255; ++byte) {
        const int expected = byte > 128 ? byte - 1 : byte;
        EXPECT_EQ(Shown(Stored(byte)), expected) << byte;
    }
}

TEST(ColourSwatch, StoredOneShowsAs255AndDarkensWithEveryConfirm) {
    EXPECT_EQ(ColourToSwatch({1.0f, 1.0f, 1.0f}), (ByteColour{255, 255, 255}));
    EXPECT_EQ(SwatchToColour({255, 255, 255}), (RgbColour{0.99609f, 0.99609f, 0.99609f}));
    float component = 1.0f;
    for (int confirm = 1; confirm <= 5; ++confirm) {
        const float previous = component;
        component = Stored(Shown(component));
        EXPECT_LT(component, previous) << "confirm " << confirm;
    }
    EXPECT_EQ(Shown(component), 250);
}
