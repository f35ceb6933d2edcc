#pragma once

// Shows an object the messages that the host takes from its queue, from start to stop.
// There is one object of each class at a time.

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "objectarx/rxmfcapi.h"

// Owner::filterMessage(const MSG&) is true when the message ends there.
template <class Owner>
class CMessageFilter {
public:
    explicit CMessageFilter(Owner& owner) : m_owner(owner) {}
    ~CMessageFilter() { stop(); }
    CMessageFilter(const CMessageFilter&) = delete;
    CMessageFilter& operator=(const CMessageFilter&) = delete;

    void start()
    {
        s_pCurrent = this;
        if (!acedRegisterFilterWinMsg(&filter))
            TESK_TRACE("The host takes no message filter.\n");
    }
    // Whatever the host said: it must not call what is gone.
    void stop()
    {
        if (s_pCurrent == this) {
            acedRemoveFilterWinMsg(&filter);
            s_pCurrent = nullptr;
        }
    }

private:
    static BOOL filter(MSG* pMsg)
    {
        bool bTaken = false;
        Tesk::guarded("CMessageFilter::filter",
                      [&] { bTaken = s_pCurrent != nullptr && s_pCurrent->m_owner.filterMessage(*pMsg); });
        return bTaken;
    }

    static inline CMessageFilter* s_pCurrent = nullptr;
    Owner& m_owner;
};
