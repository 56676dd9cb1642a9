#include "host/ss/ssget.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

#include "host/ads/input.h"
#include "host/ads/output.h"
#include "host/ads/prompts.h"
#include "host/ss/selection_sets.h"
#include "host/ss/ss_filter.h"
#include "host/sysvars/sysvars.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acedss.h"
#include "platform/acutads.h"
#include "platform/dbmain.h"

namespace lumo::host {
namespace {

std::string TypeOf(const resbuf* list) {
    for (; list; list = list->rbnext)
        if (list->restype == 0) return list->resval.rstring ? list->resval.rstring : "";
    return {};
}

bool InPaperSpace(const resbuf* list) {
    for (; list; list = list->rbnext)
        if (list->restype == 67) return list->resval.rint == 1;
    return false;
}

bool IsSubEntity(const std::string& type) { return type == "VERTEX" || type == "SEQEND" || type == "ATTRIB"; }

void NameOf(int32_t serial, ads_name out) {
    out[0] = serial;
    out[1] = 1;
}

resbuf* EntityWithXdata(int32_t serial) {
    ads_name name;
    NameOf(serial, name);
    resbuf* all = acutBuildList(RTSTR, "*", 0);
    resbuf* list = acdbEntGetX(name, all);
    acutRelRb(all);
    return list;
}

PlanPath Rectangle(PlanPoint a, PlanPoint b) {
    return {{a.x, a.y}, {b.x, a.y}, {b.x, b.y}, {a.x, b.y}};
}

// How far a pick reaches: PICKBOX pixels of the current view.
double PickReach() {
    SysVarValue box, size, screen;
    GetSysVar("PICKBOX", box);
    GetSysVar("VIEWSIZE", size);
    GetSysVar("SCREENSIZE", screen);
    double pixels = screen.p[1] > 0 ? screen.p[1] : 768;
    return std::max(box.i, 1) * (size.r > 0 ? size.r : 100) / pixels;
}

bool GeometryTest(const SelectionRequest& r, int32_t serial) {
    ads_name name;
    NameOf(serial, name);
    std::vector<PlanPath> paths;
    if (!EntityPlanPaths(name, paths)) return false;
    if (r.mode == "W") return PathsInside(paths, Rectangle(r.points[0], r.points[1]));
    if (r.mode == "C") return PathsCross(paths, Rectangle(r.points[0], r.points[1]));
    if (r.mode == "WP") return PathsInside(paths, r.points);
    if (r.mode == "CP") return PathsCross(paths, r.points);
    if (r.mode == "F") return PathsCrossFence(paths, r.points);
    if (r.mode == "PICK") return DistanceToPaths(paths, r.points[0]) <= PickReach();
    return true;
}

bool Interactive(const SelectionFilter& filter, std::vector<int32_t>& out, bool* cancelled);

// A pick takes the one entity nearest to the point; on a tie the one drawn
// last, which is on top.
int32_t Nearest(const std::vector<int32_t>& serials, PlanPoint p) {
    int32_t best = serials.front();
    double bestDistance = 1e300;
    for (int32_t serial : serials) {
        ads_name name;
        NameOf(serial, name);
        std::vector<PlanPath> paths;
        EntityPlanPaths(name, paths);
        double d = DistanceToPaths(paths, p);
        if (d <= bestDistance) {
            bestDistance = d;
            best = serial;
        }
    }
    return best;
}

}  // namespace

std::vector<int32_t> MainEntities() {
    std::vector<int32_t> out;
    ads_name cur, next;
    if (acdbEntNext(nullptr, cur) != RTNORM) return out;
    for (;;) {
        resbuf* list = acdbEntGet(cur);
        if (list && !IsSubEntity(TypeOf(list))) out.push_back(cur[0]);
        acutRelRb(list);
        if (acdbEntNext(cur, next) != RTNORM) break;
        std::memcpy(cur, next, sizeof cur);
    }
    return out;
}

std::vector<int32_t>& PickfirstSelection() {
    static std::vector<int32_t> pickfirst;
    return pickfirst;
}

bool SelectEntities(const SelectionRequest& r, std::vector<int32_t>& out, bool* cancelled) {
    out.clear();
    if (cancelled) *cancelled = false;
    SelectionFilter filter;
    if (!filter.Parse(r.filter)) return false;
    auto accept = [&](int32_t serial) {
        resbuf* list = EntityWithXdata(serial);
        bool ok = list && filter.Matches(list);
        acutRelRb(list);
        return ok;
    };
    std::vector<int32_t> candidates;
    if (r.mode == "X") {
        candidates = MainEntities();
    } else if (r.mode == "P") {
        candidates = PreviousSelection();
    } else if (r.mode == "I") {
        candidates = PickfirstSelection();
    } else if (r.mode == "L") {
        ads_name last;
        if (acdbEntLast(last) == RTNORM) candidates.push_back(last[0]);
    } else if (r.mode == "W" || r.mode == "C" || r.mode == "PICK") {
        if (r.points.size() < (r.mode == "PICK" ? 1u : 2u)) return false;
    } else if (r.mode == "WP" || r.mode == "CP") {
        if (r.points.size() < 3) return false;
    } else if (r.mode == "F") {
        if (r.points.size() < 2) return false;
    } else if (r.mode.empty()) {
        return Interactive(filter, out, cancelled);
    } else {
        return false;
    }
    if (candidates.empty() && r.mode != "X" && r.mode != "P" && r.mode != "I" && r.mode != "L") {
        // Geometric modes look at what the current space shows.
        for (int32_t serial : MainEntities()) {
            ads_name name;
            NameOf(serial, name);
            resbuf* list = acdbEntGet(name);
            bool visible = list && !InPaperSpace(list);
            acutRelRb(list);
            if (visible && GeometryTest(r, serial)) candidates.push_back(serial);
        }
        if (r.mode == "PICK" && candidates.size() > 1) candidates = {Nearest(candidates, r.points[0])};
    }
    for (int32_t serial : candidates)
        if (accept(serial)) out.push_back(serial);
    return true;
}

namespace {

bool ReadPoint(const char* prompt, PlanPoint& p, bool* cancelled) {
    ads_point pt;
    int rc = acedGetPoint(nullptr, prompt, pt);
    if (rc == RTCAN && cancelled) *cancelled = true;
    if (rc != RTNORM) return false;
    p = {pt[0], pt[1]};
    return true;
}

// "Select objects:" answered line by line: a point picks, W and C take two
// corners, ALL, L and P as in the host; an empty answer ends.
bool Interactive(const SelectionFilter& filter, std::vector<int32_t>& out, bool* cancelled) {
    std::vector<int32_t> chosen;
    for (;;) {
        char answer[133] = "";
        acedInitGet(128, "Window Crossing ALL Last Previous");
        int rc = acedGetString(0, "\nSelect objects: ", answer);
        if (rc == RTCAN) {
            if (cancelled) *cancelled = true;
            return false;
        }
        std::string word = answer;
        for (char& c : word) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (word.empty()) break;
        SelectionRequest step;
        ads_point pt;
        if (ParsePoint(answer, pt)) {
            step.mode = "PICK";
            step.points.push_back({pt[0], pt[1]});
        } else if (word == "W" || word == "C") {
            step.mode = word;
            PlanPoint a, b;
            if (!ReadPoint("\nFirst corner: ", a, cancelled) || !ReadPoint("\nOther corner: ", b, cancelled)) return false;
            step.points = {a, b};
        } else if (word == "ALL") {
            step.mode = "X";
        } else if (word == "L" || word == "P") {
            step.mode = word;
        } else {
            WriteOutput("*Invalid selection*\n");
            continue;
        }
        std::vector<int32_t> found;
        SelectEntities(step, found);
        size_t before = chosen.size();
        for (int32_t s : found) {
            resbuf* list = EntityWithXdata(s);
            bool ok = list && filter.Matches(list);
            acutRelRb(list);
            if (ok && std::find(chosen.begin(), chosen.end(), s) == chosen.end()) chosen.push_back(s);
        }
        WriteOutput(std::to_string(chosen.size() - before) + " found\n");
    }
    out = chosen;
    return true;
}

}  // namespace

}  // namespace lumo::host
