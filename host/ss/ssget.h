// Selecting entities into sets: the modes of acedSSGet.
#pragma once
#include <string>
#include <vector>

#include "host/ss/entity_shape.h"
#include "platform/adsdef.h"

namespace lumo::host {

struct SelectionRequest {
    std::string mode;                  // "", "X", "I", "P", "L", "W", "C", "WP", "CP", "F"
    std::vector<PlanPoint> points;     // window corners, polygon or fence
    const resbuf* filter = nullptr;
};

// The serials of the selected entities, in drawing order; false for a bad
// request or filter, or Esc at an interactive prompt (`cancelled` set).
bool SelectEntities(const SelectionRequest& request, std::vector<int32_t>& out, bool* cancelled = nullptr);

// The main entities of the drawing in order (no vertices, attributes or
// sequence ends).
std::vector<int32_t> MainEntities();

// The pickfirst set (implied selection), as sssetfirst leaves it.
std::vector<int32_t>& PickfirstSelection();

}  // namespace lumo::host
