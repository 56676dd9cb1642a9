#include "kernel/XPoly2D_stream.h"

#include "kernel/XPoly2D.h"

namespace {
constexpr int kMaxStreamNodes = 32767;
}  // namespace

Acad::ErrorStatus ReadPoly2D(AcDbDwgFiler* filer, XPoly2D& poly) {
    poly.Reset();
    if (!filer) return Acad::eNullObjectPointer;
    uint8_t flags = 0;
    int16_t count = 0;
    if (filer->readUInt8(&flags) != Acad::eOk) return filer->filerStatus();
    poly.closed = flags;
    if (filer->readInt16(&count) != Acad::eOk) return filer->filerStatus();
    for (int i = 0; i < count; ++i) {
        AcGePoint2d p;
        double angle = 0.0;
        if (filer->readPoint2d(&p) != Acad::eOk || filer->readDouble(&angle) != Acad::eOk)
            return filer->filerStatus();
        poly.AppendNode(XPoint(p.x, p.y, 0.0), angle);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus WritePoly2D(AcDbDwgFiler* filer, const XPoly2D& poly) {
    if (!filer) return Acad::eNullObjectPointer;
    if (poly.Count() > kMaxStreamNodes) {
        filer->setFilerStatus(Acad::eFilerError);
        return filer->filerStatus();
    }
    filer->writeUInt8(static_cast<uint8_t>(poly.closed & 0xff));
    filer->writeInt16(static_cast<int16_t>(poly.Count()));
    auto angle = poly.angles.begin();
    for (const XPoint& p : poly) {
        filer->writePoint2d(AcGePoint2d(p.x, p.y));
        filer->writeDouble(angle != poly.angles.end() ? *angle : 0.0);
        if (angle != poly.angles.end()) ++angle;
    }
    return filer->filerStatus();
}
