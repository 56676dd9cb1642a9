// Coordinate systems of the host: WCS, the current UCS, the display and
// entity (ECS) systems.
#pragma once
#include <cstdint>

namespace lumo::host {

// The extrusion direction of an entity, answered by the drawing database.
extern bool (*gEntityNormal)(const int32_t name[2], double normal[3]);

// The axes of the ECS for an extrusion direction (the arbitrary axis rule).
void EcsAxes(const double normal[3], double xAxis[3], double yAxis[3], double zAxis[3]);

}  // namespace lumo::host
