#pragma once

// A command of the host, as long as its owner lives. There is one object of each class at
// a time.

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "mfc/afx.h"
#include "objectarx/aced.h"

// Owner::runCommand() is what it does.
template <class Owner>
class CHostCommand {
public:
    explicit CHostCommand(Owner& owner) : m_owner(owner) { s_pCurrent = this; }
    ~CHostCommand()
    {
        s_pCurrent = nullptr;
        AcEdCommandStack* pStack = m_sGroup.IsEmpty() ? nullptr : acedRegCmds;
        if (pStack != nullptr)
            Tesk::guarded("CHostCommand::~CHostCommand", [&] { pStack->removeGroup(m_sGroup); });
    }
    CHostCommand(const CHostCommand&) = delete;
    CHostCommand& operator=(const CHostCommand&) = delete;

    // Under one name, global and local. False, and a trace, when the host does not take it;
    // true when it was added before.
    bool add(const char* sName)
    {
        if (!m_sGroup.IsEmpty())
            return true;
        const CString sGroup = CString("ZavikMDITabs_") + sName;
        AcEdCommandStack* pStack = acedRegCmds;
        if (pStack != nullptr && pStack->addCommand(sGroup, sName, sName, ACRX_CMD_MODAL, &run) == Acad::eOk)
            m_sGroup = sGroup;
        else
            TESK_TRACE("The host takes no command \"%s\".\n", sName);
        return !m_sGroup.IsEmpty();
    }

private:
    static void run()
    {
        Tesk::guarded("CHostCommand::run", [] {
            if (s_pCurrent != nullptr)
                s_pCurrent->m_owner.runCommand();
        });
    }

    static inline CHostCommand* s_pCurrent = nullptr;
    Owner& m_owner;
    CString m_sGroup;  // of its own, by which it goes again; empty: none was added
};
