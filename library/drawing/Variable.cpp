#include "library/drawing/Variable.h"

#include "library/diagnostics/Prerelease.h"

namespace Tesk {

CVariable::CVariable(const char* sName) : m_sName(sName) {}

CVariable::~CVariable() = default;

void CVariable::set(const C2DPoint& pt2dValue)
{
    m_pt2dValue = pt2dValue;
    m_iType = TYPE_2DPOINT;
}

void CVariable::set(const C3DPoint& pt3dValue)
{
    m_pt3dValue = pt3dValue;
    m_iType = TYPE_3DPOINT;
}

void CVariable::set(double dValue)
{
    m_dValue = dValue;
    m_iType = TYPE_DOUBLE;
}

void CVariable::set(bool bValue)
{
    m_iValue = bValue ? 1 : 0;
    m_iType = TYPE_SHORT;
}

void CVariable::set(short iValue)
{
    m_iValue = iValue;
    m_iType = TYPE_SHORT;
}

void CVariable::set(const char* sValue)
{
    m_sValue = sValue ? sValue : "";
    m_iType = TYPE_STRING;
}

const CString& CVariable::getString() const { return m_sValue; }

short CVariable::getShort() const { return m_iValue; }

bool CVariable::getBool() const
{
    TESK_ASSERT((m_iValue == 1) || (m_iValue == 0));
    return m_iValue != 0;
}

double CVariable::getDouble() const { return m_dValue; }

const C3DPoint& CVariable::get3DPoint() const { return m_pt3dValue; }

const C2DPoint& CVariable::get2DPoint() const { return m_pt2dValue; }

CString CVariable::getDescription() const
{
    CString sValue;
    const char* sType = "";
    switch (m_iType) {
    case TYPE_STRING:
        sValue = m_sValue;
        sType = "String";
        break;
    case TYPE_SHORT:
        sValue.Format("%i", m_iValue);
        sType = "Short";
        break;
    case TYPE_DOUBLE:
        sValue.Format("%g", m_dValue);
        sType = "Double";
        break;
    case TYPE_2DPOINT:
        sValue.Format("%g,%g", m_pt2dValue.x(), m_pt2dValue.y());
        sType = "2D Point";
        break;
    case TYPE_3DPOINT:
        sValue.Format("%g,%g,%g", m_pt3dValue.x(), m_pt3dValue.y(), m_pt3dValue.z());
        sType = "3D Point";
        break;
    default:
        TESK_ASSERT(false);
    }
    CString sDescription;
    sDescription.Format("%s value is : %s (%s).", m_sName.GetString(), sValue.GetString(), sType);
    return sDescription;
}

}  // namespace Tesk
