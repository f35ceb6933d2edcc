#pragma once

struct AcGePoint3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

struct AcGeVector3d {
    double x = 0.0;
    double y = 0.0;
    double z = 1.0;
};
