// Polylines made from polylines: the two offsets and the compression of
// collinear and concentric neighbours. None of them repairs
// self-intersection: an offset that folds over stays folded.
//
// These are the bodies of XPoly2D::Offset, QuickOffset and Compress; the
// class forwards to them.
#pragma once

class XCurveSegment;
class XPoly2D;

// Offsets by intersecting neighbouring offset segments; positive d goes to
// the right of travel (so it grows a counter-clockwise outline). |d| below
// _distSnap copies. RTERROR for no node, a vanished arc, or neighbours that
// neither cross nor touch; out then holds what was built and is not to be
// used.
int OffsetPoly2D(const XPoly2D& p, double d, XPoly2D& out);

// Moves each vertex along its bisector, in the miter proportion with no
// limit; arcs are rebuilt through the offset midpoint. RTERROR only for a
// vanished or too small arc.
int QuickOffsetPoly2D(const XPoly2D& p, double d, XPoly2D& out);

// In place: drops empty segments and merges collinear lines and concentric
// arcs of the same direction. RTERROR when nothing would remain; the
// polyline is then untouched.
int CompressPoly2D(XPoly2D& p);

// Merges next into cur (both in counter-clockwise form, the direction of
// travel in the minus flags): 1 when merged, else 0 and cur untouched.
// Collinear lines merge whichever way they run.
int MergeCurveSegments(XCurveSegment& cur, const XCurveSegment& next, int curMinus, int nextMinus);
