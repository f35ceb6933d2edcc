#include "settings/TabsDefaultSettings.h"

#include "library/diagnostics/ExceptionBase.h"
#include "library/diagnostics/Prerelease.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <algorithm>
#include <exception>
#include <string>

namespace {

constexpr const char* kSettingsFile = "MDITabs.ini";
constexpr const char* kUnnamedSection = "";

CString withoutQuotes(const CString& sText)
{
    return Tesk::toCString(Tesk::MultiByte::withoutQuotes(Tesk::viewOf(sText)));
}

// All zero when the file is not there.
WIN32_FILE_ATTRIBUTE_DATA stateOf(const char* sPath)
{
    WIN32_FILE_ATTRIBUTE_DATA state = {};
    ::GetFileAttributesExA(sPath, GetFileExInfoStandard, &state);
    return state;
}

}  // namespace

CTabsDefaultSettings::CTabsDefaultSettings(const char* sFilename) : CDefaultSettingsManager(sFilename, nullptr)
{
    load(m_vecFiles);
}

void CTabsDefaultSettings::load(const std::vector<CString>& sFiles)
{
    m_pSettings.reset(createSettings(kSettingsFile, sFiles, false));
}

std::unique_ptr<CTabsDefaultSettings> CTabsDefaultSettings::createReadable(const char* sFilename)
{
    std::unique_ptr<CTabsDefaultSettings> pNew(new CTabsDefaultSettings);
    pNew->m_vecFiles.assign(*sFilename != '\0' ? 1 : 0, sFilename);
    pNew->findCopies();
    while (!pNew->loadReadable()) {
    }
    return pNew;
}

void CTabsDefaultSettings::findCopies()
{
    std::vector<CString> vecPaths;
    m_pLocator->findFiles(vecPaths, m_vecFiles, kSettingsFile, getSupportSubfolderName());
    for (const CString& sPath : vecPaths)
        m_vecCopies.push_back({sPath, CString(), stateOf(sPath)});
}

// A copy that the memory does not hold may have got in in part: then all is made anew.
bool CTabsDefaultSettings::loadReadable()
{
    auto pSettings = std::make_unique<Tesk::CDefaultSettings>(std::vector<CString>(), false);
    for (Copy& copy : m_vecCopies) {
        if (!copy.sReason.IsEmpty())
            continue;
        try {
            pSettings->readASoundFile(copy.sPath);
        } catch (CException* pException) {
            copy.sReason = Tesk::takeExceptionText(pException);
            if (copy.sReason.IsEmpty())
                copy.sReason = "unknown error";
        } catch (const std::exception&) {
            copy.sReason = "it is too large for the memory";
            return false;
        }
    }
    m_pSettings = std::move(pSettings);
    return true;
}

void CTabsDefaultSettings::traceLeftOut()
{
    const bool bTell = Tesk::isTraceEnabled() && !m_bTraced;
    m_bTraced = Tesk::isTraceEnabled();
    for (const Copy& copy : m_vecCopies)
        if (bTell && !copy.sReason.IsEmpty())
            Tesk::trace("CTabsDefaultSettings: \"%s\" is left out: %s\n", copy.sPath.GetString(),
                        copy.sReason.GetString());
}

bool CTabsDefaultSettings::isRepaired() const
{
    const auto isLeftOut = [](const Copy& copy) { return !copy.sReason.IsEmpty(); };
    const auto isChanged = [](const Copy& copy) {
        const WIN32_FILE_ATTRIBUTE_DATA now = stateOf(copy.sPath);
        return ::CompareFileTime(&now.ftLastWriteTime, &copy.state.ftLastWriteTime) != 0 ||
               now.nFileSizeLow != copy.state.nFileSizeLow;
    };
    return std::any_of(m_vecCopies.begin(), m_vecCopies.end(), isLeftOut) &&
           std::any_of(m_vecCopies.begin(), m_vecCopies.end(), isChanged);
}

CTabsDefaultSettings::~CTabsDefaultSettings() = default;

bool CTabsDefaultSettings::isCurrent(const std::vector<CString>& sNewFiles) const
{
    return std::equal(m_vecFiles.begin(), m_vecFiles.end(), sNewFiles.begin(), sNewFiles.end(),
                      [](const CString& sOne, const CString& sOther) {
                          return Tesk::MultiByte::equalNoCase(Tesk::viewOf(sOne), Tesk::viewOf(sOther));
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
        std::vector<CString> vecFiles = sNewFiles;
        load(vecFiles);
        m_vecFiles.swap(vecFiles);
        m_vecCopies.clear();
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
    traceLeftOut();
    return m_pSettings->isDefined(kUnnamedSection, sKey) ? m_pSettings->getValue(kUnnamedSection, sKey) : CString();
}

CString CTabsDefaultSettings::getModifiedText() { return withoutQuotes(getValue("ModifiedText")); }

CString CTabsDefaultSettings::getXrefsReadOnlyText() { return withoutQuotes(getValue("XrefsReadOnlyText")); }
