#pragma once

// A command that opens the active drawing's menu at its tab, under the name that the text
// "MenuCommand" gives it when the strip is made: for those without a mouse.

#include "additions/HostCommand.h"
#include "tabs/ARXMDITabs.h"

class CMenuCommand {
public:
    explicit CMenuCommand(CARXMDITabs& tabs);
    ~CMenuCommand();
    CMenuCommand(const CMenuCommand&) = delete;
    CMenuCommand& operator=(const CMenuCommand&) = delete;

private:
    static void run();
    void open();

    static CMenuCommand* s_pCurrent;
    CARXMDITabs& m_tabs;
    CHostCommand m_command;
};
