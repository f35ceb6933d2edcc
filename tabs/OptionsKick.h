#pragma once

// Says, while a handler of the strip has the host pick up the options command at once,
// that the command must wait: it may delete the strip, and nobody knows whether the host
// runs it from within the handler's message.

#include <utility>

class COptionsKick {
public:
    COptionsKick() : m_pBefore(std::exchange(s_pCurrent, this)) {}
    ~COptionsKick() { s_pCurrent = m_pBefore; }
    COptionsKick(const COptionsKick&) = delete;
    COptionsKick& operator=(const COptionsKick&) = delete;

    // Asked by the command: true while it must wait. It is sent anew then.
    static bool putOff() { return s_pCurrent != nullptr && (s_pCurrent->m_bPutOff = true); }
    bool wasPutOff() const { return m_bPutOff; }

private:
    static inline COptionsKick* s_pCurrent = nullptr;

    COptionsKick* m_pBefore;
    bool m_bPutOff = false;
};
