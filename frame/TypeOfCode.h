// The value type of a group code for typed access to result-buffer lists.
#pragma once

// The RT type of the values of `code`. Deliberately coarser than the list
// copy's table (DxfValueType): 90 to 99 read as RTNONE here, 1071 as RTLONG,
// and 1000-style codes fold onto their remainder.
int TypeOfCode(int code);
