// Vector, plane and angle routines of the older C layer. Points and vectors
// are three doubles.
#pragma once

// The plane a x + b y + c z + d = 0; (a, b, c) is its normal, not normalised.
struct plan_para {
    double a, b, c, d;
};

void CT_Vector(const double* a, const double* b, double* out);       // out = b - a
double CT_VectorAngle(const double* a, const double* b);             // 0 to pi
int CT_vector_plan3p(const double* p0, const double* p1, const double* p2, double* n);
int CT_plan_equation(const double* p, const double* n, plan_para* pl);
// The unbounded line through a and b cut with the plane: 1, or 0 with out
// untouched unless the line runs with the normal (see the .cpp).
int CT_inter_line_plan1(const double* a, const double* b, const plan_para* pl, double* out);
int CT_inter_line_plan2(const double* p, const double* dir, const plan_para* pl, double* out);
int CT_point_prj_plan(const double* p, const plan_para* pl, double* out);
int CT_XYZtoRsita(const double* p, double* ang, double* r);
double CT_std_angle(double a);
double CT_acute_angle(double a);
