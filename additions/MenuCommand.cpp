#include "additions/MenuCommand.h"

#include "additions/OptInText.h"
#include "additions/StripView.h"
#include "library/diagnostics/Guard.h"
#include "objectarx/acdocman.h"

CMenuCommand* CMenuCommand::s_pCurrent = nullptr;

CMenuCommand::CMenuCommand(CARXMDITabs& tabs) : m_tabs(tabs)
{
    s_pCurrent = this;
    const CString sName = getOptInText("", "MenuCommand");
    if (!sName.IsEmpty())
        m_command.add(sName, &run);
}

CMenuCommand::~CMenuCommand() { s_pCurrent = nullptr; }

void CMenuCommand::run()
{
    Tesk::guarded("CMenuCommand::run", [] {
        if (s_pCurrent != nullptr)
            s_pCurrent->open();
    });
}

void CMenuCommand::open()
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
