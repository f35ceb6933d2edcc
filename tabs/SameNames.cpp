#include "tabs/SameNames.h"

#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

std::vector<AcApDocument*> CSameNames::rename(AcApDocument* pDocument, const CString& sName)
{
    const std::string sKey = Tesk::MultiByte::upper(Tesk::viewOf(sName));
    const auto known = m_mapNames.find(pDocument);
    if (known != m_mapNames.end() && known->second == sKey)
        return {};
    std::vector<AcApDocument*> vecChanged = remove(pDocument);
    m_mapNames.emplace(pDocument, sKey);
    std::set<AcApDocument*>& sharing = m_mapDocuments[sKey];
    if (sharing.size() == 1)
        vecChanged.push_back(*sharing.begin());
    sharing.insert(pDocument);
    return vecChanged;
}

std::vector<AcApDocument*> CSameNames::remove(AcApDocument* pDocument)
{
    const auto known = m_mapNames.find(pDocument);
    if (known == m_mapNames.end())
        return {};
    const auto group = m_mapDocuments.find(known->second);
    m_mapNames.erase(known);
    group->second.erase(pDocument);
    std::vector<AcApDocument*> vecChanged;
    if (group->second.size() == 1)
        vecChanged.push_back(*group->second.begin());
    if (group->second.empty())
        m_mapDocuments.erase(group);
    return vecChanged;
}

bool CSameNames::isShared(AcApDocument* pDocument) const
{
    const auto known = m_mapNames.find(pDocument);
    return known != m_mapNames.end() && m_mapDocuments.at(known->second).size() > 1;
}
