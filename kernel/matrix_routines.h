// 4x4 matrices: double[4][4], row-major, acting on column vectors, with the
// translation in the fourth column. A product A B applies B first.
#pragma once

class XPoint;

void AT_InitIdenMat(double m[4][4]);
void AT_InitTranMat(double m[4][4], double x, double y, double z);
void AT_InitRotMatrix(double angle, double m[4][4]);   // about Z
// out = M in, homogeneous coordinate 1, no division; in may be out.
void AT_xformpt(const double m[4][4], const double* in, double* out);
int AT_multiply_matrix(const double a[4][4], const double b[4][4], double out[4][4]);
// out = a b c ..., the list ended by a null pointer.
void MatrixMultiply(double out[4][4], const double a[4][4], const double b[4][4], ...);
void AT_PointRotation(double* pt, const double* base, double angle);
// World to the frame with its origin at origin, p1 on +X and p2 in the XY plane.
void get_matrix(const double* origin, const double* p1, const double* p2, double m[4][4]);
int AT_amatrix(const double m[4][4], double out[4][4]);   // RTNORM or RTERROR
// Block placement: T(ins) R(rot) S(sx, sy, sz) T(-base).
void ConstructMatrix(const XPoint& base, const XPoint& ins, double sx, double sy, double sz,
                     double rot, double m[4][4]);
// In-place inverse of a row-major n x n array; 1, or 0 on failure.
int CT_Inverse_mat(double* a, int n, double eps);
