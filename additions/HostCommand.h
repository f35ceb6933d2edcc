#pragma once

// A command of the host, as long as the object lives.

#include "mfc/afx.h"
#include "objectarx/aced.h"

class CHostCommand {
public:
    CHostCommand() = default;
    ~CHostCommand();
    CHostCommand(const CHostCommand&) = delete;
    CHostCommand& operator=(const CHostCommand&) = delete;

    // Under one name, global and local. False, and a trace, when the host does not take it;
    // true when it was added before.
    bool add(const char* sName, AcRxFunctionPtr pFunction);

private:
    CString m_sGroup;  // of its own, by which it goes again; empty: none was added
};
