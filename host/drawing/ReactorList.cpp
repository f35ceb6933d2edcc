#include "host/drawing/ReactorList.h"

#include <algorithm>

namespace host {

Acad::ErrorStatus ReactorList::add(AcDbDatabaseReactor* pReactor)
{
    if (pReactor == nullptr)
        return Acad::eNullObjectPointer;
    if (std::find(m_reactors.begin(), m_reactors.end(), pReactor) != m_reactors.end())
        return Acad::eDuplicateKey;
    m_reactors.push_back(pReactor);
    return Acad::eOk;
}

Acad::ErrorStatus ReactorList::remove(AcDbDatabaseReactor* pReactor)
{
    if (pReactor == nullptr)
        return Acad::eNullObjectPointer;
    const auto found = std::find(m_reactors.begin(), m_reactors.end(), pReactor);
    if (found == m_reactors.end())
        return Acad::eKeyNotFound;
    if (m_depth != 0)
        *found = nullptr;
    else
        m_reactors.erase(found);
    return Acad::eOk;
}

std::size_t ReactorList::size() const
{
    return m_reactors.size() - static_cast<std::size_t>(std::count(m_reactors.begin(), m_reactors.end(), nullptr));
}

void ReactorList::leave()
{
    if (--m_depth == 0)
        std::erase(m_reactors, nullptr);
}

}  // namespace host
