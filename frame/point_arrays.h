// Reading point lists from LISP arguments and returning point arrays.
#pragma once
#include "platform/acge.h"
#include "platform/adsdef.h"

// A sublist (RTLB, points, RTLE) of at least two points: 0 on success, with
// `end` at the RTLE; 1 on failure. Only x and y are kept.
int ReadPoint2dSublist(const resbuf* node, AcGePoint2dArray& points, const resbuf** end);
// Appends a run of RTPOINT/RT3DPOINT nodes. 0 when the chain ended inside the
// run, else whether the array stayed empty; `stop` is the node that ended it
// (the last node read at the end of the chain).
int ReadPoint3dRun(AcGePoint3dArray& points, const resbuf* node, const resbuf** stop);
// The same, x and y kept; at the end of the chain `stop` is null.
int ReadPoint2dRun(AcGePoint2dArray& points, const resbuf* node, const resbuf** stop);

// One RT3DPOINT (RTPOINT) node per point, snapped; non-zero if not empty.
int Point3dArrayToChain(const AcGePoint3dArray& points, resbuf** chain);
int Point2dArrayToChain(const AcGePoint2dArray& points, resbuf** chain);
// Each array as a sublist behind what `chain` holds.
int Point3dArraysToChain(const AcArray<AcGePoint3dArray>& arrays, resbuf** chain);

// Coordinates below 1e-5 in absolute value become exactly 0.
void SnapPoint3d(AcGePoint3d& point);
void SnapPoint2d(AcGePoint2d& point);
