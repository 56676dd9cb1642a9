// Between the bulge polyline and the drawing's polylines. Bulges become
// included angles here and nowhere else: angle = 4 atan(b), |b| below 1e-6
// being 0, and back b = tan(angle / 4).
#pragma once
#include "platform/adsdef.h"

class AcDbPolyline;
class AcDb2dPolyline;
class AcDb3dPolyline;
class XPoly2D;

// Each reader empties out first and keeps the polyline's flag word in
// out.closed (1 closed, 2 curve-fit, 4 spline-fit, 8 3D, 128 linetype
// generation). Fitted polylines stay empty. RTNORM, or RTERROR for a null
// polyline or an empty result.
int ReadPolyline(const AcDbPolyline* pl, XPoly2D& out);
int Read2dPolyline(const AcDb2dPolyline* pl, XPoly2D& out);
int Read3dPolyline(const AcDb3dPolyline* pl, XPoly2D& out);
// Opens the entity of a name for read and reads it by its class; any other
// entity leaves out empty. RTNORM or RTERROR.
int ReadPolyEntity(const ads_name name, XPoly2D& out);

// A new lightweight polyline with the nodes, closed flag, elevation of the
// first vertex and the THICKNESS system variable; null below 2 nodes. The
// caller owns it and adds it to a database.
AcDbPolyline* NewPolyline(const XPoly2D& poly);
