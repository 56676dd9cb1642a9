// Distance records sorted by their distance, with the kernel's tolerance.
#pragma once
#include "kernel/XPoint.h"
#include "kernel/XPushPrec.h"

class XLineDist {
public:
    // 0 for equal distances; a first distance within _distSnap of 0 sorts
    // last, then a second one does.
    static int Compare(const XLineDist* a, const XLineDist* b) {
        if (a->distance < _distSnap) return 1;
        if (b->distance < _distSnap) return -1;
        double d = a->distance - b->distance;
        if (d > -_distSnap && d < _distSnap) return 0;
        return d > 0 ? 1 : -1;
    }

    double distance = 0.0;
    XPoint p1, p2;
};

class XPolyDist {
public:
    static int Compare(const XPolyDist* a, const XPolyDist* b) {
        double d = a->distance - b->distance;
        if (d > -_distSnap && d < _distSnap) return 0;
        return d > 0 ? 1 : -1;
    }

    double distance = 0.0;
    int i1 = 0, i2 = 0;
    XPoint p1, p2;
};
