// The root of the closed plane shapes.
#pragma once

enum CellType { CellCircle = 1, CellRectAngle = 2, CellPoly = 3 };

class XCell {
public:
    XCell() = default;
    // A cell carries no data of its own, so copying one copies nothing.
    XCell(const XCell&) {}
    XCell& operator=(const XCell&) { return *this; }
    virtual ~XCell() = default;

    virtual CellType Type() const = 0;
    virtual void Center(double pt[3]) = 0;
};
