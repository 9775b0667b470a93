#pragma once
// The cross-section of each coaster style: where the rails, the spine and the cross-piece points
// lie around the heartline, and how high above a traced point its guideline starts.
//
// Offsets are in the local frame of a traced point, world units: origin on the heartline (where
// the rider's heart is), +x to the right in the direction of travel, +y up (banked with the
// track), -z forward. Every offset lies in the cross-section plane (z = 0). The running rails hang
// about 1.2 units below the heartline, as a coaster's rails do under its riders.

#include "mMath3D.h"

// The seven points of one cross-section, as the drawn point records carry them.
struct RailLayout {
    Vector3 p1; // spine or centre beam: the third continuous rail; the apex styles 0 and 5 join the rails to
    Vector3 p2; // left running rail
    Vector3 p3; // right running rail
    Vector3 p4; // lower point under the left rail (bottom of the U-shaped cross-piece)
    Vector3 p5; // lower point under the right rail
    Vector3 p6; // outer point left of the left rail (wing of styles 9 to 12)
    Vector3 p7; // outer point right of the right rail
};

// Coaster styles with a layout of their own; any other style number uses the plain layout.
inline constexpr int kStyleCount = 13;

// The layout of a coaster style (trackStyle of the track chunk).
const RailLayout& RailLayoutOf(int style);

// Height above the heartline (local y, world units) at which a traced point's guideline starts.
float GuidelineOffset(int style);
