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
        const std::string sKey = Tesk::MultiByte::upper(sFolder);
        const auto isSame = [&](const Folder& folder) { return folder.sKey == sKey; };
        if (sFolder.find_first_not_of('\\') != std::string::npos &&
            std::none_of(vecFolders.begin(), vecFolders.end(), isSame))
            vecFolders.push_back({Tesk::toCString(sFolder), sKey});
        sPath = parts.fileName().empty() ? "" : Tesk::withoutBackslash(parts.parent());
    }
    return vecFolders;
}

CString CSameNames::getSuffix(AcApDocument* pDocument, const CString& sName)
{
    Group& group = remember(pDocument, sName);
    if (group.vecDocuments.size() == 1) {
        group.mapShared.clear();
        group.mapFolders.clear();
        return CString();
    }
    Shared& shared = lookUp(group, pDocument);
    shared.shown = distinguish(group, shared);
    return shared.shown ? expand(shared.sTemplate, shared.sFilename, *shared.shown) : CString();
}

CSameNames::Group& CSameNames::remember(AcApDocument* pDocument, const CString& sName)
{
    const std::string sKey = Tesk::MultiByte::upper(Tesk::viewOf(sName));
    const auto known = m_mapGroupOf.find(pDocument);
    if (known != m_mapGroupOf.end() && known->second->first == sKey) {
        Group& group = known->second->second;
        const auto shared = group.mapShared.find(pDocument);
        if (shared == group.mapShared.end() || shared->second.sFilename.Compare(Tesk::fileNameOf(pDocument)) == 0)
            return group;
    }
    forget(pDocument);
    const auto entry = m_mapGroups.try_emplace(sKey).first;
    m_mapGroupOf[pDocument] = entry;
    Group& group = entry->second;
    group.vecDocuments.push_back(pDocument);
    m_bChanged |= group.vecDocuments.size() > 1;
    // The first may have gone without a word.
    if (group.vecDocuments.size() == 2 && isOpen(group.vecDocuments.front()))
        lookUp(group, group.vecDocuments.front());
    return group;
}

CSameNames::Shared& CSameNames::lookUp(Group& group, AcApDocument* pDocument)
{
    Shared& shared = group.mapShared[pDocument];
    shared.sFilename = Tesk::fileNameOf(pDocument);
    shared.sTemplate = getOptInText(shared.sFilename, "SameNameText");
    if (shared.vecFolders.empty()) {
        shared.vecFolders = foldersOf(shared.sFilename);
        for (const Folder& folder : shared.vecFolders)
            ++group.mapFolders[folder.sKey];
    }
    return shared;
}

void CSameNames::forget(AcApDocument* pDocument)
{
    const auto known = m_mapGroupOf.find(pDocument);
    if (known == m_mapGroupOf.end())
        return;
    Group& group = known->second->second;
    std::vector<AcApDocument*>& vecDocuments = group.vecDocuments;
    m_bChanged |= vecDocuments.size() > 1;
    vecDocuments.erase(std::find(vecDocuments.begin(), vecDocuments.end(), pDocument));
    for (const Folder& folder : group.mapShared[pDocument].vecFolders)
        --group.mapFolders[folder.sKey];
    group.mapShared.erase(pDocument);
    if (vecDocuments.empty())
        m_mapGroups.erase(known->second);
    m_mapGroupOf.erase(known);
}

void CSameNames::remove(AcApDocument* pDocument)
{
    forget(pDocument);
    updateOthers();
}

void CSameNames::updateOthers()
{
    if (!std::exchange(m_bChanged, false))
        return;
    std::vector<AcApDocument*> vecDue;
    for (const auto& [sKey, group] : m_mapGroups)
        for (const auto& [pDocument, shared] : group.mapShared)
            if (shared.shown != distinguish(group, shared))
                vecDue.push_back(pDocument);
    // Making a text anew comes back here, with nothing left to look at.
    for (AcApDocument* pDocument : vecDue)
        if (isOpen(pDocument))
            m_tabs.updateTabText(pDocument);
}

// By a folder that no other drawing of the name lies below. Where there is none, by the
// drawing's own folder, unless another's has the same name: then by the whole path.
std::optional<CString> CSameNames::distinguish(const Group& group, const Shared& shared)
{
    if (group.vecDocuments.size() == 1 || shared.sTemplate.IsEmpty() || shared.vecFolders.empty())
        return std::nullopt;
    if (shared.sTemplate.Find(kNearestFolder) == -1)
        return CString();
    for (const Folder& folder : shared.vecFolders)
        if (group.mapFolders.at(folder.sKey) == 1)
            return folder.sName;
    const Folder& own = shared.vecFolders.front();
    const auto hasIt = [&](const auto& other) {
        return !other.second.vecFolders.empty() && other.second.vecFolders.front().sKey == own.sKey;
    };
    if (std::count_if(group.mapShared.begin(), group.mapShared.end(), hasIt) == 1)
        return own.sName;
    return Tesk::toCString(Tesk::withoutBackslash(Tesk::CPathParts(shared.sFilename.GetString()).parent()));
}
