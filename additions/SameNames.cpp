#include "additions/SameNames.h"

#include "additions/OptInText.h"
#include "library/drawing/DocumentName.h"
#include "library/expansion/KeywordExpansion.h"
#include "library/files/PathParts.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"
#include "reactors/OpenDocuments.h"

#include <algorithm>
#include <utility>

namespace {

// The nearest folder that tells the drawing from the others of its name; here alone.
constexpr const char* kNearestFolder = "%DISTINCT_FOLDER%";

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
    Name& name = remember(pDocument, sName);
    if (m_mapGroups.at(name.sKey).isShared())
        lookUp(pDocument);
    name.shown = distinguish(name);
    return name.shown ? expand(name.sTemplate, name.sFilename, *name.shown) : CString();
}

CSameNames::Name& CSameNames::remember(AcApDocument* pDocument, const CString& sName)
{
    std::string sKey = Tesk::MultiByte::upper(Tesk::viewOf(sName));
    const auto known = m_mapNames.find(pDocument);
    if (known != m_mapNames.end() && known->second.sKey == sKey &&
        (known->second.sFilename.IsEmpty() || known->second.sFilename.Compare(Tesk::fileNameOf(pDocument)) == 0))
        return known->second;
    forget(pDocument);
    Name& name = m_mapNames.insert({pDocument, {std::move(sKey), {}, {}, {}, {}}}).first->second;
    Group& group = m_mapGroups[name.sKey];
    group.vecDocuments.push_back(pDocument);
    if (group.isShared()) {
        m_setChanged.insert(name.sKey);
        if (isOpen(group.vecDocuments.front()))  // it may have gone without a word
            lookUp(group.vecDocuments.front());
    }
    return name;
}

void CSameNames::lookUp(AcApDocument* pDocument)
{
    Name& name = m_mapNames.at(pDocument);
    name.sFilename = Tesk::fileNameOf(pDocument);
    name.sTemplate = getOptInText(name.sFilename, "SameNameText");
    if (!name.vecFolders.empty())
        return;
    name.vecFolders = foldersOf(name.sFilename);
    Group& group = m_mapGroups.at(name.sKey);
    for (const std::string& sFolder : keysOf(name.vecFolders))
        ++group.mapFolders[sFolder];
}

void CSameNames::forget(AcApDocument* pDocument)
{
    const auto known = m_mapNames.find(pDocument);
    if (known == m_mapNames.end())
        return;
    const Name& name = known->second;
    Group& group = m_mapGroups[name.sKey];
    if (group.isShared())
        m_setChanged.insert(name.sKey);
    std::vector<AcApDocument*>& vecDocuments = group.vecDocuments;
    vecDocuments.erase(std::remove(vecDocuments.begin(), vecDocuments.end(), pDocument), vecDocuments.end());
    for (const std::string& sFolder : keysOf(name.vecFolders))
        --group.mapFolders[sFolder];
    if (vecDocuments.empty())
        m_mapGroups.erase(name.sKey);
    m_mapNames.erase(known);
}

void CSameNames::remove(AcApDocument* pDocument)
{
    forget(pDocument);
    updateOthers();
}

void CSameNames::updateOthers()
{
    // Making a text anew comes back here, with nothing left to look at.
    std::set<std::string> setChanged;
    setChanged.swap(m_setChanged);
    for (const std::string& sKey : setChanged) {
        const auto group = m_mapGroups.find(sKey);
        if (group == m_mapGroups.end())
            continue;
        for (AcApDocument* pDocument : std::vector<AcApDocument*>(group->second.vecDocuments)) {
            const Name& name = m_mapNames.at(pDocument);
            // One may have gone without a word.
            if (name.shown != distinguish(name) && isOpen(pDocument))
                m_tabs.updateTabText(pDocument);
        }
    }
}

std::optional<CString> CSameNames::distinguish(const Name& name) const
{
    const Group& group = m_mapGroups.at(name.sKey);
    if (!group.isShared() || name.sTemplate.IsEmpty() || name.vecFolders.empty())
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
