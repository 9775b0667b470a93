#include "mCV_TrackStyles.h"

#include <array>

namespace {

// A point of the cross-section: across (x, + to the right) and up (y), world units.
constexpr Vector3 At(float x, float y) {
    return {x, y, 0.0f};
}

// Each table gives P1 spine or centre beam, P2 left rail, P3 right rail, P4 under the left rail,
// P5 under the right rail, P6 left wing tip, P7 right wing tip, as (local x across, local y up).
// Styles whose cross-piece does not use a point still give it a place on the structure, so
// that every drawn point stays a meaningful part of the track.

// Style 0: two rails joined by V-shaped ties to a single tubular spine below the track centre.
constexpr RailLayout kStyle0{.p1 = At(0.0f, -1.9f),
                             .p2 = At(-0.6f, -1.2f),
                             .p3 = At(0.6f, -1.2f),
                             .p4 = At(-0.6f, -1.5f),
                             .p5 = At(0.6f, -1.5f),
                             .p6 = At(-0.6f, -1.2f),
                             .p7 = At(0.6f, -1.2f)};

// Style 1: shallow U-shaped ties under the rails; the centre beam runs along the bottom of the U.
constexpr RailLayout kStyle1{.p1 = At(0.0f, -1.7f),
                             .p2 = At(-0.6f, -1.2f),
                             .p3 = At(0.6f, -1.2f),
                             .p4 = At(-0.6f, -1.7f),
                             .p5 = At(0.6f, -1.7f),
                             .p6 = At(-0.6f, -1.2f),
                             .p7 = At(0.6f, -1.2f)};

// Style 2: wide gauge and a deep box of ties under the rails.
constexpr RailLayout kStyle2{.p1 = At(0.0f, -2.1f),
                             .p2 = At(-0.7f, -1.3f),
                             .p3 = At(0.7f, -1.3f),
                             .p4 = At(-0.7f, -2.1f),
                             .p5 = At(0.7f, -2.1f),
                             .p6 = At(-0.7f, -1.3f),
                             .p7 = At(0.7f, -1.3f)};

// Style 3: standard U-shaped ties of middle depth.
constexpr RailLayout kStyle3{.p1 = At(0.0f, -1.6f),
                             .p2 = At(-0.6f, -1.2f),
                             .p3 = At(0.6f, -1.2f),
                             .p4 = At(-0.6f, -1.6f),
                             .p5 = At(0.6f, -1.6f),
                             .p6 = At(-0.6f, -1.2f),
                             .p7 = At(0.6f, -1.2f)};

// Style 4: narrower gauge with a flat U close under the rails.
constexpr RailLayout kStyle4{.p1 = At(0.0f, -1.5f),
                             .p2 = At(-0.55f, -1.2f),
                             .p3 = At(0.55f, -1.2f),
                             .p4 = At(-0.55f, -1.5f),
                             .p5 = At(0.55f, -1.5f),
                             .p6 = At(-0.55f, -1.2f),
                             .p7 = At(0.55f, -1.2f)};

// Style 5: a triangular truss: both rails joined to each other and to a deep spine at the apex.
constexpr RailLayout kStyle5{.p1 = At(0.0f, -2.4f),
                             .p2 = At(-0.6f, -1.2f),
                             .p3 = At(0.6f, -1.2f),
                             .p4 = At(-0.3f, -1.8f),
                             .p5 = At(0.3f, -1.8f),
                             .p6 = At(-0.6f, -1.2f),
                             .p7 = At(0.6f, -1.2f)};

// Style 6: U-shaped ties, deeper than style 3.
constexpr RailLayout kStyle6{.p1 = At(0.0f, -1.8f),
                             .p2 = At(-0.6f, -1.2f),
                             .p3 = At(0.6f, -1.2f),
                             .p4 = At(-0.6f, -1.8f),
                             .p5 = At(0.6f, -1.8f),
                             .p6 = At(-0.6f, -1.2f),
                             .p7 = At(0.6f, -1.2f)};

// Style 7: a small car's narrow track: rails closer together and closer to the rider.
constexpr RailLayout kStyle7{.p1 = At(0.0f, -1.5f),
                             .p2 = At(-0.5f, -1.1f),
                             .p3 = At(0.5f, -1.1f),
                             .p4 = At(-0.5f, -1.5f),
                             .p5 = At(0.5f, -1.5f),
                             .p6 = At(-0.5f, -1.1f),
                             .p7 = At(0.5f, -1.1f)};

// Style 8: heavy timber-like ties reaching well below the rails.
constexpr RailLayout kStyle8{.p1 = At(0.0f, -2.0f),
                             .p2 = At(-0.6f, -1.2f),
                             .p3 = At(0.6f, -1.2f),
                             .p4 = At(-0.6f, -2.0f),
                             .p5 = At(0.6f, -2.0f),
                             .p6 = At(-0.6f, -1.2f),
                             .p7 = At(0.6f, -1.2f)};

// Styles 9 to 12: U-shaped ties with a wing reaching out and up beside each rail.
constexpr RailLayout kStyle9{.p1 = At(0.0f, -1.6f),
                             .p2 = At(-0.6f, -1.2f),
                             .p3 = At(0.6f, -1.2f),
                             .p4 = At(-0.6f, -1.6f),
                             .p5 = At(0.6f, -1.6f),
                             .p6 = At(-1.2f, -1.0f),
                             .p7 = At(1.2f, -1.0f)};

constexpr RailLayout kStyle10{.p1 = At(0.0f, -1.7f),
                              .p2 = At(-0.6f, -1.2f),
                              .p3 = At(0.6f, -1.2f),
                              .p4 = At(-0.6f, -1.7f),
                              .p5 = At(0.6f, -1.7f),
                              .p6 = At(-1.4f, -0.9f),
                              .p7 = At(1.4f, -0.9f)};

// Style 11: wings held level with the rails.
constexpr RailLayout kStyle11{.p1 = At(0.0f, -1.6f),
                              .p2 = At(-0.6f, -1.2f),
                              .p3 = At(0.6f, -1.2f),
                              .p4 = At(-0.6f, -1.6f),
                              .p5 = At(0.6f, -1.6f),
                              .p6 = At(-1.5f, -1.2f),
                              .p7 = At(1.5f, -1.2f)};

// Style 12: wings sloping down and out.
constexpr RailLayout kStyle12{.p1 = At(0.0f, -1.7f),
                              .p2 = At(-0.6f, -1.2f),
                              .p3 = At(0.6f, -1.2f),
                              .p4 = At(-0.6f, -1.7f),
                              .p5 = At(0.6f, -1.7f),
                              .p6 = At(-1.3f, -1.5f),
                              .p7 = At(1.3f, -1.5f)};

// Any other style: the rails and points of style 3; the renderer draws no cross-piece for it.
constexpr RailLayout kPlainStyle = kStyle3;

constexpr std::array<RailLayout, kStyleCount> kStyles{kStyle0,  kStyle1,  kStyle2, kStyle3, kStyle4,
                                                      kStyle5,  kStyle6,  kStyle7, kStyle8, kStyle9,
                                                      kStyle10, kStyle11, kStyle12};

} // namespace

const RailLayout& RailLayoutOf(int style) {
    if (style < 0 || style >= kStyleCount) return kPlainStyle;
    return kStyles[static_cast<std::size_t>(style)];
}

float GuidelineOffset(int style) {
    switch (style) {
    case 0:
    case 3:
    case 6:
    case 7:
    case 8:
        return -0.3f;
    case 1:
        return -0.6f;
    case 2:
        return 0.6f;
    case 4:
        return 0.3f;
    case 5:
        return -1.0f;
    case 9:
    case 10:
    case 11:
    case 12:
        return -0.2f;
    default:
        return 0.0f;
    }
}
