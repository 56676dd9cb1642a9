#include "kernel/matrix_routines.h"

#include <cmath>
#include <cstdarg>
#include <cstring>
#include <new>
#include <utility>

#include "kernel/XPoint.h"
#include "platform/adsdef.h"

namespace {
// Axis lengths at or below this leave get_matrix's rotation out. A literal of
// its own: it does not follow _distSnap.
constexpr double kGetMatrixMinLength = 0.01;
// The pivot limit of AT_amatrix.
constexpr double kAmatrixPivot = 1e-9;

void Copy(const double from[4][4], double to[4][4]) { std::memcpy(to, from, sizeof(double) * 16); }

void Product(const double a[4][4], const double b[4][4], double out[4][4]) {
    double r[4][4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            double s = 0.0;
            for (int k = 0; k < 4; ++k) s += a[i][k] * b[k][j];
            r[i][j] = s;
        }
    Copy(r, out);
}

void RotationX(double c, double s, double m[4][4]) {
    AT_InitIdenMat(m);
    m[1][1] = c;
    m[1][2] = -s;
    m[2][1] = s;
    m[2][2] = c;
}

void RotationZ(double c, double s, double m[4][4]) {
    AT_InitIdenMat(m);
    m[0][0] = c;
    m[0][1] = -s;
    m[1][0] = s;
    m[1][1] = c;
}
}  // namespace

void AT_InitIdenMat(double m[4][4]) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) m[i][j] = i == j ? 1.0 : 0.0;
}

void AT_InitTranMat(double m[4][4], double x, double y, double z) {
    AT_InitIdenMat(m);
    m[0][3] = x;
    m[1][3] = y;
    m[2][3] = z;
}

void AT_InitRotMatrix(double angle, double m[4][4]) { RotationZ(std::cos(angle), std::sin(angle), m); }

void AT_xformpt(const double m[4][4], const double* in, double* out) {
    double p[3] = {in[0], in[1], in[2]};
    for (int i = 0; i < 3; ++i) out[i] = m[i][0] * p[0] + m[i][1] * p[1] + m[i][2] * p[2] + m[i][3];
}

int AT_multiply_matrix(const double a[4][4], const double b[4][4], double out[4][4]) {
    Product(a, b, out);
    return 1;
}

void MatrixMultiply(double out[4][4], const double a[4][4], const double b[4][4], ...) {
    double r[4][4];
    Product(a, b, r);
    va_list args;
    va_start(args, b);
    for (;;) {
        const double(*c)[4] = va_arg(args, const double(*)[4]);
        if (!c) break;
        Product(r, c, r);
    }
    va_end(args);
    Copy(r, out);
}

void AT_PointRotation(double* pt, const double* base, double angle) {
    double to[4][4], rot[4][4], back[4][4], m[4][4];
    AT_InitTranMat(to, -base[0], -base[1], -base[2]);
    AT_InitRotMatrix(angle, rot);
    AT_InitTranMat(back, base[0], base[1], base[2]);
    MatrixMultiply(m, back, rot, to, nullptr);
    AT_xformpt(m, pt, pt);
}

void get_matrix(const double* origin, const double* p1, const double* p2, double m[4][4]) {
    double t[4][4], r[4][4], m1[4][4], a[3], b[3];
    AT_InitTranMat(t, -origin[0], -origin[1], -origin[2]);
    AT_xformpt(t, p1, a);
    AT_xformpt(t, p2, b);

    double len = std::sqrt(a[1] * a[1] + a[2] * a[2]);
    if (len > kGetMatrixMinLength) RotationX(a[1] / len, -a[2] / len, r);
    else AT_InitIdenMat(r);
    Product(r, t, m1);
    AT_xformpt(r, a, a);
    AT_xformpt(r, b, b);

    len = std::sqrt(a[0] * a[0] + a[1] * a[1]);
    if (len > kGetMatrixMinLength) RotationZ(a[0] / len, -a[1] / len, r);
    else AT_InitIdenMat(r);
    Product(r, m1, m1);
    AT_xformpt(r, b, b);

    len = std::sqrt(b[1] * b[1] + b[2] * b[2]);
    if (len > kGetMatrixMinLength) RotationX(b[1] / len, -b[2] / len, r);
    else AT_InitIdenMat(r);
    Product(r, m1, m);
}

int AT_amatrix(const double m[4][4], double out[4][4]) {
    if (out != m) Copy(m, out);
    return CT_Inverse_mat(&out[0][0], 4, kAmatrixPivot) ? RTNORM : RTERROR;
}

void ConstructMatrix(const XPoint& base, const XPoint& ins, double sx, double sy, double sz, double rot,
                     double m[4][4]) {
    double tb[4][4], s[4][4], r[4][4], ti[4][4];
    AT_InitTranMat(tb, -base.x, -base.y, -base.z);
    AT_InitIdenMat(s);
    s[0][0] = sx;
    s[1][1] = sy;
    s[2][2] = sz;
    AT_InitRotMatrix(rot, r);
    AT_InitTranMat(ti, ins.x, ins.y, ins.z);
    MatrixMultiply(m, ti, r, s, tb, nullptr);
}

// Gauss-Jordan with complete pivoting. Each step folds the pivot row and
// column into multipliers and row factors and adds their outer product.
int CT_Inverse_mat(double* a, int n, double eps) {
    if (n <= 0) return 0;
    int* rows = new (std::nothrow) int[n];
    int* cols = new (std::nothrow) int[n];
    double* mult = new (std::nothrow) double[n];
    double* factor = new (std::nothrow) double[n];
    auto release = [&](int result) {
        delete[] rows;
        delete[] cols;
        delete[] mult;
        delete[] factor;
        return result;
    };
    if (!rows || !cols || !mult || !factor) return release(0);
    auto at = [a, n](int i, int j) -> double& { return a[i * n + j]; };

    for (int k = 0; k < n; ++k) {
        double best = 0.0;
        rows[k] = cols[k] = k;
        for (int j = k; j < n; ++j)
            for (int i = k; i < n; ++i)
                if (std::fabs(at(i, j)) > best) {
                    best = std::fabs(at(i, j));
                    rows[k] = i;
                    cols[k] = j;
                }
        if (best < eps || best == 0.0) return release(0);
        if (rows[k] != k)
            for (int j = 0; j < n; ++j) std::swap(at(k, j), at(rows[k], j));
        if (cols[k] != k)
            for (int i = 0; i < n; ++i) std::swap(at(i, k), at(i, cols[k]));

        double pivot = at(k, k);
        for (int i = 0; i < n; ++i) {
            mult[i] = i == k ? 1.0 / pivot : -at(i, k) / pivot;
            factor[i] = i == k ? 1.0 : at(k, i);
        }
        for (int i = 0; i < n; ++i) {
            at(k, i) = 0.0;
            at(i, k) = 0.0;
        }
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) at(i, j) += mult[i] * factor[j];
    }
    for (int k = n - 1; k >= 0; --k) {
        if (cols[k] != k)
            for (int j = 0; j < n; ++j) std::swap(at(k, j), at(cols[k], j));
        if (rows[k] != k)
            for (int i = 0; i < n; ++i) std::swap(at(i, k), at(i, rows[k]));
    }
    return release(1);
}
