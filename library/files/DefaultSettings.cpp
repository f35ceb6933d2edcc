#include "library/files/DefaultSettings.h"

#include "library/diagnostics/Prerelease.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <cstring>
#include <string>

namespace Tesk {

CDefaultSettings::CDefaultSettings(const std::vector<CString>& vFileNames, bool bKeepLines) : m_bKeepLines(bKeepLines)
{
    for (const CString& sFileName : vFileNames)
        readAFile(sFileName);
}

void CDefaultSettings::readAFile(const char* sFileName) { read(sFileName, false); }

void CDefaultSettings::readASoundFile(const char* sFileName) { read(sFileName, true); }

void CDefaultSettings::read(const char* sFileName, bool bSoundOnly)
{
    TESK_TRACE("CDefaultSettings::readAFile(\"%s\")\n", sFileName);
    TESK_ASSERT_TEXT(std::strlen(sFileName) != 0, "_tcslen(sFileName) != 0");
    CTextFileContents contents(sFileName, true);
    TESK_ASSERT(m_pCurrentException == NULL);
    m_pCurrentException = std::make_unique<CDefaultSettingsException>(CDefaultSettingsException::errorUnknown);
    m_pCurrentException->setFileName(sFileName);
    CSettingsEntry entry;
    if (bSoundOnly) {
        for (CSettingsEntries entries(contents); entries.next(entry);)
            if (entry.m_kind == CSettingsEntry::Damage)
                merge(entry);
        contents.rewind();
    }
    for (CSettingsEntries entries(contents); entries.next(entry);)
        merge(entry);
    m_pCurrentException.reset();
}

void CDefaultSettings::merge(const CSettingsEntry& entry)
{
    m_pCurrentException->setLine(entry.m_uLine);
    switch (entry.m_kind) {
    case CSettingsEntry::Section:
        m_sCurrentSection = toCString(entry.m_sKey);
        break;
    case CSettingsEntry::IgnoredHeader:
        break;
    case CSettingsEntry::Key:
        mergeKey(entry);
        break;
    case CSettingsEntry::Damage:
        m_pCurrentException->setCode(CDefaultSettingsException::errorTokenising);
        throw m_pCurrentException.release();
    }
}

void CDefaultSettings::mergeKey(const CSettingsEntry& entry)
{
    if (isTraceEnabled()) {
        if (!m_sCurrentSection.IsEmpty())
            trace("\tsSection = \"%s\"\n", m_sCurrentSection.GetString());
        trace("\tsKey = \"%s\"\n", toCString(entry.m_sKey).GetString());
        trace("\tsValue =  \"%s\"\n", toCString(entry.m_sValue).GetString());
    }
    assign(findOrAddSection(viewOf(m_sCurrentSection)), entry.m_sKey, toCString(entry.m_sValue));
    if (m_bKeepLines)
        m_vecKeyLines.push_back(toCString(MultiByte::trim(entry.m_sLine)));
}

CDefaultSettings::Keys& CDefaultSettings::findOrAddSection(std::string_view sSection)
{
    const auto it = m_mapSections.find(sSection);
    return it != m_mapSections.end() ? it->second : m_mapSections[toCString(sSection)];
}

// Files are mostly sorted or short: the end is looked at first.
void CDefaultSettings::assign(Keys& mapKeys, std::string_view sKey, CString sValue)
{
    mapKeys.emplace_hint(mapKeys.end(), toCString(sKey), CString())->second = std::move(sValue);
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
