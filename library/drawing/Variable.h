#pragma once

// A named value of one of five types that can describe itself in text.

#include "library/drawing/Points.h"
#include "mfc/afx.h"

namespace Tesk {

class CVariable {
public:
    enum Type { TYPE_NONE = 0, TYPE_STRING = 1, TYPE_SHORT = 2, TYPE_DOUBLE = 3, TYPE_2DPOINT = 4, TYPE_3DPOINT = 5 };

    // No value yet: type 0.
    explicit CVariable(const char* sName) : m_sName(sName) {}
    CVariable(const CVariable&) = default;
    CVariable& operator=(const CVariable&) = default;

    // Each assignment makes its type the current one; the other values stay as they are.
    virtual void set(const C2DPoint& pt2dValue) { assign(m_pt2dValue, pt2dValue, TYPE_2DPOINT); }
    virtual void set(const C3DPoint& pt3dValue) { assign(m_pt3dValue, pt3dValue, TYPE_3DPOINT); }
    virtual void set(double dValue) { assign(m_dValue, dValue, TYPE_DOUBLE); }
    virtual void set(bool bValue) { assign(m_iValue, short{bValue}, TYPE_SHORT); }
    virtual void set(short iValue) { assign(m_iValue, iValue, TYPE_SHORT); }
    virtual void set(const char* sValue) { assign(m_sValue, sValue, TYPE_STRING); }  // null counts as empty
    virtual ~CVariable() = default;

    // The stored member, whatever the current type: nothing is converted.
    virtual const CString& getString() const { return m_sValue; }
    virtual short getShort() const { return m_iValue; }
    virtual bool getBool() const;  // the short must be 0 or 1
    virtual double getDouble() const { return m_dValue; }
    virtual const C3DPoint& get3DPoint() const { return m_pt3dValue; }
    virtual const C2DPoint& get2DPoint() const { return m_pt2dValue; }

    const CString& getName() const { return m_sName; }
    int getType() const { return m_iType; }

    // "NAME value is : VALUE (TYPE)." There must be a value.
    CString getDescription() const;

private:
    template <class Member, class Value>
    void assign(Member& member, const Value& value, Type eType)
    {
        member = value;
        m_iType = eType;
    }

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
