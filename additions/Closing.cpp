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
    acDocManager->addReactor(&m_documents);
    acedEditor->addReactor(&m_editor);
    closeNext();
}

void CClosing::closeNext()
{
    const auto passOver = [this](AcApDocument* pDocument) {
        return m_bUnchanged && CDocManagerReactor::isDatabaseModified(pDocument);
    };
    m_vecDue.erase(m_vecDue.begin(), std::find_if_not(m_vecDue.begin(), m_vecDue.end(), passOver));
    if (m_vecDue.empty() ||
        acDocManager->sendStringToExecute(m_vecDue.front(), "_.CLOSE\n", false, true, true) != Acad::eOk)
        stop();
    else
        m_pAsked = m_vecDue.front();
}

void CClosing::announced(AcApDocument* pDocument)
{
    m_vecDue.erase(std::remove(m_vecDue.begin(), m_vecDue.end(), pDocument), m_vecDue.end());
    if (std::exchange(m_pAsked, nullptr) != pDocument)
        stop();
}

void CClosing::CDocumentListener::documentDestroyed(const char*)
{
    if (m_closing.m_pAsked == nullptr && !Tesk::guarded("CClosing::closeNext", [this] { m_closing.closeNext(); }))
        m_closing.stop();
}

void CClosing::stop()
{
    m_vecDue.clear();
    m_pAsked = nullptr;
    if (!std::exchange(m_bAtWork, false))
        return;
    acDocManager->removeReactor(&m_documents);
    acedEditor->removeReactor(&m_editor);
}
