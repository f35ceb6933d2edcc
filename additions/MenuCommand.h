#pragma once

// A command that opens the active drawing's menu at its tab, under the name that the text
// "MenuCommand" gives it when the strip is made: for those without a mouse.

#include "additions/HostCommand.h"
#include "tabs/ARXMDITabs.h"

class CMenuCommand {
public:
    explicit CMenuCommand(CARXMDITabs& tabs);

    void runCommand();

private:
    CARXMDITabs& m_tabs;
    CHostCommand<CMenuCommand> m_command{*this};
};
