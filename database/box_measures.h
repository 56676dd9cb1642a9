// The centre and edge lengths of a box, for the second form of GetExtend.
#pragma once

// Any output pointer may be null.
inline void MeasureBox(const double* min, const double* max, double* center, double* width, double* height,
                       double* depth) {
    if (center)
        for (int i = 0; i < 3; ++i) center[i] = (min[i] + max[i]) / 2;
    if (width) *width = max[0] - min[0];
    if (height) *height = max[1] - min[1];
    if (depth) *depth = max[2] - min[2];
}
