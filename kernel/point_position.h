// Where a point stands against a line or an arc, and the raw intersections
// of lines and circles. Points are three doubles.
#pragma once

// Distance from p to the line through a and b by the cosine rule: 0 when p is
// at a, -1 when the line has no length.
double AT_dist_pt_line(const double* p, const double* a, const double* b);
// 0 off the line, 1 at a, 2 at b, 3 strictly between, 4 on the line beyond
// the segment. AT_pt_of_line is the same function.
int AT_in_line(const double* p, const double* a, const double* b);
int AT_pt_of_line(const double* p, const double* a, const double* b);
// 0 off, 1 at the start, 2 at the end, 3 inside the arc run counter-clockwise
// from a1 to a2 about c.
int AT_in_arc(const double* p, const double* c, double r, double a1, double a2);
// The unbounded line through p1 and p2 against the circle: both points are
// always written on success (equal at a tangent), with the centre's z.
int AT_inter_line_circle(double* a, double* b, const double* p1, const double* p2, const double* c,
                         double r);
int AT_inter_circle_circle(double* a, double* b, const double* c1, double r1, const double* c2,
                           double r2);
