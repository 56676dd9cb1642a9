// Scale factors along the three axes, as block references keep them.
#pragma once

class AcGeScale3d {
public:
    AcGeScale3d() = default;
    explicit AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}
    static const AcGeScale3d kIdentity;

    double operator[](unsigned i) const { return i == 0 ? sx : (i == 1 ? sy : sz); }
    double& operator[](unsigned i) { return i == 0 ? sx : (i == 1 ? sy : sz); }
    AcGeScale3d operator*(double f) const { return {sx * f, sy * f, sz * f}; }
    AcGeScale3d& set(double x, double y, double z) { sx = x; sy = y; sz = z; return *this; }
    bool isProportional() const { return sx == sy && sy == sz; }

    double sx = 1.0, sy = 1.0, sz = 1.0;
};
