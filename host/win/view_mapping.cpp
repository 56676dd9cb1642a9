// Pixels of the host's window to world points and back, for the current
// view: VIEWCTR at the centre of a SCREENSIZE window, VIEWSIZE world units
// high, y up.
#include <cmath>

#include "host/sysvars/sysvars.h"
#include "platform/acedwin.h"

namespace {

struct View {
    double cx, cy, height, width, pixelsHigh;
};

View CurrentView() {
    lumo::host::SysVarValue ctr, size, screen;
    lumo::host::GetSysVar("VIEWCTR", ctr);
    lumo::host::GetSysVar("VIEWSIZE", size);
    lumo::host::GetSysVar("SCREENSIZE", screen);
    double h = screen.p[1] > 0 ? screen.p[1] : 768;
    return {ctr.p[0], ctr.p[1], size.r > 0 ? size.r : 100, screen.p[0] > 0 ? screen.p[0] : 1024, h};
}

}  // namespace

bool acedCoordFromPixelToWorld(int, POINT pixel, ads_point out) {
    View v = CurrentView();
    double scale = v.height / v.pixelsHigh;
    out[0] = v.cx + (pixel.x - v.width / 2) * scale;
    out[1] = v.cy + (v.pixelsHigh / 2 - pixel.y) * scale;
    out[2] = 0;
    return true;
}

bool acedCoordFromWorldToPixel(int, const ads_point world, POINT& out) {
    View v = CurrentView();
    double scale = v.pixelsHigh / v.height;
    out.x = static_cast<int32_t>(std::lround(v.width / 2 + (world[0] - v.cx) * scale));
    out.y = static_cast<int32_t>(std::lround(v.pixelsHigh / 2 - (world[1] - v.cy) * scale));
    return true;
}
