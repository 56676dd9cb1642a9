#include "kernel/XPointList.h"

#include "kernel/XPoly2D.h"
#include "kernel/matrix_routines.h"
#include "platform/acedads.h"

XPoint* XPointList::FindPoint(const XPoint& p) {
    int i = 0;
    for (Node* n = HeadNode(); n; n = n->next, ++i)
        if (*n->item == p) {
            NodeAt(i);   // leaves the cursor on it
            return n->item;
        }
    return nullptr;
}

int XPointList::NewAppend(const XPoint& p) {
    int i = 0;
    for (Node* n = HeadNode(); n; n = n->next, ++i)
        if (*n->item == p) {
            NodeAt(i);
            return i;
        }
    AppendPoint(p);
    return Count() - 1;
}

int XPointList::GetExtend(double* lo, double* hi) const {
    if (IsEmpty()) return RTNONE;
    XPoint l = *First(), h = *First();
    for (const XPoint& p : *this) {
        l = Min(l, p);
        h = Max(h, p);
    }
    l > lo;
    h > hi;
    return RTNORM;
}

void XPointList::Center(double* out) const {
    XPoint sum;
    for (const XPoint& p : *this) sum += p;
    if (Count() > 0) sum /= Count();
    sum > out;
}

void XPointList::SetElevation(double z) {
    for (XPoint& p : *this) p.z = z;
}

void XPointList::TransUCS(double m[4][4]) {
    for (XPoint& p : *this) AT_xformpt(m, p, p);
}

void XPointList::TransUCS(const resbuf* from, const resbuf* to) {
    for (XPoint& p : *this) acedTrans(p, from, to, 0, p);
}

void XPointList::AsPoly2D(XPoly2D& out) const {
    for (const XPoint& p : *this) out.AppendNode(p, 0.0);
}
