#include "library/drawing/ARXVariable.h"

#include "library/diagnostics/Prerelease.h"
#include "objectarx/acedads.h"
#include "objectarx/acutads.h"

#include <string>

namespace Tesk {

bool CARXVariableException::getErrorText(CString& sText) const
{
    sText = "Error : ";
    switch (m_iCode) {
    case READ_FAILED:
        sText += "Unable to read AutoCAD variable";
        break;
    case WRITE_FAILED:
        sText += "Unable to write AutoCAD variable";
        break;
    default:
        return false;
    }
    if (getExtraText().IsEmpty())
        sText += ".";
    else
        sText += " (" + getExtraText() + ").";
    return true;
}

void CARXVariable::read()
{
    resbuf result{};
    bool bRead = ::acedGetVar(m_sName, &result) == RTNORM;
    if (bRead) {
        // The base's assignments: what was just read must not be written back.
        switch (result.restype) {
        case RTREAL:
            CVariable::set(result.resval.rreal);
            break;
        case RTPOINT:
            CVariable::set(CARX2DPoint(result.resval.rpoint));
            break;
        case RTSHORT:
            CVariable::set(result.resval.rint);
            break;
        case RTSTR:
            CVariable::set(result.resval.rstring);
            ::acutDelString(result.resval.rstring);
            break;
        case RT3DPOINT:
            CVariable::set(CARX3DPoint(result.resval.rpoint));
            break;
        default:
            bRead = false;
        }
    }
    if (!bRead)
        throw new CARXVariableException(CARXVariableException::READ_FAILED, m_sName);
    TESK_TRACE("Read - %s\n", getDescription().GetString());
}

void CARXVariable::write()
{
    std::string sValue = m_sValue.GetString();
    resbuf value{};
    switch (m_iType) {
    case TYPE_STRING:
        value.restype = RTSTR;
        value.resval.rstring = sValue.data();
        break;
    case TYPE_SHORT:
        value.restype = RTSHORT;
        value.resval.rint = m_iValue;
        break;
    case TYPE_DOUBLE:
        value.restype = RTREAL;
        value.resval.rreal = m_dValue;
        break;
    case TYPE_2DPOINT:
        value.restype = RTPOINT;
        CARX2DPoint(m_pt2dValue).get(value.resval.rpoint);
        break;
    case TYPE_3DPOINT:
        value.restype = RT3DPOINT;
        CARX3DPoint(m_pt3dValue).get(value.resval.rpoint);
        break;
    default:
        break;
    }
    const bool bWritten = value.restype != 0 && ::acedSetVar(m_sName, &value) == RTNORM;
    TESK_TRACE("Written - %s\n", getDescription().GetString());
    if (!bWritten)
        throw new CARXVariableException(CARXVariableException::WRITE_FAILED, m_sName);
}

const CString& CARXVariable::readString()
{
    read();
    return getString();
}

bool CARXVariable::readBool()
{
    read();
    return m_iValue != 0;
}

}  // namespace Tesk
