#include "library/drawing/Variable.h"

#include "library/diagnostics/Prerelease.h"

namespace Tesk {

bool CVariable::getBool() const
{
    TESK_ASSERT((m_iValue == 1) || (m_iValue == 0));
    return m_iValue != 0;
}

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
