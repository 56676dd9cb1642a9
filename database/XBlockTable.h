// The drawing's block definitions as the module reads them.
#pragma once

class XBlockTable {
public:
    // The box of a block's entities under the matrix (null: as defined):
    // RTNORM, RTERROR when some entity's box is only approximate, RTNONE
    // when the block is unknown or none of its entities has a box.
    static int GetExtend(const char* blockName, double m[4][4], double* min, double* max);
};
