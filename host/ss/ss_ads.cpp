// The ADS calls on selection sets.
#include <cctype>
#include <cstring>
#include <string>

#include "host/ss/selection_sets.h"
#include "host/ss/ssget.h"
#include "platform/acdbads.h"
#include "platform/acge.h"
#include "platform/acedss.h"
#include "platform/acutads.h"
#include "platform/dbmain.h"

using namespace lumo::host;

namespace {

bool IsEntity(const ads_name ent) {
    if (!ent || ent[1] != 1) return false;
    resbuf* list = acdbEntGet(ent);
    acutRelRb(list);
    return list != nullptr;
}

std::vector<PlanPoint> ChainPoints(const resbuf* chain) {
    std::vector<PlanPoint> points;
    for (; chain; chain = chain->rbnext)
        if (chain->restype == RTPOINT || chain->restype == RT3DPOINT)
            points.push_back({chain->resval.rpoint[0], chain->resval.rpoint[1]});
    return points;
}

// "_X", ":S" and the like: the underscore and the colon options do not
// change what is selected here.
std::string ModeOf(const char* str) {
    std::string mode;
    for (const char* p = str ? str : ""; *p; ++p) {
        if (*p == '_') continue;
        if (*p == ':') break;
        mode += static_cast<char>(std::toupper(static_cast<unsigned char>(*p)));
    }
    return mode;
}

}  // namespace

int acedSSGet(const char* str, const void* pt1, const void* pt2, const resbuf* filter, ads_name ss) {
    SelectionRequest request;
    request.mode = ModeOf(str);
    request.filter = filter;
    if (request.mode == "W" || request.mode == "C") {
        if (!pt1 || !pt2) return RTERROR;
        const double* a = static_cast<const double*>(pt1);
        const double* b = static_cast<const double*>(pt2);
        request.points = {{a[0], a[1]}, {b[0], b[1]}};
    } else if (request.mode == "WP" || request.mode == "CP" || request.mode == "F") {
        request.points = ChainPoints(static_cast<const resbuf*>(pt1));
    } else if (request.mode.empty() && pt1) {
        const double* a = static_cast<const double*>(pt1);  // a pick at a point
        request.mode = "PICK";
        request.points = {{a[0], a[1]}};
    }
    std::vector<int32_t> serials;
    bool cancelled = false;
    if (!SelectEntities(request, serials, &cancelled)) return cancelled ? RTCAN : RTERROR;
    if (serials.empty()) return RTERROR;
    SelectionSet* set = NewSelectionSet();
    if (!set) return RTERROR;
    for (int32_t s : serials) set->Add(s);
    SetPreviousSelection(set->members);
    NameOfSet(*set, ss);
    return RTNORM;
}

int acedSSFree(const ads_name ss) {
    if (!FindSelectionSet(ss)) return RTERROR;
    ReleaseModuleHold(ss);
    return RTNORM;
}

int acedSSLength(const ads_name ss, int32_t* len) {
    const SelectionSet* set = FindSelectionSet(ss);
    if (!set || !len) return RTERROR;
    *len = static_cast<int32_t>(set->members.size());
    return RTNORM;
}

int acedSSName(const ads_name ss, int32_t i, ads_name entres) {
    const SelectionSet* set = FindSelectionSet(ss);
    if (!set || i < 0 || static_cast<size_t>(i) >= set->members.size()) return RTERROR;
    entres[0] = set->members[static_cast<size_t>(i)];
    entres[1] = 1;
    return RTNORM;
}

int acedSSAdd(const ads_name ename, const ads_name ss, ads_name result) {
    if (ename && !IsEntity(ename)) return RTERROR;
    SelectionSet* set = ss ? FindSelectionSet(ss) : nullptr;
    if (ss && !set) return RTERROR;
    if (!set) {
        set = NewSelectionSet();
        if (!set) return RTERROR;
    }
    if (ename) set->Add(ename[0]);
    if (result) NameOfSet(*set, result);
    return RTNORM;
}

int acedSSDel(const ads_name ename, const ads_name ss) {
    SelectionSet* set = FindSelectionSet(ss);
    if (!set || !ename || ename[1] != 1) return RTERROR;
    return set->Remove(ename[0]) ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name ename, const ads_name ss) {
    const SelectionSet* set = FindSelectionSet(ss);
    if (!set || !ename || ename[1] != 1) return RTERROR;
    return set->Contains(ename[0]) ? RTNORM : RTERROR;
}

int acedXformSS(const ads_name ss, ads_matrix genmat) {
    const SelectionSet* set = FindSelectionSet(ss);
    if (!set) return RTERROR;
    AcGeMatrix3d m;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) m.entry[r][c] = genmat[r][c];
    for (int32_t serial : set->members) {
        ads_name name = {serial, 1};
        AcDbObjectId id;
        if (acdbGetObjectId(id, name) != Acad::eOk) return RTERROR;
        AcDbEntity* e = nullptr;
        if (acdbOpenAcDbEntity(e, id, AcDb::kForWrite) != Acad::eOk) return RTERROR;
        Acad::ErrorStatus es = e->transformBy(m);
        e->close();
        if (es != Acad::eOk) return RTERROR;
    }
    return RTNORM;
}
