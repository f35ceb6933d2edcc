#include "library/expansion/ARXKeywordExpansion.h"

#include "library/diagnostics/Prerelease.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"
#include "library/titleblock/ARXTitleBlock.h"
#include "objectarx/dbapserv.h"

#include <boost/make_shared.hpp>

namespace Tesk {

CARXKeywordExpansion::CARXKeywordExpansion(AcDbDatabase* pDatabase, const char* sFileName, int iIndex, int iCount)
    : CKeywordExpansion(sFileName, iIndex, iCount), m_pDatabase(pDatabase)
{
    createTitleBlock();
    m_bTitleInstance = m_pTitle->hasInstance();
    setSubstitutions(m_mapSubstitutions);
    CARXKeywordExpansion::buildFileMappings();
}

CARXKeywordExpansion::CARXKeywordExpansion(const char* sFileName, int iIndex, int iCount)
    : CKeywordExpansion(sFileName, iIndex, iCount)
{
    CARXKeywordExpansion::buildFileMappings();
}

CARXKeywordExpansion::~CARXKeywordExpansion() = default;

void CARXKeywordExpansion::setSubstitutions(const std::map<CString, CString>& mapSubstitutions)
{
    TESK_ASSERT(!m_bHalvoranMappingsBuilt);
    TESK_ASSERT(!m_bHalvoranSubstitutions);
    if (&mapSubstitutions != &m_mapSubstitutions)
        m_mapSubstitutions = mapSubstitutions;
    m_bHalvoranSubstitutions = true;
}

void CARXKeywordExpansion::createTitleBlock()
{
    TESK_ASSERT(!m_pTitle);
    TESK_ASSERT(m_pDatabase == acdbHostApplicationServices()->workingDatabase());
    m_pTitle = boost::make_shared<CARXTitleBlock>(m_pDatabase, m_sFileName.GetString());
}

void CARXKeywordExpansion::buildFileMappings()
{
    // As in the base's constructor, a drawing without a name has no keywords of a file.
    if (!m_sFileName.IsEmpty())
        CKeywordExpansion::buildFileMappings();
    if (m_pDatabase == nullptr)
        return;
    TESK_ASSERT(!m_bHalvoranMappingsBuilt);
    buildHalvoranMappings();
}

void CARXKeywordExpansion::buildHalvoranMappings()
{
    TESK_ASSERT(m_pTitle);
    if (m_pTitle->searchForInstance()) {
        m_bHasTitleAttributes = !m_pTitle->getMap().empty();
        if (m_bHasTitleAttributes) {
            for (const CString& sKey : m_pTitle->getMapKeys())
                addToMap("HALVORAN::" + sKey, applySubstitutions(m_pTitle->get(sKey)));
        }
    }
    if (m_pTitle->isProject())
        addToMap("HALVORAN_PROJECT_LABEL", m_pTitle->getProjectLabel());
    m_bHalvoranMappingsBuilt = true;
}

CString CARXKeywordExpansion::applySubstitutions(const CString& sValue) const
{
    TESK_ASSERT(m_pDatabase != NULL);
    TESK_ASSERT(m_bHalvoranSubstitutions);
    std::string sResult = toString(sValue);
    for (const auto& [sFind, sReplacement] : m_mapSubstitutions)
        MultiByte::replaceAll(sResult, viewOf(sFind), viewOf(sReplacement), true);
    return toCString(sResult);
}

}  // namespace Tesk
