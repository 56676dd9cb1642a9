// The LISP functions that draw on the host's screen.
#include "host/lisp/builtins.h"
#include "host/lisp/resbuf_convert.h"
#include "platform/acedgr.h"
#include "platform/acutads.h"

namespace lumo::lisp {
namespace {

// (grdraw from to color [highlight])
Ref Grdraw(Args a) {
    ArgCount(a, 3, 4);
    double from[3], to[3];
    PointArg(a[0], from);
    PointArg(a[1], to);
    int highlight = a.size() > 3 ? IntArg(a[3]) : 0;
    acedGrDraw(from, to, IntArg(a[2]), highlight);
    return nullptr;
}

// (grvecs vlist [trans]): colours and point pairs, under a 4x4 matrix given
// as four rows.
Ref Grvecs(Args a) {
    ArgCount(a, 1, 2);
    ads_matrix m;
    bool haveMatrix = a.size() > 1 && a[1];
    if (haveMatrix) {
        Ref row = ListArg(a[1]);
        for (int i = 0; i < 4; ++i, row = Cdr(row)) {
            Ref cell = ListArg(Car(row));
            for (int j = 0; j < 4; ++j, cell = Cdr(cell)) m[i][j] = cell ? NumArg(Car(cell)) : 0;
        }
    }
    ChainBuilder chain;
    for (Ref item = ListArg(a[0]); item; item = Cdr(item)) {
        Ref v = Car(item);
        resbuf* rb = chain.Add(v.Is(Type::List) ? RT3DPOINT : RTSHORT);
        if (rb->restype == RTSHORT) rb->resval.rint = static_cast<short>(IntArg(v));
        else PointArg(v, rb->resval.rpoint);
    }
    int rc = acedGrVecs(chain.Chain(), haveMatrix ? m : nullptr);
    if (rc != RTNORM) Fail("bad argument type: grvecs");
    return nullptr;
}

// (redraw [ename [mode]])
Ref Redraw(Args a) {
    ArgCount(a, 0, 2);
    if (a.empty() || !a[0]) {
        acedRedraw(nullptr, 0);
        return nullptr;
    }
    if (!a[0].Is(Type::Ename)) TypeError("lentityp", a[0]);
    acedRedraw(a[0].As<Ename>().name, a.size() > 1 ? IntArg(a[1]) : 1);
    return nullptr;
}

Ref Grclear(Args a) {
    ArgCount(a, 0, 0);
    acedRedraw(nullptr, 0);
    return nullptr;
}

const BuiltinTable kDisplay{{
    {"grdraw", Grdraw}, {"grvecs", Grvecs}, {"redraw", Redraw}, {"grclear", Grclear},
}};

}  // namespace
}  // namespace lumo::lisp
