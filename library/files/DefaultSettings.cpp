#include "library/files/DefaultSettings.h"

#include "library/diagnostics/Prerelease.h"
#include "library/files/TextFileContents.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <cstring>
#include <string>

namespace Tesk {

using MultiByte::trim;

namespace {

constexpr char cSectionOpen = '[';
constexpr char kSectionClose = ']';
constexpr char kComment = ';';
constexpr char kEquals = '=';

// How many "]" the text ends in. It is read from its start, as "]" may be the
// second byte of a double-byte character.
std::size_t countClosing(std::string_view sText)
{
    const MultiByte::CLeadBytes lead;
    std::size_t count = 0;
    for (std::size_t i = 0; i < sText.size(); i = lead.next(sText, i))
        count = sText[i] == kSectionClose ? count + 1 : 0;
    return count;
}

}  // namespace

CDefaultSettings::CDefaultSettings(const std::vector<CString>& vFileNames, bool bKeepLines,
                                   CSettingsListener* pListener)
    : m_bKeepLines(bKeepLines), m_pListener(pListener)
{
    for (const CString& sFileName : vFileNames)
        readAFile(sFileName);
}

void CDefaultSettings::readAFile(const char* sFileName)
{
    TESK_TRACE("CDefaultSettings::readAFile(\"%s\")\n", sFileName);
    TESK_ASSERT_TEXT(std::strlen(sFileName) != 0, "_tcslen(sFileName) != 0");
    CTextFileContents contents(sFileName, true);
    TESK_ASSERT(m_pCurrentException == NULL);
    m_pCurrentException = std::make_unique<CDefaultSettingsException>(CDefaultSettingsException::errorUnknown);
    m_pCurrentException->setFileName(sFileName);
    if (m_pListener)
        m_pListener->onFile(sFileName);
    uint32_t uLine = 0;
    for (std::string_view sLine; contents.nextConverted(sLine);) {
        m_pCurrentException->setLine(++uLine);
        readLine(trim(sLine));
    }
    m_pCurrentException.reset();
}

void CDefaultSettings::readLine(std::string_view sLine)
{
    if (sLine.empty() || sLine[0] == kComment)
        return;
    if (sLine[0] == cSectionOpen)
        readSectionLine(sLine);
    else
        readKeyLine(sLine);
}

// A header that does not end in "]" is passed over, and the section stays.
void CDefaultSettings::readSectionLine(std::string_view sLine)
{
    TESK_ASSERT(sLine[0] == cSectionOpen);
    const std::size_t closing = countClosing(sLine);
    if (closing == 0) {
        if (m_pListener)
            m_pListener->onIgnoredHeader(m_pCurrentException->getLine());
        return;
    }
    sLine.remove_suffix(closing);
    const std::size_t first = sLine.find_first_not_of(cSectionOpen);
    m_sCurrentSection = toCString(first == sLine.npos ? std::string_view() : sLine.substr(first));
    if (m_pListener)
        m_pListener->onSection(m_pCurrentException->getLine(), viewOf(m_sCurrentSection));
}

void CDefaultSettings::readKeyLine(std::string_view sLine)
{
    const std::size_t equals = sLine.find(kEquals);
    if (equals == sLine.npos) {
        m_pCurrentException->setCode(CDefaultSettingsException::errorTokenising);
        throw m_pCurrentException.release();
    }
    const std::string_view sKey = trim(sLine.substr(0, equals));
    CString sValue = toCString(trim(sLine.substr(equals + 1)));
    if (isTraceEnabled()) {
        if (!m_sCurrentSection.IsEmpty())
            trace("\tsSection = \"%s\"\n", m_sCurrentSection.GetString());
        trace("\tsKey = \"%s\"\n", toCString(sKey).GetString());
        trace("\tsValue =  \"%s\"\n", sValue.GetString());
    }
    if (m_pListener)
        m_pListener->onKey(m_pCurrentException->getLine(), viewOf(m_sCurrentSection), sKey, viewOf(sValue));
    assign(findOrAddSection(viewOf(m_sCurrentSection)), sKey, std::move(sValue));
    if (m_bKeepLines)
        m_vecKeyLines.push_back(toCString(sLine));
}

CDefaultSettings::Keys& CDefaultSettings::findOrAddSection(std::string_view sSection)
{
    const auto it = m_mapSections.find(sSection);
    return it != m_mapSections.end() ? it->second : m_mapSections[toCString(sSection)];
}

// Files are mostly sorted or short: the end is looked at first.
void CDefaultSettings::assign(Keys& mapKeys, std::string_view sKey, CString sValue)
{
    auto it = mapKeys.end();
    if (!mapKeys.empty() && !mapKeys.key_comp()(std::prev(it)->first, sKey))
        it = mapKeys.lower_bound(sKey);
    if (it != mapKeys.end() && !mapKeys.key_comp()(sKey, it->first))
        it->second = std::move(sValue);
    else
        mapKeys.emplace_hint(it, toCString(sKey), std::move(sValue));
}

bool CDefaultSettings::isDefined(const char* sSection, const char* sKey) const
{
    const auto itSection = m_mapSections.find(std::string_view(sSection));
    return itSection != m_mapSections.end() && itSection->second.count(std::string_view(sKey)) != 0;
}

const CString& CDefaultSettings::getValue(const char* sSection, const char* sKey) const
{
    const auto itSection = m_mapSections.find(std::string_view(sSection));
    if (itSection == m_mapSections.end())
        throw new CDefaultSettingsException(CDefaultSettingsException::errorInvalidSection, sSection);
    const auto itKey = itSection->second.find(std::string_view(sKey));
    if (itKey == itSection->second.end())
        throw new CDefaultSettingsException(CDefaultSettingsException::errorInvalidKey, sKey);
    return itKey->second;
}

void CDefaultSettings::setValue(const CString& sSection, const CString& sKey, const CString& sValue)
{
    assign(findOrAddSection(viewOf(sSection)), viewOf(sKey), sValue);
}

std::vector<CString> CDefaultSettings::getContents() const
{
    std::vector<CString> vLines;
    for (const auto& [sSection, mapKeys] : m_mapSections) {
        if (!sSection.IsEmpty())
            vLines.push_back("[" + sSection + "]");
        for (const auto& [sKey, sValue] : mapKeys)
            vLines.push_back(sKey + "=" + sValue);
    }
    return vLines;
}

void CDefaultSettings::traceContents(int iIndent) const
{
    if (!isTraceEnabled())
        return;
    const std::string sIndent(iIndent > 0 ? static_cast<std::size_t>(iIndent) : 0, '\t');
    for (const CString& sLine : getContents())
        trace("%s%s\n", sIndent.c_str(), sLine.GetString());
}

}  // namespace Tesk
