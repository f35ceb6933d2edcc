#pragma once

// Points as plain values, and their forms in the host's point arrays.

#include "objectarx/adsdef.h"

namespace Tesk {

class C2DPoint {
public:
    C2DPoint() = default;
    C2DPoint(double x, double y) : m_x(x), m_y(y) {}
    virtual ~C2DPoint() = default;
    C2DPoint(const C2DPoint&) = default;
    C2DPoint& operator=(const C2DPoint&) = default;

    double x() const { return m_x; }
    double y() const { return m_y; }

private:
    double m_x = 0;
    double m_y = 0;
};

class C3DPoint {
public:
    C3DPoint() = default;
    C3DPoint(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}
    virtual ~C3DPoint() = default;
    C3DPoint(const C3DPoint&) = default;
    C3DPoint& operator=(const C3DPoint&) = default;

    double x() const { return m_x; }
    double y() const { return m_y; }
    double z() const { return m_z; }

private:
    double m_x = 0;
    double m_y = 0;
    double m_z = 0;
};

class CARX2DPoint : public C2DPoint {
public:
    explicit CARX2DPoint(const ads_point point) : C2DPoint(point[0], point[1]) {}
    explicit CARX2DPoint(const C2DPoint& point) : C2DPoint(point) {}

    // The third ordinate becomes zero.
    void get(ads_point point) const
    {
        point[0] = x();
        point[1] = y();
        point[2] = 0;
    }
};

class CARX3DPoint : public C3DPoint {
public:
    explicit CARX3DPoint(const ads_point point) : C3DPoint(point[0], point[1], point[2]) {}
    explicit CARX3DPoint(const C3DPoint& point) : C3DPoint(point) {}

    void get(ads_point point) const
    {
        point[0] = x();
        point[1] = y();
        point[2] = z();
    }
};

}  // namespace Tesk
