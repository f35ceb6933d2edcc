#include "reactors/TabForwarders.h"

#include "module/ZavikMDITabs.h"

void tabsAddDocument(AcApDocument* pDocument)
{
    if (CARXMDITabs* pTabs = getTabWindow()) {
        pTabs->addDocument(pDocument);
        updateFrameLayout();
    }
}

void tabsRemoveDocument(AcApDocument* pDocument)
{
    if (CARXMDITabs* pTabs = getTabWindow()) {
        pTabs->removeDocument(pDocument);
        updateFrameLayout();
    }
}

void tabsActivateDocument(AcApDocument* pDocument)
{
    if (CARXMDITabs* pTabs = getTabWindow())
        pTabs->activateDocument(pDocument);
}

void tabsUpdateDocumentModified(AcApDocument* pDocument)
{
    if (CARXMDITabs* pTabs = getTabWindow())
        pTabs->updateDocumentModified(pDocument);
}
