#include "database/DragPickSet.h"

#include "database/Entity.h"
#include "kernel/matrix_routines.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acedss.h"
#include "platform/acutads.h"

DragPickSet::DragPickSet(const XPoint& base, int f) : PickSet(f) {
    Free();   // an empty set made for the flags would only be replaced
    SetFlags(f);
    Entity point;
    if (point.Make(RTDXF0, "POINT", 10, static_cast<const double*>(base), 0) != RTNORM) return;
    baseEntity[0] = point.Name()[0];
    baseEntity[1] = point.Name()[1];
    Get("L");
}

DragPickSet::DragPickSet(const XPoint& base, const PickSet& set, int f) : DragPickSet(base, f) {
    *this += set;
}

DragPickSet::DragPickSet(const DragPickSet& other) : PickSet(other) {
    baseEntity[0] = other.baseEntity[0];
    baseEntity[1] = other.baseEntity[1];
}

DragPickSet& DragPickSet::operator=(const DragPickSet& other) {
    PickSet::operator=(other);
    baseEntity[0] = other.baseEntity[0];
    baseEntity[1] = other.baseEntity[1];
    return *this;
}

DragPickSet::~DragPickSet() {
    if (baseEntity[0] && baseEntity[1]) acdbEntDel(baseEntity);
}

int DragPickSet::Move(const XPoint&, XPoint& to) {
    XPoint base;
    RBList list(acdbEntGet(baseEntity));
    if (list.GetData(10, static_cast<double*>(base)) != RTNORM) return RTERROR;
    return AT_move(name, base, to);
}

int DragPickSet::Rotate(const XPoint& base, double* angle) {
    double local = 0;
    return AT_rotate(name, base, angle ? angle : &local);
}

int DragPickSet::Scale(const XPoint& base, double* factor) {
    double local = 1;
    return AT_scale(name, base, factor ? factor : &local);
}

namespace {

// The matrix in the host's layout: ads_matrix rows act on column vectors.
int Apply(const int32_t* set, const double m[4][4]) {
    ads_matrix xform;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) xform[i][j] = m[i][j];
    return acedXformSS(set, xform);
}

}  // namespace

int AT_move(const int32_t* set, const XPoint& base, XPoint& to) {
    int rc = acedGetPoint(base, "\nSpecify second point of displacement: ", to);
    if (rc != RTNORM) return rc;
    double m[4][4];
    AT_InitTranMat(m, to.x - base.x, to.y - base.y, to.z - base.z);
    return Apply(set, m);
}

int AT_rotate(const int32_t* set, const XPoint& base, double* angle) {
    double local = 0;
    if (!angle) angle = &local;
    int rc = acedGetAngle(base, "\nSpecify rotation angle: ", angle);
    if (rc != RTNORM) return rc;
    double to[4][4], turn[4][4], back[4][4], m[4][4];
    AT_InitTranMat(to, base.x, base.y, base.z);
    AT_InitRotMatrix(*angle, turn);
    AT_InitTranMat(back, -base.x, -base.y, -base.z);
    MatrixMultiply(m, to, turn, back, nullptr);
    return Apply(set, m);
}

int AT_scale(const int32_t* set, const XPoint& base, double* factor) {
    double local = 1;
    if (!factor) factor = &local;
    acedInitGet(1 + 2 + 4, nullptr);   // no empty, zero or negative factor
    int rc = acedGetReal("\nSpecify scale factor: ", factor);
    if (rc != RTNORM) return rc;
    double m[4][4];
    AT_InitIdenMat(m);
    for (int i = 0; i < 3; ++i) {
        m[i][i] = *factor;
        m[i][3] = (1 - *factor) * static_cast<const double*>(base)[i];
    }
    return Apply(set, m);
}
