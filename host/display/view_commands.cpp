// The view commands: ZOOM changes the current view; REDRAW and REGEN clear
// the temporary vectors, and REGEN brings the drawing's extents up to date.
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <string>

#include "host/ads/commands.h"
#include "host/ads/output.h"
#include "host/ads/prompts.h"
#include "host/display/view.h"
#include "host/sysvars/sysvars.h"
#include "platform/acedads.h"
#include "platform/acedgr.h"
#include "platform/acge.h"
#include "platform/dbmain.h"

namespace lumo::host {
namespace {

std::string Upper(std::string s) {
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

// The first letters of an option name, as the host takes them.
bool IsOption(const std::string& word, const char* name, size_t least = 1) {
    std::string full = Upper(name);
    return word.size() >= least && word.size() <= full.size() && full.compare(0, word.size(), word) == 0;
}

// "2" scales the limits' view, "2X" the current view; false for no number.
bool ParseScale(const std::string& word, double& factor, bool& relative) {
    char* end = nullptr;
    factor = std::strtod(word.c_str(), &end);
    if (end == word.c_str() || !(factor > 0)) return false;
    std::string rest = Upper(end);
    relative = rest == "X" || rest == "XP";
    return rest.empty() || relative;
}

bool DrawingExtents(double min[2], double max[2]) {
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (!db) return false;
    db->updateExt(true);
    AcGePoint3d lo = db->extmin(), hi = db->extmax();
    if (lo.x > hi.x || lo.y > hi.y) return false;
    min[0] = lo.x, min[1] = lo.y, max[0] = hi.x, max[1] = hi.y;
    return true;
}

void Limits(double min[2], double max[2]) {
    SysVarValue lo, hi;
    GetSysVar("LIMMIN", lo);
    GetSysVar("LIMMAX", hi);
    min[0] = lo.p[0], min[1] = lo.p[1], max[0] = hi.p[0], max[1] = hi.p[1];
}

void ZoomWindow(const ads_point first) {
    ads_point a, b;
    if (first) {
        a[0] = first[0], a[1] = first[1], a[2] = 0;
    } else if (acedGetPoint(nullptr, "\nSpecify first corner: ", a) != RTNORM) {
        return;
    }
    if (acedGetPoint(a, "\nSpecify opposite corner: ", b) != RTNORM) return;
    double lo[2] = {std::min(a[0], b[0]), std::min(a[1], b[1])};
    double hi[2] = {std::max(a[0], b[0]), std::max(a[1], b[1])};
    ZoomToBox(lo, hi);
}

void ZoomScale(double factor, bool relative) {
    View v = CurrentView();
    if (relative) {
        v.height /= factor;
    } else {
        double lo[2], hi[2];
        Limits(lo, hi);
        v.height = std::max(std::fabs(hi[1] - lo[1]), std::fabs(hi[0] - lo[0]) / ScreenAspect()) / factor;
    }
    ChangeView(v);
}

void ZoomCenter() {
    ads_point c;
    if (acedGetPoint(nullptr, "\nSpecify center point: ", c) != RTNORM) return;
    View v = CurrentView();
    char text[133] = "";
    std::string prompt = "\nEnter magnification or height <" + std::to_string(v.height) + ">: ";
    if (acedGetString(0, prompt.c_str(), text) != RTNORM) return;
    double factor = 0;
    bool relative = false;
    v.center[0] = c[0];
    v.center[1] = c[1];
    if (*text && ParseScale(text, factor, relative)) v.height = relative ? v.height / factor : factor;
    ChangeView(v);
}

void Zoom() {
    char text[133] = "";
    if (acedGetString(0,
                      "\nSpecify corner of window, enter a scale factor (nX or nXP), or\n"
                      "[All/Center/Dynamic/Extents/Previous/Scale/Window] <real time>: ",
                      text) != RTNORM)
        return;
    std::string word = Upper(text);
    ads_point corner;
    double factor = 0, lo[2], hi[2];
    bool relative = false;
    if (word.empty()) return;   // real time: nothing to do without a mouse
    if (ParsePoint(text, corner)) {
        ZoomWindow(corner);
    } else if (ParseScale(word, factor, relative)) {
        ZoomScale(factor, relative);
    } else if (IsOption(word, "All")) {
        double elo[2], ehi[2];
        Limits(lo, hi);
        if (DrawingExtents(elo, ehi))
            for (int i = 0; i < 2; ++i) lo[i] = std::min(lo[i], elo[i]), hi[i] = std::max(hi[i], ehi[i]);
        ZoomToBox(lo, hi);
    } else if (IsOption(word, "Center")) {
        ZoomCenter();
    } else if (IsOption(word, "Extents")) {
        if (!DrawingExtents(lo, hi)) Limits(lo, hi);   // an empty drawing shows its limits
        ZoomToBox(lo, hi);
    } else if (IsOption(word, "Previous")) {
        if (!PreviousView()) WriteOutput("\nNo previous view saved.\n");
    } else if (IsOption(word, "Scale")) {
        if (acedGetString(0, "\nEnter a scale factor (nX or nXP): ", text) == RTNORM &&
            ParseScale(Upper(text), factor, relative))
            ZoomScale(factor, relative);
    } else if (IsOption(word, "Window") || IsOption(word, "Dynamic")) {
        // Dynamic takes its new view as a window, typed like one.
        ZoomWindow(nullptr);
    } else {
        WriteOutput("\nInvalid option keyword.\n");
    }
}

void Redraw() { acedRedraw(nullptr, 0); }

void Regen() {
    acedRedraw(nullptr, 0);
    double lo[2], hi[2];
    DrawingExtents(lo, hi);
}

[[maybe_unused]] const bool kRegistered = [] {
    RegisterCommand("ZOOM", Zoom);
    RegisterCommand("REDRAW", Redraw);
    RegisterCommand("REDRAWALL", Redraw);
    RegisterCommand("REGEN", Regen);
    RegisterCommand("REGENALL", Regen);
    return true;
}();

}  // namespace
}  // namespace lumo::host
