#include "host/display/display_list.h"

#include <cstdlib>
#include <cstring>

#include "platform/acedads.h"
#include "platform/acedgr.h"

namespace lumo::host {
namespace {

std::vector<ScreenVector> gVectors;
std::set<int32_t> gHighlighted, gHidden;

void ToWorld(const double in[3], double out[3]) {
    resbuf ucs{}, wcs{};
    ucs.restype = wcs.restype = RTSHORT;
    ucs.resval.rint = 1;
    if (acedTrans(in, &ucs, &wcs, 0, out) != RTNORM) std::memcpy(out, in, 3 * sizeof(double));
}

}  // namespace

const std::vector<ScreenVector>& ScreenVectors() { return gVectors; }
const std::set<int32_t>& HighlightedEntities() { return gHighlighted; }
const std::set<int32_t>& HiddenEntities() { return gHidden; }

// The standard colours 1-9, then a wheel of hues for 10-249 and greys for
// 250-255; 7 draws black on the white pictures the renderer makes.
uint32_t ColorRgb(int color) {
    static const uint32_t first[10] = {0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                       0x0000FF, 0xFF00FF, 0x000000, 0x808080, 0xC0C0C0};
    if (color >= 0 && color < 10) return first[color];
    if (color >= 250 && color <= 255) {
        uint32_t g = static_cast<uint32_t>(51 + (color - 250) * 40);
        return g << 16 | g << 8 | g;
    }
    if (color < 10 || color > 249) return 0;
    // Hue steps of 15 degrees; the last digit dims the colour.
    int hue = (color - 10) / 10 * 15, shade = (color % 10) / 2;
    double f = 1.0 - shade * 0.2;
    double r = 0, g = 0, b = 0, h = hue / 60.0;
    double x = 1 - std::abs(static_cast<int>(h) % 2 + (h - static_cast<int>(h)) - 1);
    switch (static_cast<int>(h)) {
    case 0: r = 1; g = x; break;
    case 1: r = x; g = 1; break;
    case 2: g = 1; b = x; break;
    case 3: g = x; b = 1; break;
    case 4: r = x; b = 1; break;
    default: r = 1; b = x; break;
    }
    auto c = [f](double v) { return static_cast<uint32_t>(v * f * 255 + 0.5); };
    return c(r) << 16 | c(g) << 8 | c(b);
}

}  // namespace lumo::host

using namespace lumo::host;

int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight) {
    if (!from || !to) return RTERROR;
    ScreenVector v{};
    ToWorld(from, v.from);
    ToWorld(to, v.to);
    v.color = color;
    v.highlight = highlight != 0;
    gVectors.push_back(v);
    return RTNORM;
}

int acedGrVecs(const resbuf* vlist, ads_matrix mat) {
    int color = 7;
    for (const resbuf* rb = vlist; rb; rb = rb->rbnext) {
        if (rb->restype == RTSHORT) {
            color = rb->resval.rint;
            continue;
        }
        if (rb->restype != RTPOINT && rb->restype != RT3DPOINT) return RTERROR;
        const resbuf* end = rb->rbnext;
        if (!end || (end->restype != RTPOINT && end->restype != RT3DPOINT)) return RTERROR;
        double p[2][3];
        for (int k = 0; k < 2; ++k) {
            const double* q = (k == 0 ? rb : end)->resval.rpoint;
            for (int i = 0; i < 3; ++i)
                p[k][i] = mat ? mat[i][0] * q[0] + mat[i][1] * q[1] + mat[i][2] * q[2] + mat[i][3] : q[i];
        }
        acedGrDraw(p[0], p[1], color < 0 ? -color : color, color < 0);
        rb = end;
    }
    return RTNORM;
}

int acedRedraw(const ads_name ent, int mode) {
    if (!ent) {
        if (mode == 0 || mode == 1) gVectors.clear();
        return RTNORM;
    }
    if (ent[1] != 1) return RTERROR;
    switch (mode) {
    case 1: gHidden.erase(ent[0]); break;
    case 2: gHidden.insert(ent[0]); break;
    case 3: gHighlighted.insert(ent[0]); break;
    case 4: gHighlighted.erase(ent[0]); break;
    default: return RTERROR;
    }
    return RTNORM;
}

int acedGetRGB(int color) { return static_cast<int>(ColorRgb(color)); }
