#pragma once

// The reactors on the document manager or the editor, in the order in which they
// came. A reactor may add and remove reactors, itself included, while it is being
// notified: one removed hears nothing more, one added hears from the next
// notification on.

#include <algorithm>
#include <vector>

namespace host {

template <class Reactor>
class Listeners {
public:
    // A null pointer and a second registration are ignored, as is removing a stranger.
    void add(Reactor* pReactor)
    {
        if (pReactor != nullptr && !contains(pReactor))
            m_reactors.push_back(pReactor);
    }
    void remove(Reactor* pReactor) { std::erase(m_reactors, pReactor); }
    std::size_t size() const { return m_reactors.size(); }

    template <class... Parameters, class... Arguments>
    void notify(void (Reactor::*notification)(Parameters...), Arguments... arguments)
    {
        const std::vector<Reactor*> now = m_reactors;
        for (Reactor* pReactor : now)
            if (contains(pReactor))
                (pReactor->*notification)(arguments...);
    }

private:
    bool contains(Reactor* pReactor) const
    {
        return std::find(m_reactors.begin(), m_reactors.end(), pReactor) != m_reactors.end();
    }

    std::vector<Reactor*> m_reactors;
};

}  // namespace host
