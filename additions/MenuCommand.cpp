#include "additions/MenuCommand.h"

#include "additions/OptInText.h"
#include "additions/StripView.h"
#include "objectarx/acdocman.h"

CMenuCommand::CMenuCommand(CARXMDITabs& tabs) : m_tabs(tabs)
{
    const CString sName = getOptInText("", "MenuCommand");
    if (!sName.IsEmpty())
        m_command.add(sName);
}

void CMenuCommand::runCommand()
{
    AcApDocument* pActive = acDocManager->mdiActiveDocument();
    const int iItem = pActive != nullptr && m_tabs.IsWindowVisible() ? m_tabs.findDocument(pActive) : -1;
    if (iItem == -1)
        return;
    CStripView(m_tabs).show(iItem);
    CRect place;
    m_tabs.GetItemRect(iItem, place);
    m_tabs.ClientToScreen(place);
    m_tabs.popupMenu(pActive, place.left, place.CenterPoint().y);
}
