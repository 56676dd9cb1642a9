// The stream form of a bulge polyline inside a drawing object's own data:
// the low byte of the flag word, a 16-bit node count, then per node the 2D
// vertex and the included angle (not a bulge). z is not kept.
#pragma once
#include "platform/dbfiler.h"

class XPoly2D;

// Resets poly first; the filer's status.
Acad::ErrorStatus ReadPoly2D(AcDbDwgFiler* filer, XPoly2D& poly);
// Refuses more than 32,767 nodes, which the count cannot hold.
Acad::ErrorStatus WritePoly2D(AcDbDwgFiler* filer, const XPoly2D& poly);
