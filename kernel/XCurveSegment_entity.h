// Curve segments from and to the drawing's lines, arcs and circles.
#pragma once

class AcDbCurve;
class AcDbEntity;
class XCurveSegment;
struct resbuf;

// A line gives its ends and angle 0; an arc its ends in its own coordinate
// system, flag 1 and its sweep; a circle the ends at angles 0 and pi, angle
// 2 pi and the flag given. Anything else leaves out all zero. RTNORM, or
// RTERROR for anything else.
int ReadCurveEntity(const AcDbEntity* ent, int bounded, XCurveSegment& out);
// A new line or arc for the caller; null for a circle.
AcDbCurve* AsAcDbCurve(const XCurveSegment& s);
// The selection filter of lines, arcs and circles on a layer ("*" for null).
resbuf* CurveMask(const char* layer);
