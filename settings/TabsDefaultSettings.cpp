#include "settings/TabsDefaultSettings.h"

#include "library/diagnostics/ExceptionText.h"
#include "library/diagnostics/Prerelease.h"
#include "library/text/MultiByte.h"

#include <algorithm>
#include <string>

namespace {

constexpr const char* kSettingsFile = "MDITabs.ini";
constexpr const char* kUnnamedSection = "";

CString withoutQuotes(CString sText) { return sText.Trim("\"'"); }

}  // namespace

CTabsDefaultSettings::CTabsDefaultSettings(const char* sFilename) : CDefaultSettingsManager(sFilename, nullptr)
{
    m_pSettings.reset(createSettings(kSettingsFile, m_vecFiles, false));
}

CTabsDefaultSettings::CTabsDefaultSettings() : CDefaultSettingsManager("", nullptr)
{
    m_pSettings.reset(createStandardSettings(kSettingsFile, false));
}

std::unique_ptr<CTabsDefaultSettings> CTabsDefaultSettings::createStandard()
{
    return std::unique_ptr<CTabsDefaultSettings>(new CTabsDefaultSettings);
}

CTabsDefaultSettings::~CTabsDefaultSettings() = default;

bool CTabsDefaultSettings::isCurrent(const std::vector<CString>& sNewFiles) const
{
    return std::equal(m_vecFiles.begin(), m_vecFiles.end(), sNewFiles.begin(), sNewFiles.end(),
                      [](const CString& sOne, const CString& sOther) {
                          return Tesk::MultiByte::equalNoCase(sOne.str(), sOther.str());
                      });
}

bool CTabsDefaultSettings::reset(const std::vector<CString>& sNewFiles, bool bForce)
{
    TESK_TRACE("CTabsDefaultSettings::reset(...) ...\n");
    TESK_ASSERT(sNewFiles.size() == 1);
    if (!bForce && isCurrent(sNewFiles))
        return false;

    TESK_TRACE("\trequired.\n");
    try {
        std::unique_ptr<Tesk::CDefaultSettings> pNew(createSettings(kSettingsFile, sNewFiles, false));
        m_vecFiles = sNewFiles;
        m_pSettings = std::move(pNew);
        return true;
    } catch (CException* pException) {
        const CString sError = Tesk::takeExceptionText(pException);
        TESK_TRACE("Reset error (%s) for project file set ...\n", sError.GetString());
        return false;
    }
}

void CTabsDefaultSettings::traceContents(int iIndent)
{
    TESK_TRACE("%sReactor Settings\n", std::string(static_cast<std::size_t>(std::max(iIndent, 0)), '\t').c_str());
    m_pSettings->traceContents(iIndent + 1);
}

CString CTabsDefaultSettings::getSupportSubfolderName() { return CString(); }

CString CTabsDefaultSettings::getValue(const char* sKey)
{
    return m_pSettings->isDefined(kUnnamedSection, sKey) ? m_pSettings->getValue(kUnnamedSection, sKey) : CString();
}

CString CTabsDefaultSettings::getModifiedText() { return withoutQuotes(getValue("ModifiedText")); }

CString CTabsDefaultSettings::getXrefsReadOnlyText() { return withoutQuotes(getValue("XrefsReadOnlyText")); }
