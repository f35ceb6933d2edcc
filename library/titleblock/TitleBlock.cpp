#include "library/titleblock/TitleBlock.h"

#include "library/diagnostics/Prerelease.h"
#include "library/files/SettingsFile.h"
#include "library/files/SupportFileLocator.h"

namespace Tesk {

CTitleBlock::CTitleBlock(const char* sFileName) : m_sFileName(sFileName)
{
    TESK_TRACE("CTitleBlock::CTitleBlock(\"%s\")\n", sFileName);
}

CTitleBlock::~CTitleBlock() { TESK_TRACE("CTitleBlock::~CTitleBlock()\n"); }

void CTitleBlock::search()
{
    TESK_TRACE("CTitleBlock::search()\n");
    m_bSearch = true;
    // What an earlier search found may be gone.
    m_bProject = m_bDefinition = m_bInstance = false;
    for (CString* pText : {&m_sHandle, &m_sProjectLabel, &m_sSettingsFile, &m_sBorderBlock, &m_sBorder})
        pText->Empty();
    m_mapAttributes.clear();
    if (!getMapping())
        return;
    const CString sBorder = getCurrentBorder().m_border.m_sBlockName;
    if (!sBorder.IsEmpty())
        findInstance(sBorder);
    if (m_bInstance)
        readAttributes();
}

const bool& CTitleBlock::searchForInstance()
{
    TESK_ASSERT(m_bSearch);
    if (!m_bInstance)
        search();
    return m_bInstance;
}

const bool& CTitleBlock::isProject()
{
    TESK_ASSERT(m_bSearch);
    return m_bProject;
}

const CString& CTitleBlock::getProjectLabel()
{
    TESK_ASSERT(m_bProject);
    return m_sProjectLabel;
}

const std::map<CString, CString>& CTitleBlock::getMap()
{
    TESK_TRACE("CTitleBlock::getMap()\n");
    TESK_ASSERT(m_bInstance);
    return m_mapAttributes;
}

std::set<CString> CTitleBlock::getMapKeys()
{
    TESK_TRACE("CTitleBlock::getMapKeys()\n");
    TESK_ASSERT(m_bInstance);
    std::set<CString> setKeys;
    for (const auto& [sKey, sTag] : m_mapAttributes)
        setKeys.insert(sKey);
    TESK_ASSERT(setKeys.size() == m_mapAttributes.size());
    return setKeys;
}

CString CTitleBlock::get(const char* sKey)
{
    TESK_TRACE("CTitleBlock::get(\"%s\")\n", sKey);
    TESK_ASSERT(m_bInstance);
    const auto iterAttribute = m_mapAttributes.find(sKey);
    return iterAttribute == m_mapAttributes.end() ? CString() : getAttributeValue(iterAttribute->second);
}

bool CTitleBlock::getMapping()
{
    TESK_TRACE("CTitleBlock::getMapping()\n");
    for (const Layer eLayer : kTitleBlockLayers) {
        const CString sFile = getTitleBlockFile(eLayer, m_sFileName);
        if (!sFile.IsEmpty() && getMappingFromFile(sFile, eLayer == Layer::Project))
            return true;
    }
    return false;
}

bool CTitleBlock::getMappingFromFile(const char* sFile, bool bProject)
{
    TESK_TRACE("CTitleBlock::getMappingFromFile(\"%s\", %s)\n", sFile, bProject ? "true" : "false");
    m_settings = CSettingsFile(sFile);
    if (!m_settings.m_bValid)
        return false;
    if (bProject) {
        m_sProjectLabel = m_settings.m_sProjectLabel;
        m_bProject = true;
    }
    if (!chooseBorder())
        return false;
    m_sSettingsFile = sFile;
    return true;
}

bool CTitleBlock::chooseBorder()
{
    for (const CBlockGroup& group : m_settings.m_vecTitleBlocks) {
        for (const CBorderEntry& border : group.m_vecBorders) {
            if (!hasDefinition(border.m_sBlockName))
                continue;
            setCurrentBorder(border, group);
            m_sBorder = group.m_sCategory;
            m_sBorderBlock = border.m_sBlockName;
            m_mapAttributes = group.m_mapOther;
            return true;
        }
    }
    return false;
}

}  // namespace Tesk
