#include "library/files/DefaultSettingsManager.h"

#include "library/diagnostics/Prerelease.h"
#include "library/diagnostics/VersionBlock.h"
#include "library/drawing/DocumentName.h"
#include "objectarx/acdocman.h"

namespace Tesk {

CDefaultSettingsManager::CDefaultSettingsManager(const char* sFile, Support::File::CLocator* pLocator)
    : m_vecFiles(1, sFile), m_pLocator(pLocator ? pLocator : new Support::File::CLocator), m_bOwnsLocator(!pLocator)
{
}

CDefaultSettingsManager::~CDefaultSettingsManager()
{
    TESK_ASSERT(m_pLocator != NULL);
    if (m_bOwnsLocator)
        delete m_pLocator;
}

bool CDefaultSettingsManager::resetForCurrentDocument(bool bForce)
{
    const AcApDocument* pDocument = acDocManager->curDocument();
    TESK_ASSERT(pDocument != NULL);
    return pDocument && reset(std::vector<CString>(1, fileNameOf(pDocument)), bForce);
}

CString CDefaultSettingsManager::getSupportSubfolderName()
{
    const CString sReturn = CVersionBlock::getInternalName();
    TESK_ASSERT(!sReturn.IsEmpty());
    return sReturn;
}

CDefaultSettings* CDefaultSettingsManager::createStandardSettings(const char* sFileName, bool bKeepLines)
{
    return createSettings(sFileName, {}, bKeepLines);
}

CDefaultSettings* CDefaultSettingsManager::createSettings(const char* sFileName,
                                                          const std::vector<CString>& vecDrawings, bool bKeepLines)
{
    std::vector<CString> vecFiles;
    m_pLocator->findFiles(vecFiles, vecDrawings, sFileName, getSupportSubfolderName());
    return new CDefaultSettings(vecFiles, bKeepLines);
}

std::map<CString, CString> CDefaultSettingsManager::getAllValues()
{
    TESK_ASSERT(false);
    return {};
}

CString CDefaultSettingsManager::getSectionValue(const char*, const char*)
{
    TESK_ASSERT(false);
    return {};
}

CString CDefaultSettingsManager::getValue(const char* sKey) { return getSectionValue("", sKey); }

}  // namespace Tesk
