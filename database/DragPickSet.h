// A selection set dragged about a base point: a temporary POINT at the base
// joins the set and goes when the object dies.
#pragma once
#include "database/PickSet.h"
#include "kernel/XPoint.h"

class DragPickSet : public PickSet {
public:
    DragPickSet(const XPoint& base, int flags);
    DragPickSet(const XPoint& base, const PickSet& set, int flags);
    DragPickSet(const DragPickSet& other);
    DragPickSet& operator=(const DragPickSet& other);
    ~DragPickSet() override;

    int Move(const XPoint& base, XPoint& to) override;
    int Rotate(const XPoint& base, double* angle) override;
    int Scale(const XPoint& base, double* factor) override;

    const int32_t* BaseEntity() const { return baseEntity; }

private:
    ads_name baseEntity = {0, 0};
};

// Move, turn or scale a set about a base point by what the user gives at
// the prompts (a second point, an angle, a factor); the result comes back
// through the pointer, which may be null.
int AT_move(const int32_t* set, const XPoint& base, XPoint& to);
int AT_rotate(const int32_t* set, const XPoint& base, double* angle);
int AT_scale(const int32_t* set, const XPoint& base, double* factor);
