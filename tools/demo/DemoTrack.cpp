#include "DemoTrack.h"

// Placeholder until the demo circuit lands: an empty document.
TrackDocument MakeDemoTrack(const DemoOptions&) { return {}; }
