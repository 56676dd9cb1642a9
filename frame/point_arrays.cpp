// Reading point lists from LISP arguments and returning point arrays.
#include "frame/point_arrays.h"

#include <cmath>

#include "frame/RBList.h"
#include "platform/acutads.h"

namespace {

constexpr double kSnapZero = 1e-5;  // what the command line shows as 0 anyway

bool IsPoint(const resbuf* node) { return node->restype == RTPOINT || node->restype == RT3DPOINT; }

double Snap(double v) { return std::fabs(v) < kSnapZero ? 0.0 : v; }

resbuf* PointNode(int type, double x, double y, double z) {
    resbuf* node = acutNewRb(type);
    node->resval.rpoint[0] = x;
    node->resval.rpoint[1] = y;
    node->resval.rpoint[2] = z;
    return node;
}

}  // namespace

void SnapPoint3d(AcGePoint3d& p) {
    p.x = Snap(p.x);
    p.y = Snap(p.y);
    p.z = Snap(p.z);
}

void SnapPoint2d(AcGePoint2d& p) {
    p.x = Snap(p.x);
    p.y = Snap(p.y);
}

int ReadPoint2dSublist(const resbuf* node, AcGePoint2dArray& points, const resbuf** end) {
    if (!node || node->restype != RTLB) return 1;
    if (points.physicalLength() < 0) points.setPhysicalLength(0);
    points.setLogicalLength(0);
    for (node = node->rbnext; node && node->restype != RTLE; node = node->rbnext) {
        if (!IsPoint(node)) return 1;
        points.append(AcGePoint2d(node->resval.rpoint[0], node->resval.rpoint[1]));
    }
    if (!node || points.logicalLength() < 2) return 1;
    *end = node;
    return 0;
}

int ReadPoint3dRun(AcGePoint3dArray& points, const resbuf* node, const resbuf** stop) {
    const resbuf* last = node;
    for (; node; last = node, node = node->rbnext) {
        if (!IsPoint(node)) {
            *stop = node;
            return points.isEmpty();
        }
        // A 2D point's third value is undefined: read it as 0.
        double z = node->restype == RT3DPOINT ? node->resval.rpoint[2] : 0.0;
        points.append(AcGePoint3d(node->resval.rpoint[0], node->resval.rpoint[1], z));
    }
    *stop = last;
    return 0;
}

int ReadPoint2dRun(AcGePoint2dArray& points, const resbuf* node, const resbuf** stop) {
    for (; node; node = node->rbnext) {
        if (!IsPoint(node)) {
            *stop = node;
            return points.isEmpty();
        }
        points.append(AcGePoint2d(node->resval.rpoint[0], node->resval.rpoint[1]));
    }
    *stop = nullptr;
    return 0;
}

int Point3dArrayToChain(const AcGePoint3dArray& points, resbuf** chain) {
    resbuf* head = nullptr;
    resbuf** link = &head;
    for (int i = 0; i < points.logicalLength(); ++i) {
        AcGePoint3d p = points[i];
        SnapPoint3d(p);
        *link = PointNode(RT3DPOINT, p.x, p.y, p.z);
        link = &(*link)->rbnext;
    }
    *chain = head;
    return head != nullptr;
}

int Point2dArrayToChain(const AcGePoint2dArray& points, resbuf** chain) {
    resbuf* head = nullptr;
    resbuf** link = &head;
    for (int i = 0; i < points.logicalLength(); ++i) {
        AcGePoint2d p = points[i];
        SnapPoint2d(p);
        *link = PointNode(RTPOINT, p.x, p.y, 0.0);
        link = &(*link)->rbnext;
    }
    *chain = head;
    return head != nullptr;
}

int Point3dArraysToChain(const AcArray<AcGePoint3dArray>& arrays, resbuf** chain) {
    for (int i = 0; i < arrays.logicalLength(); ++i) {
        resbuf* points = nullptr;
        Point3dArrayToChain(arrays[i], &points);
        resbuf* open = acutNewRb(RTLB);
        open->rbnext = points;
        AT_link_list(open, acutNewRb(RTLE));
        *chain = AT_link_list(*chain, open);
    }
    return 1;
}
