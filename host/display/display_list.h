// What the host's screen shows beyond the drawing itself: temporary vectors
// drawn by acedGrDraw and acedGrVecs (until the next redraw), and the
// highlighted and hidden entities. Tests and the renderer read it.
#pragma once
#include <cstdint>
#include <set>
#include <vector>

namespace lumo::host {

struct ScreenVector {
    double from[3], to[3];  // world coordinates
    int color;
    bool highlight;
};

const std::vector<ScreenVector>& ScreenVectors();
const std::set<int32_t>& HighlightedEntities();
const std::set<int32_t>& HiddenEntities();
// The RGB of an AutoCAD colour number, 0xRRGGBB.
uint32_t ColorRgb(int color);

}  // namespace lumo::host
