#include "additions/Closing.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "reactors/DocManagerReactor.h"

#include <algorithm>
#include <utility>

void CClosing::start(const std::vector<AcApDocument*>& vecDocuments, bool bUnchanged)
{
    TESK_TRACE("CClosing::start(...)\n");
    stop();
    m_vecDue = vecDocuments;
    m_bUnchanged = bUnchanged;
    m_bAtWork = true;
    acDocManager->addReactor(this);
    acedEditor->addReactor(this);
    closeNext();
}

void CClosing::closeNext()
{
    const auto passOver = [this](AcApDocument* pDocument) {
        return m_bUnchanged && CDocManagerReactor::isDatabaseModified(pDocument);
    };
    const auto ask = [&] {
        m_vecDue.erase(m_vecDue.begin(), std::find_if_not(m_vecDue.begin(), m_vecDue.end(), passOver));
        m_pAsked = m_vecDue.empty() ? nullptr : m_vecDue.front();
        if (m_pAsked == nullptr ||
            acDocManager->sendStringToExecute(m_pAsked, "_.CLOSE\n", false, true, true) != Acad::eOk)
            stop();
    };
    if (!Tesk::guarded("CClosing::closeNext", ask))
        stop();
}

void CClosing::documentToBeDestroyed(AcApDocument* pDocument)
{
    m_vecDue.erase(std::remove(m_vecDue.begin(), m_vecDue.end(), pDocument), m_vecDue.end());
    if (std::exchange(m_pAsked, nullptr) != pDocument)
        stop();
}

void CClosing::documentDestroyed(const char*)
{
    if (m_pAsked == nullptr)
        closeNext();
}

void CClosing::stop()
{
    m_vecDue.clear();
    m_pAsked = nullptr;
    if (!std::exchange(m_bAtWork, false))
        return;
    acDocManager->removeReactor(this);
    acedEditor->removeReactor(this);
}
