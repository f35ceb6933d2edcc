#pragma once

// The reactors on a database, the document manager or the editor, in the order in
// which they came. A reactor may add and remove reactors, itself included, while it
// is being notified: one removed hears nothing more, one added hears from the next
// notification on.

#include "host/drawing/Faults.h"
#include "objectarx/acadstrc.h"

#include <algorithm>
#include <vector>

namespace host {

template <class Reactor>
class Listeners {
public:
    // eNullObjectPointer, eDuplicateKey.
    Acad::ErrorStatus add(Reactor* pReactor)
    {
        if (pReactor == nullptr)
            return Acad::eNullObjectPointer;
        if (place(pReactor) != m_reactors.end())
            return Acad::eDuplicateKey;
        m_reactors.push_back(pReactor);
        return Acad::eOk;
    }
    // eNullObjectPointer, eKeyNotFound.
    Acad::ErrorStatus remove(Reactor* pReactor)
    {
        if (pReactor == nullptr)
            return Acad::eNullObjectPointer;
        if (place(pReactor) == m_reactors.end())
            return Acad::eKeyNotFound;
        *place(pReactor) = nullptr;
        tidy();
        return Acad::eOk;
    }
    std::size_t size() const
    {
        return m_reactors.size() - static_cast<std::size_t>(std::count(m_reactors.begin(), m_reactors.end(), nullptr));
    }

    template <class... Parameters, class... Arguments>
    void notify(void (Reactor::*notification)(Parameters...), Arguments... arguments)
    {
        if (Faults::leavesOut(notification))
            return;
        const Depth depth(*this);
        const std::size_t count = m_reactors.size();
        for (std::size_t i = 0; i < count; ++i)
            if (Reactor* const pReactor = m_reactors[i])
                (pReactor->*notification)(arguments...);
    }

private:
    // Counts notifications under way: the places of those removed go when the last
    // one ends, also when a reactor throws.
    class Depth {
    public:
        explicit Depth(Listeners& list) : m_list(list) { ++m_list.m_depth; }
        ~Depth()
        {
            --m_list.m_depth;
            m_list.tidy();
        }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

    private:
        Listeners& m_list;
    };

    auto place(Reactor* pReactor) { return std::find(m_reactors.begin(), m_reactors.end(), pReactor); }
    void tidy()
    {
        if (m_depth == 0)
            std::erase(m_reactors, nullptr);
    }

    std::vector<Reactor*> m_reactors;
    int m_depth = 0;
};

}  // namespace host
