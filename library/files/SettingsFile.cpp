#include "library/files/SettingsFile.h"

#include "library/diagnostics/ExceptionBase.h"
#include "library/diagnostics/Prerelease.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <windows.h>

#include <exception>
#include <map>
#include <string>

namespace Tesk {

namespace {

CCurrentBorder g_current;

// A single text, of which the last line counts.
constexpr struct {
    ProjectBlock block;
    CString CSettingsFile::*pText;
} kTexts[] = {
    {ProjectBlock::ProjectLabel, &CSettingsFile::m_sProjectLabel},
    {ProjectBlock::JobNumber, &CSettingsFile::m_sJobNumber},
    {ProjectBlock::IssueDirectory, &CSettingsFile::m_sIssueDirectory},
};

constexpr struct {
    ProjectBlock block;
    std::vector<CString> CSettingsFile::*pLines;
} kLists[] = {
    {ProjectBlock::JobTitle, &CSettingsFile::m_vecJobTitle},
    {ProjectBlock::OfficeDetails, &CSettingsFile::m_vecOfficeDetails},
    {ProjectBlock::ClientTitle, &CSettingsFile::m_vecClientTitle},
    {ProjectBlock::DrawingStatus, &CSettingsFile::m_vecDrawingStatus},
    {ProjectBlock::DrawingDiscipline, &CSettingsFile::m_vecDrawingDiscipline},
};

constexpr struct {
    const char* sKey;
    CString CBlockGroup::*pText;
} kGroupTexts[] = {
    {"CATEGORY", &CBlockGroup::m_sCategory},
    {"DEFAULTLAYER", &CBlockGroup::m_sDefaultLayer},
    {"ISSUEFORMAT", &CBlockGroup::m_sIssueFormat},
    {"LOCATIONPATH", &CBlockGroup::m_sLocationPath},
};

// Takes entry after entry into the record.
class CMerge {
public:
    CMerge(CSettingsFile& settings, const std::string& sFolder) : m_settings(settings), m_sFolder(sFolder) {}

    void take(const CProjectEntry& entry)
    {
        const bool bTitles = entry.m_block == ProjectBlock::TitleBlocks;
        const bool bGroup = bTitles || entry.m_block == ProjectBlock::MockBorders;
        switch (entry.m_kind) {
        case CProjectEntry::Keyword:
            if (bGroup)
                m_group = CBlockGroup();
            break;
        case CProjectEntry::Open:
            break;
        case CProjectEntry::Close:
            if (bGroup)
                (bTitles ? m_settings.m_vecTitleBlocks : m_settings.m_vecMockBorders).push_back(std::move(m_group));
            break;
        case CProjectEntry::Line:
            takeLine(entry);
            break;
        case CProjectEntry::Field:
            takeField(entry);
            break;
        case CProjectEntry::Border:
            takeBorder(entry.m_sValue);
            break;
        case CProjectEntry::Mapping:
            m_group.m_mapOther[toCString(entry.m_sKey)] = toCString(MultiByte::withoutQuotes(entry.m_sValue));
        }
    }

private:
    void takeLine(const CProjectEntry& entry)
    {
        for (const auto& [block, pText] : kTexts)
            if (block == entry.m_block)
                return void(m_settings.*pText = toCString(entry.m_sText));
        for (const auto& [block, pLines] : kLists)
            if (block == entry.m_block)
                return (m_settings.*pLines).push_back(toCString(entry.m_sText));
        switch (entry.m_block) {
        case ProjectBlock::Unknown:
            break;
        case ProjectBlock::ProjectPath:
            takeProjectPath(entry.m_sText);
            break;
        case ProjectBlock::Issue:
            takeIssue(toCString(entry.m_sKey), toCString(entry.m_sValue));
            break;
        case ProjectBlock::CadStandards:
            TESK_ASSERT_TEXT(!entry.m_sKey.empty(), "!sKey.IsEmpty()");
            m_settings.m_mapCadStandards[toCString(entry.m_sKey)] = toCString(entry.m_sValue);
            break;
        default:
            ::MessageBoxA(nullptr, toCString(entry.m_sText), "Not reading any section", MB_OK | MB_ICONERROR);
            TESK_ASSERT(false);
        }
    }

    void takeProjectPath(std::string_view sInput)
    {
        TESK_ASSERT_TEXT(MultiByte::trim(sInput) == sInput, "TrimString(sInput) == sInput");
        TESK_ASSERT(!isCommentString(sInput));
        const std::size_t second = MultiByte::CLeadBytes().next(sInput, 0);
        const bool bAbsolute =
            sInput[0] == '\\' || sInput[0] == '/' || (second < sInput.size() && sInput[second] == ':');
        m_settings.m_sProjectPaths += ";";
        if (!bAbsolute)
            m_settings.m_sProjectPaths += m_sFolder.c_str();
        if (sInput != ".")
            m_settings.m_sProjectPaths += toCString(sInput);
    }

    void takeIssue(const CString& sKey, const CString& sValue)
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

    void takeField(const CProjectEntry& entry)
    {
        for (const auto& [sKey, pText] : kGroupTexts)
            if (entry.m_sKey == sKey)
                m_group.*pText = toCString(entry.m_sValue);
        if (entry.m_sKey == "DEFAULTSPACE")
            m_group.m_bDefaultSpaceIsModel = MultiByte::equalNoCase(entry.m_sValue, "MODEL");
        else if (entry.m_sKey == "INSERTABLE")
            m_group.m_bInsertable = MultiByte::equalNoCase(entry.m_sValue, "YES");
    }

    void takeBorder(std::string_view sValue)
    {
        std::vector<std::string> vecFields = borderFields(sValue);
        if (!isBorder(vecFields.size())) {
            TESK_TRACE("** Invalid border entry.\n");
            return;
        }
        vecFields.resize(6);
        CBorderEntry border;
        border.m_sDescription = toCString(vecFields[0]);
        border.m_sBlockName = toCString(vecFields[1].substr(0, vecFields[1].find('.')));
        for (std::size_t i = 0; i < border.m_aFields.size(); ++i)
            border.m_aFields[i] = toCString(vecFields[i + 2]);
        m_group.m_vecBorders.push_back(std::move(border));
    }

    CSettingsFile& m_settings;
    const std::string& m_sFolder;
    CBlockGroup m_group;
    CString m_sLastIssue;
    bool m_bAnyIssue = false;
};

}  // namespace

CSettingsFile::CSettingsFile(const char* sPath)
{
    // Who only looks sees it as it was at first.
    static std::map<std::string, CSettingsFile> s_mapSeen;
    const auto itSeen = s_mapSeen.find(sPath);
    if (itSeen != s_mapSeen.end()) {
        *this = itSeen->second;
        return;
    }
    try {
        read(sPath);
        if (isLookOnly())
            s_mapSeen[sPath] = *this;
    } catch (CException* e) {
        e->Delete();
    } catch (const std::exception&) {
        *this = CSettingsFile();
        TESK_TRACE("CSettingsFile: \"%s\" is left out: it is too large for the memory\n", sPath);
    }
}

void CSettingsFile::read(const char* sPath)
{
    *this = CSettingsFile();
    CTextFileContents contents(sPath, false);
    merge(parseProject(contents), CPathParts(sPath).parent());
    m_bValid = true;
}

void CSettingsFile::merge(const std::vector<CProjectEntry>& vecEntries, const std::string& sFolder)
{
    CMerge target(*this, sFolder);
    for (const CProjectEntry& entry : vecEntries)
        target.take(entry);
}

const CCurrentBorder& getCurrentBorder() { return g_current; }

void setCurrentBorder(const CBorderEntry& border, const CBlockGroup& titleBlock) { g_current = {border, titleBlock}; }

}  // namespace Tesk
