#pragma once

// A value bound to the CAD system variable of the same name: every assignment is written
// at once, and read() fetches the variable's present value.

#include "library/diagnostics/ExceptionBase.h"
#include "library/drawing/Variable.h"

namespace Tesk {

// Raised, as a heap object, with the variable's name as its extra text.
class CARXVariableException : public CExceptionBase {
public:
    enum Code { READ_FAILED = 1, WRITE_FAILED = 2 };

    CARXVariableException(int iCode, const char* sName) : CExceptionBase(sName), m_iCode(iCode) {}

    int getCode() const { return m_iCode; }

    // "Error : Unable to read AutoCAD variable (NAME)."; for a code other than the two,
    // false and "Error : " alone.
    bool getErrorText(CString& sText) const override;

private:
    int m_iCode;
};

class CARXVariable : public CVariable {
public:
    using CVariable::CVariable;

    // As the base, then write(). When that raises, the value here stays as assigned.
    void set(const C2DPoint& pt2dValue) override { setAndWrite(pt2dValue); }
    void set(const C3DPoint& pt3dValue) override { setAndWrite(pt3dValue); }
    void set(double dValue) override { setAndWrite(dValue); }
    void set(bool bValue) override { setAndWrite(bValue); }
    void set(short iValue) override { setAndWrite(iValue); }
    void set(const char* sValue) override { setAndWrite(sValue); }

    // Takes value and type from the system variable; on failure (no such variable, or of
    // another type than the five) raises READ_FAILED and changes nothing.
    void read();

    // Gives the current value to the system variable; raises WRITE_FAILED.
    void write();

    // The value after read().
    const CString& readString();
    // After read(): any bit set, so a bit mask will do.
    bool readBool();

private:
    template <class Value>
    void setAndWrite(const Value& value)
    {
        CVariable::set(value);
        write();
    }
};

}  // namespace Tesk
