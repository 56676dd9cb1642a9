// Axis-aligned world boxes of entities.
#pragma once
#include "platform/acge.h"

class AcDbExtents {
public:
    AcDbExtents() = default;
    AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) : m_min(min), m_max(max) {}
    AcGePoint3d minPoint() const { return m_min; }
    AcGePoint3d maxPoint() const { return m_max; }
    bool isEmpty() const { return m_min.x > m_max.x; }
    void set(const AcGePoint3d& min, const AcGePoint3d& max) { m_min = min; m_max = max; }
    void addPoint(const AcGePoint3d& p);
    void addExt(const AcDbExtents& other);
    // The box of this box's eight corners under a transform.
    void transformBy(const AcGeMatrix3d& m);
private:
    AcGePoint3d m_min{1e20, 1e20, 1e20};
    AcGePoint3d m_max{-1e20, -1e20, -1e20};
};
