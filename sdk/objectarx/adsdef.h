#pragma once

// Plain data of the C-style calls: points, entity names, result buffers, and
// the codes they carry.

#include <windows.h>

using ads_real = double;
using ads_point = ads_real[3];
using ads_name = LONG_PTR[2];

constexpr int RTREAL = 5001;
constexpr int RTPOINT = 5002;
constexpr int RTSHORT = 5003;
constexpr int RTANG = 5004;
constexpr int RTSTR = 5005;
constexpr int RTENAME = 5006;
constexpr int RTPICKS = 5007;
constexpr int RTORINT = 5008;
constexpr int RT3DPOINT = 5009;
constexpr int RTLONG = 5010;

constexpr int RTNORM = 5100;
constexpr int RTERROR = -5001;

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    char* rstring;
    ads_name rlname;
    int rlong;
};

struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};
