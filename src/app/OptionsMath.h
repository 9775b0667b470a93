#pragma once
// How the options dialog shows the stored preferences and turns its controls back into them.
// Whole numbers are rounded to nearest with ties to even throughout.

#include "AppSettings.h"
#include "Shell.h"

#include <string>

// The water's alpha (WaterTrans, 1 is opaque) as the translucency in percent that the dialog's
// bar shows: 100 - 100 x waterTrans, rounded. Not clamped; the bar holds itself to 0..100.
int WaterTransToPercent(float waterTrans);

// The stored WaterTrans for a bar value: 1 - percent x 0.01.
float PercentToWaterTrans(int percent);

// The caption beside the bar: "25% Translucent".
std::string TranslucencyLabel(int percent);

// A stored colour as its swatch shows it: each component x 255, rounded and held to 0..255.
ByteColour ColourToSwatch(const RgbColour& colour);

// A swatch's colour as it is stored: each byte / 256, rounded to five decimals (ties to even on
// the exact decimal value). Showing scales by 255 but storing divides by 256, so a colour grows a
// little darker each time the dialog is confirmed; the product keeps this on purpose.
RgbColour SwatchToColour(const ByteColour& swatch);
