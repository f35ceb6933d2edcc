#include "library/drawing/DrawingProperties.h"

#include "library/diagnostics/Prerelease.h"

namespace Tesk {

CString& CDrawingProperties::checked(CString& sField)
{
    TESK_ASSERT(m_bValid);
    return sField;
}

std::map<CString, CString>& CDrawingProperties::getCustomEntries()
{
    TESK_ASSERT(m_bValid);
    return m_mapCustomEntries;
}

int CDrawingProperties::getNumberOfCustomEntries()
{
    TESK_ASSERT(m_bValid);
    return m_iNumberOfCustomEntries;
}

}  // namespace Tesk
