#include "additions/HostCommand.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"

CHostCommand::~CHostCommand()
{
    AcEdCommandStack* pStack = m_sGroup.IsEmpty() ? nullptr : acedRegCmds;
    if (pStack != nullptr)
        Tesk::guarded("CHostCommand::~CHostCommand", [&] { pStack->removeGroup(m_sGroup); });
}

bool CHostCommand::add(const char* sName, AcRxFunctionPtr pFunction)
{
    if (!m_sGroup.IsEmpty())
        return true;
    const CString sGroup = CString("ZavikMDITabs_") + sName;
    AcEdCommandStack* pStack = acedRegCmds;
    const bool bAdded =
        pStack != nullptr && pStack->addCommand(sGroup, sName, sName, ACRX_CMD_MODAL, pFunction) == Acad::eOk;
    if (bAdded)
        m_sGroup = sGroup;
    else
        TESK_TRACE("The host takes no command \"%s\".\n", sName);
    return bAdded;
}
