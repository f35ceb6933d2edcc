#include "library/files/SettingsFileReader.h"

#include "library/diagnostics/Prerelease.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace Tesk {

namespace {

bool isCommentString(std::string_view sLine) { return sLine.substr(0, 1) == "#" || sLine.substr(0, 2) == "//"; }

// Up to six fields between quotation marks with white space between them, by the rules of
// sscanf for ` "%[^"]" "%[^"]" ...`: a field has one character at least, and the last one
// need not be closed. Scanned by hand, since a field may be as long as its line.
std::vector<std::string> scanQuoted(std::string_view sText)
{
    std::vector<std::string> vecFields;
    std::size_t at = 0;
    while (vecFields.size() < 6) {
        at = sText.find_first_not_of(" \t\r\n\v\f", at);
        if (at == std::string_view::npos || sText[at] != '"')
            break;
        ++at;
        const std::size_t end = std::min(sText.find('"', at), sText.size());
        if (end == at)
            break;
        vecFields.emplace_back(sText.substr(at, end - at));
        if (end == sText.size())
            break;
        at = end + 1;
    }
    return vecFields;
}

}  // namespace

CSettingsFileReader::CSettingsFileReader(CSettingsFile& settings, std::string sFolder)
    : m_settings(settings), m_sFolder(std::move(sFolder))
{
}

std::pair<CString, CString> CSettingsFileReader::splitLine(std::string_view sLine)
{
    const std::size_t blank = sLine.find_first_of(" \t");
    CString sValue;
    if (blank != std::string_view::npos)
        sValue = toCString(MultiByte::trim(sLine.substr(blank)));
    return {toCString(MultiByte::upper(MultiByte::trim(sLine.substr(0, blank)))), sValue};
}

std::size_t CSettingsFileReader::countFields(std::string_view sValue) { return scanQuoted(sValue).size(); }

CSettingsFileReader::Line CSettingsFileReader::readLine(std::string_view sLine)
{
    sLine = MultiByte::trim(sLine);
    if (sLine.empty() || isCommentString(sLine) || sLine == "{")
        return Line::Passed;
    if (sLine == "}") {
        closeBlock();
        return Line::Passed;
    }
    if (m_state == STATE_TOP) {
        m_state = stateOf(splitLine(sLine).first);
        if (m_state == STATE_TITLEBLOCKS || m_state == STATE_MOCKBORDERS)
            m_group = CBlockGroup();
        return m_state == STATE_SKIP ? Line::UnknownKeyword : Line::Keyword;
    }
    return m_state == STATE_SKIP ? Line::Passed : readBlockLine(toCString(sLine));
}

const CSettingsFileReader::Keyword CSettingsFileReader::kKeywords[] = {
    {"PROJECTPATH", STATE_PROJECTPATH},     {"PROJECTLABEL", STATE_PROJECTLABEL},
    {"JOBNUMBER", STATE_JOBNUMBER},         {"ISSUEDIRECTORY", STATE_ISSUEDIRECTORY},
    {"JOBTITLE", STATE_JOBTITLE},           {"OFFICEDETAILS", STATE_OFFICEDETAILS},
    {"CLIENTTITLE", STATE_CLIENTTITLE},     {"DWGSTATUS", STATE_DWGSTATUS},
    {"DWGDISCIPLINE", STATE_DWGDISCIPLINE}, {"ISSUE", STATE_ISSUE},
    {"CADSTANDARDS", STATE_CADSTANDARDS},   {"TITLEBLOCKS", STATE_TITLEBLOCKS},
    {"MOCKBORDERS", STATE_MOCKBORDERS},
};

CSettingsFileReader::State CSettingsFileReader::stateOf(const CString& sKeyword)
{
    for (const Keyword& keyword : kKeywords) {
        if (sKeyword == keyword.sName)
            return keyword.state;
    }
    return STATE_SKIP;
}

std::vector<std::string> CSettingsFileReader::getKeywords()
{
    std::vector<std::string> vecNames;
    for (const Keyword& keyword : kKeywords)
        vecNames.push_back(keyword.sName);
    return vecNames;
}

void CSettingsFileReader::closeBlock()
{
    if (m_state == STATE_TITLEBLOCKS)
        m_settings.m_vecTitleBlocks.push_back(std::move(m_group));
    else if (m_state == STATE_MOCKBORDERS)
        m_settings.m_vecMockBorders.push_back(std::move(m_group));
    m_state = STATE_TOP;
}

CSettingsFileReader::Line CSettingsFileReader::readBlockLine(const CString& sLine)
{
    const auto [sKey, sValue] = splitLine(viewOf(sLine));
    switch (m_state) {
    case STATE_PROJECTPATH:
        readProjectPath(sLine);
        break;
    case STATE_PROJECTLABEL:
        m_settings.m_sProjectLabel = sLine;
        break;
    case STATE_JOBNUMBER:
        m_settings.m_sJobNumber = sLine;
        break;
    case STATE_ISSUEDIRECTORY:
        m_settings.m_sIssueDirectory = sLine;
        break;
    case STATE_JOBTITLE:
        m_settings.m_vecJobTitle.push_back(sLine);
        break;
    case STATE_OFFICEDETAILS:
        m_settings.m_vecOfficeDetails.push_back(sLine);
        break;
    case STATE_CLIENTTITLE:
        m_settings.m_vecClientTitle.push_back(sLine);
        break;
    case STATE_DWGSTATUS:
        m_settings.m_vecDrawingStatus.push_back(sLine);
        break;
    case STATE_DWGDISCIPLINE:
        m_settings.m_vecDrawingDiscipline.push_back(sLine);
        break;
    case STATE_ISSUE:
        readIssue(sKey, sValue);
        break;
    case STATE_CADSTANDARDS:
        readCadStandard(sKey, sValue);
        break;
    case STATE_TITLEBLOCKS:
    case STATE_MOCKBORDERS:
        return readGroupLine(sKey, sValue);
    default:
        ::MessageBoxA(nullptr, sLine, "Not reading any section", MB_OK | MB_ICONERROR);
        TESK_ASSERT(false);
    }
    return Line::Passed;
}

void CSettingsFileReader::readProjectPath(const CString& sInput)
{
    TESK_ASSERT_TEXT(MultiByte::trim(viewOf(sInput)) == viewOf(sInput), "TrimString(sInput) == sInput");
    TESK_ASSERT(!isCommentString(viewOf(sInput)));
    const std::string_view sPath = viewOf(sInput);
    const std::size_t second = MultiByte::CLeadBytes().next(sPath, 0);
    const bool bAbsolute = sPath[0] == '\\' || sPath[0] == '/' || (second < sPath.size() && sPath[second] == ':');
    m_settings.m_sProjectPaths += ";";
    if (!bAbsolute)
        m_settings.m_sProjectPaths += m_sFolder.c_str();
    if (sInput != ".")
        m_settings.m_sProjectPaths += sInput;
}

void CSettingsFileReader::readIssue(const CString& sKey, const CString& sValue)
{
    TESK_ASSERT(!sKey.IsEmpty());
    if (sKey.Find('+') >= 0) {
        if (m_bAnyIssue)
            m_settings.m_mapIssues[m_sLastIssue] += "\r\n" + sValue;
        return;
    }
    const int iAmpersand = sKey.Find('&');
    if (iAmpersand < 0) {
        m_sLastIssue = sKey;
        m_settings.m_mapIssues[m_sLastIssue] = sValue;
    } else {
        // The rest of the key names the entry; a bare "&" means the one before.
        const CString sName = sKey.Left(iAmpersand) + sKey.Mid(iAmpersand + 1);
        if (!sName.IsEmpty())
            m_sLastIssue = sName;
        else if (!m_bAnyIssue)
            return;
        m_settings.m_mapIssues[m_sLastIssue] += sValue;
    }
    m_bAnyIssue = true;
}

void CSettingsFileReader::readCadStandard(const CString& sKey, const CString& sValue)
{
    TESK_ASSERT(!sKey.IsEmpty());
    m_settings.m_mapCadStandards[sKey] = sValue;
}

CSettingsFileReader::Line CSettingsFileReader::readGroupLine(const CString& sKey, const CString& sValue)
{
    if (sKey == "CATEGORY")
        m_group.m_sCategory = sValue;
    else if (sKey == "DEFAULTLAYER")
        m_group.m_sDefaultLayer = sValue;
    else if (sKey == "DEFAULTSPACE")
        m_group.m_bDefaultSpaceIsModel = MultiByte::equalNoCase(viewOf(sValue), "MODEL");
    else if (sKey == "INSERTABLE")
        m_group.m_bInsertable = MultiByte::equalNoCase(viewOf(sValue), "YES");
    else if (sKey == "ISSUEFORMAT")
        m_group.m_sIssueFormat = sValue;
    else if (sKey == "LOCATIONPATH")
        m_group.m_sLocationPath = sValue;
    else if (sKey == "BORDER")
        return readBorder(viewOf(sValue)) ? Line::Border : Line::IgnoredBorder;
    else {
        m_group.m_mapOther[sKey] = toCString(MultiByte::withoutQuotes(viewOf(sValue)));
        return Line::Mapping;
    }
    return Line::Passed;
}

bool CSettingsFileReader::readBorder(std::string_view sValue)
{
    std::vector<std::string> vecFields = scanQuoted(sValue);
    if (vecFields.size() != 6 && vecFields.size() != 5 && vecFields.size() != 2) {
        TESK_TRACE("** Invalid border entry.\n");
        return false;
    }
    vecFields.resize(6);
    CBorderEntry border;
    border.m_sDescription = toCString(vecFields[0]);
    border.m_sBlockName = toCString(vecFields[1].substr(0, vecFields[1].find('.')));
    for (std::size_t i = 0; i < border.m_aFields.size(); ++i)
        border.m_aFields[i] = toCString(vecFields[i + 2]);
    m_group.m_vecBorders.push_back(std::move(border));
    return true;
}

}  // namespace Tesk
