#include "additions/SaveAll.h"

#include "library/diagnostics/Guard.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/OpenDocuments.h"

#include <algorithm>
#include <string>

namespace {

constexpr const char* kCommand = "ZavikMDITabsSaveNext";

}  // namespace

CSaveAll* CSaveAll::s_pCurrent = nullptr;

CSaveAll::~CSaveAll()
{
    if (s_pCurrent == this)
        s_pCurrent = nullptr;
}

bool CSaveAll::isDue(AcApDocument* pDocument)
{
    return isOpen(pDocument) && !pDocument->isReadOnly() && CDocManagerReactor::isDatabaseModified(pDocument);
}

void CSaveAll::start(const std::vector<AcApDocument*>& vecDocuments)
{
    s_pCurrent = this;
    m_vecDue.clear();
    if (!m_command.add(kCommand, &run))
        return;
    m_vecDue = vecDocuments;
    saveNext();
}

void CSaveAll::saveNext()
{
    m_vecDue.erase(m_vecDue.begin(), std::find_if(m_vecDue.begin(), m_vecDue.end(), &isDue));
    if (m_vecDue.empty())
        return;
    // What is ours is not echoed: nobody typed it.
    const auto send = [this](const std::string& sCommand, bool bEcho) {
        return acDocManager->sendStringToExecute(m_vecDue.front(), sCommand.c_str(), false, true, bEcho) == Acad::eOk;
    };
    if (!send("_.QSAVE\n", true) || !send("_" + std::string(kCommand) + "\n", false))
        m_vecDue.clear();
}

void CSaveAll::run()
{
    if (s_pCurrent != nullptr && !Tesk::guarded("CSaveAll::run", [] { s_pCurrent->afterSave(); }))
        s_pCurrent->m_vecDue.clear();
}

void CSaveAll::afterSave()
{
    if (!m_vecDue.empty() && isOpen(m_vecDue.front()) && CDocManagerReactor::isDatabaseModified(m_vecDue.front()))
        m_vecDue.clear();
    else
        saveNext();
}
