#pragma once

// A named value of one of five types that can describe itself in text.

#include "library/drawing/Points.h"
#include "mfc/afx.h"

namespace Tesk {

class CVariable {
public:
    enum Type { TYPE_NONE = 0, TYPE_STRING = 1, TYPE_SHORT = 2, TYPE_DOUBLE = 3, TYPE_2DPOINT = 4, TYPE_3DPOINT = 5 };

    // No value yet: type 0.
    explicit CVariable(const char* sName);
    CVariable(const CVariable&) = default;
    CVariable& operator=(const CVariable&) = default;

    // Each assignment makes its type the current one; the other values stay as they are.
    virtual void set(const C2DPoint& pt2dValue);
    virtual void set(const C3DPoint& pt3dValue);
    virtual void set(double dValue);
    virtual void set(bool bValue);  // kept as the short 0 or 1
    virtual void set(short iValue);
    virtual void set(const char* sValue);  // null counts as empty
    virtual ~CVariable();

    // The stored member, whatever the current type: nothing is converted.
    virtual const CString& getString() const;
    virtual short getShort() const;
    virtual bool getBool() const;  // the short must be 0 or 1
    virtual double getDouble() const;
    virtual const C3DPoint& get3DPoint() const;
    virtual const C2DPoint& get2DPoint() const;

    const CString& getName() const { return m_sName; }
    int getType() const { return m_iType; }

    // "NAME value is : VALUE (TYPE)." There must be a value.
    CString getDescription() const;

protected:
    CString m_sName;
    int m_iType = TYPE_NONE;
    CString m_sValue;
    short m_iValue = 0;
    double m_dValue = 0;
    C3DPoint m_pt3dValue;
    C2DPoint m_pt2dValue;
};

}  // namespace Tesk
