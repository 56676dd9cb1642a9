#include "host/display/view.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <map>

#include "host/sysvars/sysvars.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"

namespace lumo::host {
namespace {

// The host keeps the last ten views of each viewport for ZOOM Previous.
constexpr size_t kPreviousViews = 10;

struct ViewportState {
    View current;
    std::deque<View> previous;
};

std::map<int, ViewportState>& Viewports() {
    static std::map<int, ViewportState> viewports;
    return viewports;
}

int CurrentViewport() {
    SysVarValue tile, cvport;
    GetSysVar("TILEMODE", tile);
    GetSysVar("CVPORT", cvport);
    return tile.i != 0 ? 2 : std::max(cvport.i, 1);
}

ViewportState& Current() { return Viewports()[CurrentViewport()]; }

SysVarDef ViewVar(SysVarValue type, SysVarValue (*get)(), bool (*set)(const SysVarValue&)) {
    SysVarDef d;
    d.initial = std::move(type);
    d.readOnly = true;
    d.get = get;
    d.set = set;   // the host's own updates (forced)
    return d;
}

const bool kRegistered = [] {
    RegisterSysVar("VIEWCTR", ViewVar(
        PointVar(0, 0, 0),
        [] { const View& v = CurrentView(); return PointVar(v.center[0], v.center[1], 0); },
        [](const SysVarValue& p) {
            View v = CurrentView();
            v.center[0] = p.p[0];
            v.center[1] = p.p[1];
            ChangeView(v);
            return true;
        }));
    RegisterSysVar("VIEWSIZE", ViewVar(
        RealVar(0), [] { return RealVar(CurrentView().height); },
        [](const SysVarValue& h) {
            if (!(h.r > 0)) return false;
            View v = CurrentView();
            v.height = h.r;
            ChangeView(v);
            return true;
        }));
    RegisterSysVar("VIEWDIR", ViewVar(
        PointVar(0, 0, 1),
        [] { const View& v = CurrentView(); return PointVar(v.direction[0], v.direction[1], v.direction[2]); },
        [](const SysVarValue& d) {
            if (d.p[0] == 0 && d.p[1] == 0 && d.p[2] == 0) return false;
            View v = CurrentView();
            std::copy(d.p, d.p + 3, v.direction);
            ChangeView(v);
            return true;
        }));
    return true;
}();

}  // namespace

const View& CurrentView() {
    (void)kRegistered;
    return Current().current;
}

void ChangeView(const View& view) {
    ViewportState& s = Current();
    s.previous.push_back(s.current);
    if (s.previous.size() > kPreviousViews) s.previous.pop_front();
    s.current = view;
}

bool PreviousView() {
    ViewportState& s = Current();
    if (s.previous.empty()) return false;
    s.current = s.previous.back();
    s.previous.pop_back();
    return true;
}

double ScreenAspect() {
    SysVarValue screen;
    GetSysVar("SCREENSIZE", screen);
    return screen.p[0] > 0 && screen.p[1] > 0 ? screen.p[0] / screen.p[1] : 4.0 / 3.0;
}

void ZoomToBox(const double min[2], const double max[2]) {
    View v = CurrentView();
    double w = std::fabs(max[0] - min[0]), h = std::fabs(max[1] - min[1]);
    v.center[0] = (min[0] + max[0]) / 2;
    v.center[1] = (min[1] + max[1]) / 2;
    v.height = std::max(h, w / ScreenAspect());
    if (!(v.height > 0)) v.height = 1;   // a point: keep a unit view around it
    ChangeView(v);
}

void ResetViews() {
    Viewports().clear();
    resbuf* vport = acdbTblSearch("VPORT", "*ACTIVE", 0);
    View v;
    bool found = false;
    for (const resbuf* rb = vport; rb; rb = rb->rbnext) {
        if (rb->restype == 12) std::copy(rb->resval.rpoint, rb->resval.rpoint + 2, v.center);
        if (rb->restype == 16) std::copy(rb->resval.rpoint, rb->resval.rpoint + 3, v.direction);
        if (rb->restype == 40 && rb->resval.rreal > 0) v.height = rb->resval.rreal, found = true;
    }
    acutRelRb(vport);
    if (found) Viewports()[2].current = v;
}

}  // namespace lumo::host
