// What an entity looks like in plan, for window, crossing, fence and pick
// selection: world XY polylines. Curves are flattened finely enough that
// selection by them agrees with the curves themselves at drawing scale.
#pragma once
#include <vector>

#include "platform/adsdef.h"

namespace lumo::host {

struct PlanPoint {
    double x, y;
};
using PlanPath = std::vector<PlanPoint>;

// False when the name leads to no entity.
bool EntityPlanPaths(const ads_name ent, std::vector<PlanPath>& out);

// Window: every point inside the polygon. Crossing: inside, or any path
// crosses the polygon's edges. Fence: any path crosses the open fence.
bool PathsInside(const std::vector<PlanPath>& paths, const PlanPath& polygon);
bool PathsCross(const std::vector<PlanPath>& paths, const PlanPath& polygon);
bool PathsCrossFence(const std::vector<PlanPath>& paths, const PlanPath& fence);
double DistanceToPaths(const std::vector<PlanPath>& paths, PlanPoint p);

}  // namespace lumo::host
