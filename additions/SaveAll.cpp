#include "additions/SaveAll.h"

#include "reactors/DocManagerReactor.h"
#include "reactors/OpenDocuments.h"

#include <algorithm>
#include <string>

namespace {

constexpr const char* kCommand = "ZavikMDITabsSaveNext";

}  // namespace

bool CSaveAll::isDue(AcApDocument* pDocument)
{
    return isOpen(pDocument) && !pDocument->isReadOnly() && CDocManagerReactor::isDatabaseModified(pDocument);
}

void CSaveAll::start(const std::vector<AcApDocument*>& vecDocuments)
{
    m_vecDue.clear();
    if (!m_command.add(kCommand))
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

void CSaveAll::runCommand()
{
    if (!m_vecDue.empty() && isOpen(m_vecDue.front()) && CDocManagerReactor::isDatabaseModified(m_vecDue.front()))
        m_vecDue.clear();
    else
        saveNext();
}
