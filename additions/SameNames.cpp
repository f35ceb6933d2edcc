#include "additions/SameNames.h"

#include "additions/OptInText.h"
#include "library/expansion/KeywordExpansion.h"
#include "library/files/PathParts.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"
#include "objectarx/acdocman.h"
#include "settings/TabOptions.h"

#include <algorithm>

namespace {

// The nearest folder that tells the drawing from the others of its name; here alone.
constexpr const char* kNearestFolder = "%DISTINCT_FOLDER%";

std::string upper(const CString& sText) { return Tesk::MultiByte::upper(Tesk::viewOf(sText)); }

CString templateOf(const AcApDocument* pDocument) { return getOptInText(pDocument->fileName(), "SameNameText"); }

// From the drawing's own up to the drive or the server; none for a name without a path.
std::vector<CString> foldersOf(const CString& sFilename)
{
    std::vector<CString> vecFolders;
    std::string sPath = Tesk::withoutBackslash(Tesk::CPathParts(sFilename.GetString()).parent());
    while (!sPath.empty()) {
        const Tesk::CPathParts parts(sPath);
        const std::string sFolder = parts.fileName().empty() ? sPath : parts.fileName();
        if (sFolder.find_first_not_of('\\') != std::string::npos)
            vecFolders.push_back(Tesk::toCString(sFolder));
        sPath = parts.fileName().empty() ? "" : Tesk::withoutBackslash(parts.parent());
    }
    return vecFolders;
}

// Each once, in one case.
std::set<std::string> folderKeys(const CString& sFilename)
{
    std::set<std::string> keys;
    for (const CString& sFolder : foldersOf(sFilename))
        keys.insert(upper(sFolder));
    return keys;
}

// What the path and the dates can tell; nothing of the drawing has to be read for it.
CString expand(CString sTemplate, const CString& sFilename, const CString& sNearestFolder)
{
    sTemplate.Replace(kNearestFolder, sNearestFolder);
    return sTemplate.Find('%') == -1 ? sTemplate : Tesk::CKeywordExpansion(sFilename, 1, 1).expandString(sTemplate);
}

}  // namespace

CString CSameNames::getSuffix(AcApDocument* pDocument, const CString& sName)
{
    const CString sTemplate = templateOf(pDocument);
    if (m_iAsking == 0) {
        if (sTemplate.IsEmpty())
            return CString();
        rememberTabs();
    }
    remember(pDocument, sName, sTemplate);
    if (sTemplate.IsEmpty())
        return CString();
    std::optional<CString>& shown = m_mapNames.at(pDocument).shown;
    shown = distinguish(pDocument);
    return shown ? expand(sTemplate, pDocument->fileName(), *shown) : CString();
}

void CSameNames::rememberTabs()
{
    const bool bExtensions = CTabOptions::readExtensions();
    for (int iItem = 0; iItem < m_tabs.GetItemCount(); ++iItem) {
        AcApDocument* pDocument = m_tabs.getDocument(iItem);
        const Tesk::CPathParts parts(pDocument->fileName());
        remember(pDocument, Tesk::toCString(bExtensions ? parts.fileName() : parts.m_sBase), templateOf(pDocument));
    }
}

void CSameNames::remember(AcApDocument* pDocument, const CString& sName, const CString& sTemplate)
{
    const auto known = m_mapNames.find(pDocument);
    std::string sKey = upper(sName);
    if (known != m_mapNames.end() && known->second.sKey == sKey &&
        known->second.sFilename.Compare(pDocument->fileName()) == 0 && known->second.sTemplate.Compare(sTemplate) == 0)
        return;
    forget(pDocument);
    Group& group = m_mapGroups[sKey];
    group.vecDocuments.push_back(pDocument);
    for (const std::string& sFolder : folderKeys(pDocument->fileName()))
        ++group.mapFolders[sFolder];
    m_setChanged.insert(sKey);
    m_iAsking += !sTemplate.IsEmpty();
    m_mapNames.insert({pDocument, Name{std::move(sKey), pDocument->fileName(), sTemplate, {}}});
}

void CSameNames::forget(AcApDocument* pDocument)
{
    const auto known = m_mapNames.find(pDocument);
    if (known == m_mapNames.end())
        return;
    const Name& name = known->second;
    Group& group = m_mapGroups.at(name.sKey);
    group.vecDocuments.erase(std::find(group.vecDocuments.begin(), group.vecDocuments.end(), pDocument));
    for (const std::string& sFolder : folderKeys(name.sFilename))
        --group.mapFolders[sFolder];
    if (group.vecDocuments.empty())
        m_mapGroups.erase(name.sKey);
    m_setChanged.insert(name.sKey);
    m_iAsking -= !name.sTemplate.IsEmpty();
    m_mapNames.erase(known);
}

void CSameNames::remove(AcApDocument* pDocument)
{
    forget(pDocument);
    updateOthers();
}

void CSameNames::updateOthers()
{
    if (m_iAsking == 0) {
        m_mapNames.clear();
        m_mapGroups.clear();
    }
    // Making a text anew comes back here, with nothing left to look at.
    std::set<std::string> setChanged;
    setChanged.swap(m_setChanged);
    for (const std::string& sKey : setChanged) {
        const auto group = m_mapGroups.find(sKey);
        if (group == m_mapGroups.end())
            continue;
        for (AcApDocument* pDocument : std::vector<AcApDocument*>(group->second.vecDocuments)) {
            const Name& name = m_mapNames.at(pDocument);
            if (!name.sTemplate.IsEmpty() && name.shown != distinguish(pDocument))
                m_tabs.updateTabText(pDocument);
        }
    }
}

std::optional<CString> CSameNames::distinguish(AcApDocument* pDocument) const
{
    const Name& name = m_mapNames.at(pDocument);
    const Group& group = m_mapGroups.at(name.sKey);
    if (group.vecDocuments.size() < 2 || foldersOf(name.sFilename).empty())
        return std::nullopt;
    return name.sTemplate.Find(kNearestFolder) == -1 ? CString() : nearestFolder(group, pDocument);
}

// One that no other drawing of the name lies below. Where there is none, the drawing's own
// folder, unless another's has the same name.
CString CSameNames::nearestFolder(const Group& group, AcApDocument* pDocument) const
{
    const CString sFilename = m_mapNames.at(pDocument).sFilename;
    const std::vector<CString> vecFolders = foldersOf(sFilename);
    for (const CString& sFolder : vecFolders)
        if (group.mapFolders.at(upper(sFolder)) == 1)
            return sFolder;
    const std::string sOwn = upper(vecFolders.front());
    const auto isSame = [&](AcApDocument* pOther) {
        const std::vector<CString> vecOthers = foldersOf(m_mapNames.at(pOther).sFilename);
        return pOther != pDocument && !vecOthers.empty() && upper(vecOthers.front()) == sOwn;
    };
    if (std::none_of(group.vecDocuments.begin(), group.vecDocuments.end(), isSame))
        return vecFolders.front();
    return Tesk::toCString(Tesk::withoutBackslash(Tesk::CPathParts(sFilename.GetString()).parent()));
}
