// Temporary graphics on the host's screen.
#pragma once
#include "platform/adsdef.h"

// Draws a vector in the current viewport (UCS points); colour -1 draws in
// XOR ink; a non-zero highlight draws it highlighted.
int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight);
// A chain of RTSHORT colours and point pairs, transformed by the matrix.
int acedGrVecs(const resbuf* vlist, ads_matrix mat);
// ent null: mode 0 redraws the view (temporary vectors go), other modes act
// on the entity: 1 redraw, 2 hide, 3 highlight, 4 unhighlight.
int acedRedraw(const ads_name ent, int mode);
// The red, green and blue of a colour number.
int acedGetRGB(int color);
