#include "host/ads/transform.h"

#include <cmath>
#include <cstring>

#include "host/sysvars/sysvars.h"
#include "platform/acedads.h"

namespace lumo::host {

bool (*gEntityNormal)(const int32_t name[2], double normal[3]) = nullptr;

namespace {

struct Frame {
    double origin[3] = {0, 0, 0};
    double axes[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
};

void Cross(const double a[3], const double b[3], double out[3]) {
    out[0] = a[1] * b[2] - a[2] * b[1];
    out[1] = a[2] * b[0] - a[0] * b[2];
    out[2] = a[0] * b[1] - a[1] * b[0];
}

bool Normalize(double v[3]) {
    double len = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    if (len < 1e-12) return false;
    for (int i = 0; i < 3; ++i) v[i] /= len;
    return true;
}

Frame UcsFrame() {
    Frame f;
    SysVarValue org, xdir, ydir;
    if (!GetSysVar("UCSORG", org) || !GetSysVar("UCSXDIR", xdir) || !GetSysVar("UCSYDIR", ydir)) return f;
    std::memcpy(f.origin, org.p, sizeof f.origin);
    std::memcpy(f.axes[0], xdir.p, sizeof f.axes[0]);
    std::memcpy(f.axes[1], ydir.p, sizeof f.axes[1]);
    if (!Normalize(f.axes[0]) || !Normalize(f.axes[1])) return Frame{};
    Cross(f.axes[0], f.axes[1], f.axes[2]);
    return f;
}

Frame EcsFrame(const double normal[3]) {
    Frame f;
    EcsAxes(normal, f.axes[0], f.axes[1], f.axes[2]);
    return f;
}

// The coordinate system a resbuf names: 0 WCS, 1 UCS, 2 display (the plan
// view of the world), 3 paper space display; an entity name its ECS; a
// point an extrusion direction.
bool FrameOf(const resbuf* rb, Frame& out) {
    if (!rb) return false;
    switch (rb->restype) {
    case RTSHORT:
        if (rb->resval.rint == 1) out = UcsFrame();
        else if (rb->resval.rint >= 0 && rb->resval.rint <= 3) out = Frame{};
        else return false;
        return true;
    case RTENAME: {
        double normal[3] = {0, 0, 1};
        if (gEntityNormal && !gEntityNormal(rb->resval.rlname, normal)) return false;
        out = EcsFrame(normal);
        return true;
    }
    case RT3DPOINT: case RTPOINT:
        out = EcsFrame(rb->resval.rpoint);
        return true;
    default:
        return false;
    }
}

void ToWorld(const Frame& f, const double in[3], bool disp, double out[3]) {
    double w[3];
    for (int k = 0; k < 3; ++k)
        w[k] = (disp ? 0 : f.origin[k]) + in[0] * f.axes[0][k] + in[1] * f.axes[1][k] + in[2] * f.axes[2][k];
    std::memcpy(out, w, sizeof w);
}

void FromWorld(const Frame& f, const double in[3], bool disp, double out[3]) {
    double d[3], r[3];
    for (int k = 0; k < 3; ++k) d[k] = in[k] - (disp ? 0 : f.origin[k]);
    for (int a = 0; a < 3; ++a) r[a] = d[0] * f.axes[a][0] + d[1] * f.axes[a][1] + d[2] * f.axes[a][2];
    std::memcpy(out, r, sizeof r);
}

}  // namespace

void EcsAxes(const double normal[3], double xAxis[3], double yAxis[3], double zAxis[3]) {
    double n[3] = {normal[0], normal[1], normal[2]};
    if (!Normalize(n)) n[0] = 0, n[1] = 0, n[2] = 1;
    const double wy[3] = {0, 1, 0}, wz[3] = {0, 0, 1};
    if (std::fabs(n[0]) < 1.0 / 64 && std::fabs(n[1]) < 1.0 / 64) Cross(wy, n, xAxis);
    else Cross(wz, n, xAxis);
    Normalize(xAxis);
    Cross(n, xAxis, yAxis);
    Normalize(yAxis);
    std::memcpy(zAxis, n, sizeof n);
}

}  // namespace lumo::host

using namespace lumo::host;

int acedTrans(const ads_point pt, const resbuf* from, const resbuf* to, int disp, ads_point out) {
    Frame f, t;
    if (!pt || !out || !FrameOf(from, f) || !FrameOf(to, t)) return RTERROR;
    double world[3];
    ToWorld(f, pt, disp != 0, world);
    FromWorld(t, world, disp != 0, out);
    return RTNORM;
}

bool acdbUcs2Wcs(ads_point in, ads_point out, bool vec) {
    ToWorld(UcsFrame(), in, vec, out);
    return true;
}

bool acdbWcs2Ucs(ads_point in, ads_point out, bool vec) {
    FromWorld(UcsFrame(), in, vec, out);
    return true;
}
