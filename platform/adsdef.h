// Result buffers, names and status codes shared by the host and its modules.
#pragma once
#include <cstdint>

typedef double ads_real;
typedef ads_real ads_point[3];
typedef ads_real ads_matrix[4][4];
typedef int32_t ads_name[2];        // two 32-bit words, as on the host's own platform
typedef int32_t* ads_namep;
typedef ads_real* ads_pointp;

// Value types of result buffers.
enum {
    RTNONE = 5000, RTREAL = 5001, RTPOINT = 5002, RTSHORT = 5003, RTANG = 5004,
    RTSTR = 5005, RTENAME = 5006, RTPICKS = 5007, RTORINT = 5008,
    RT3DPOINT = 5009, RTLONG = 5010, RTVOID = 5014, RTLB = 5016, RTLE = 5017,
    RTDOTE = 5018, RTNIL = 5019, RTDXF0 = 5020, RTT = 5021, RTRESBUF = 5023,
    RTMODELESS = 5027,
};

// Status codes of host operations.
enum {
    RTNORM = 5100, RTERROR = -5001, RTCAN = -5002, RTREJ = -5003,
    RTFAIL = -5004, RTKWORD = -5005, RTINPUTTRUNCATED = -5008,
};

// What a function registered with acedRegFunc returns to the host.
enum { RSRSLT = 1, RSERR = 3 };

struct ads_binary {
    short clen;
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    char* rstring;
    int32_t rlname[2];
    int32_t rlong;
    ads_binary rbinary;
};

struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif
