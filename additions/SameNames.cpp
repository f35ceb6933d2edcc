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

// What the path and the dates can tell; nothing of the drawing has to be read for it.
CString expand(CString sTemplate, const CString& sFilename, const CString& sNearestFolder)
{
    sTemplate.Replace(kNearestFolder, sNearestFolder);
    return sTemplate.Find('%') == -1 ? sTemplate : Tesk::CKeywordExpansion(sFilename, 1, 1).expandString(sTemplate);
}

}  // namespace

// Up to the drive or the server; none for a name without a path.
std::vector<CSameNames::Folder> CSameNames::foldersOf(const CString& sFilename)
{
    std::vector<Folder> vecFolders;
    std::string sPath = Tesk::withoutBackslash(Tesk::CPathParts(sFilename.GetString()).parent());
    while (!sPath.empty()) {
        const Tesk::CPathParts parts(sPath);
        const std::string sFolder = parts.fileName().empty() ? sPath : parts.fileName();
        if (sFolder.find_first_not_of('\\') != std::string::npos)
            vecFolders.push_back({Tesk::toCString(sFolder), Tesk::MultiByte::upper(sFolder)});
        sPath = parts.fileName().empty() ? "" : Tesk::withoutBackslash(parts.parent());
    }
    return vecFolders;
}

// Each once.
std::set<std::string> CSameNames::keysOf(const std::vector<Folder>& vecFolders)
{
    std::set<std::string> keys;
    for (const Folder& folder : vecFolders)
        keys.insert(folder.sKey);
    return keys;
}

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
    Name& name = m_mapNames.at(pDocument);
    name.shown = distinguish(m_mapGroups.at(name.sKey), name);
    return name.shown ? expand(sTemplate, name.sFilename, *name.shown) : CString();
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
    Name name{sKey, pDocument->fileName(), sTemplate, foldersOf(pDocument->fileName()), {}};
    for (const std::string& sFolder : keysOf(name.vecFolders))
        ++group.mapFolders[sFolder];
    m_mapNames.insert({pDocument, std::move(name)});
    m_setChanged.insert(std::move(sKey));
    m_iAsking += !sTemplate.IsEmpty();
}

void CSameNames::forget(AcApDocument* pDocument)
{
    const auto known = m_mapNames.find(pDocument);
    if (known == m_mapNames.end())
        return;
    const Name& name = known->second;
    Group& group = m_mapGroups.at(name.sKey);
    group.vecDocuments.erase(std::find(group.vecDocuments.begin(), group.vecDocuments.end(), pDocument));
    for (const std::string& sFolder : keysOf(name.vecFolders))
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
            if (!name.sTemplate.IsEmpty() && name.shown != distinguish(m_mapGroups.at(name.sKey), name))
                m_tabs.updateTabText(pDocument);
        }
    }
}

std::optional<CString> CSameNames::distinguish(const Group& group, const Name& name) const
{
    if (group.vecDocuments.size() < 2 || name.vecFolders.empty())
        return std::nullopt;
    return name.sTemplate.Find(kNearestFolder) == -1 ? CString() : nearestFolder(group, name);
}

// One that no other drawing of the name lies below. Where there is none, the drawing's own
// folder, unless another's has the same name.
CString CSameNames::nearestFolder(const Group& group, const Name& name) const
{
    for (const Folder& folder : name.vecFolders)
        if (group.mapFolders.at(folder.sKey) == 1)
            return folder.sName;
    const Folder& own = name.vecFolders.front();
    const auto isSame = [&](AcApDocument* pOther) {
        const Name& other = m_mapNames.at(pOther);
        return &other != &name && !other.vecFolders.empty() && other.vecFolders.front().sKey == own.sKey;
    };
    if (std::none_of(group.vecDocuments.begin(), group.vecDocuments.end(), isSame))
        return own.sName;
    return Tesk::toCString(Tesk::withoutBackslash(Tesk::CPathParts(name.sFilename.GetString()).parent()));
}
