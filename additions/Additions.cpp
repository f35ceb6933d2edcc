#include "additions/Additions.h"

#include "additions/Closing.h"
#include "additions/DragTabs.h"
#include "additions/DrawingsList.h"
#include "additions/HelpBox.h"
#include "additions/LongNames.h"
#include "additions/MenuCommand.h"
#include "additions/MenuIds.h"
#include "additions/MiddleClick.h"
#include "additions/OptInText.h"
#include "additions/SameNames.h"
#include "additions/SaveAll.h"
#include "additions/WheelScroll.h"
#include "library/diagnostics/Prerelease.h"
#include "library/diagnostics/VersionBlock.h"
#include "library/drawing/DocumentName.h"
#include "library/files/Explorer.h"
#include "library/files/PathParts.h"
#include "library/network/UniversalName.h"
#include "library/system/Clipboard.h"
#include "mfc/afxwin.h"
#include "objectarx/acdocman.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/OpenDocuments.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace {

// Switched while a command forbids it.
bool maySwitch() { return acDocManager->isDocumentActivationEnabled(); }

// The drawing is on a disk under the name that the host gives it. A name without a path is
// that of a drawing that was never saved, whatever lies in the current folder.
bool hasFile(const AcApDocument* pDocument)
{
    const Tesk::CPathParts parts(Tesk::fileNameOf(pDocument));
    const bool bFull =
        (!parts.m_sDrive.empty() && parts.m_sFolder.substr(0, 1) == "\\") || parts.m_sFolder.substr(0, 2) == "\\\\";
    const DWORD dwAttributes = bFull ? ::GetFileAttributesA(Tesk::fileNameOf(pDocument)) : INVALID_FILE_ATTRIBUTES;
    return dwAttributes != INVALID_FILE_ATTRIBUTES && (dwAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

class CAdditions : public CTabAdditions {
public:
    explicit CAdditions(CARXMDITabs& tabs) : m_tabs(tabs)
    {
        // Shown nowhere; a screen reader says it.
        m_tabs.SetWindowText("Drawing tabs");
    }

    CString getText(AcApDocument* pDocument, const CString& sName) override;
    void tabAdded(AcApDocument* pDocument) override { m_order.place(pDocument); }
    void tabChanged() override { m_sameNames.updateOthers(); }
    void tabRemoved(AcApDocument* pDocument) override;
    void tabActivated(AcApDocument* pDocument) override { CDrawingsList::use(pDocument); }
    void stripSized() override { m_view.useRoom(); }
    void appendItems(AcApDocument* pDocument, CMenu& menu, Place place) override;
    void openMenu(CMenu& menu) override { m_drawings.fill(menu); }
    bool processItem(AcApDocument* pDocument, UINT iItem) override;
    bool handleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_middleClick.handle(message, CPoint(lParam));
        return m_drag.handle(message, wParam, CPoint(lParam));
    }

private:
    enum Offered { kAlways, kWithOthers, kWithChanged, kWithUnchanged, kWithFile };
    // One that is there only with a caption.
    struct Item {
        UINT iItem;
        const char* sKey;
        Place place;
        Offered offered;
        void (CAdditions::*pDo)(AcApDocument*);
    };
    static const Item kItems[];

    std::vector<AcApDocument*> documents();
    template <class Condition>
    bool anyDocument(const Condition& condition)
    {
        const std::vector<AcApDocument*> vecDocuments = documents();
        return std::any_of(vecDocuments.begin(), vecDocuments.end(), condition);
    }
    bool isOffered(Offered offered, const AcApDocument* pDocument);
    void report(const char* sMessage);

    void saveAll(AcApDocument*) { m_saving.start(documents()); }
    void closeOthers(AcApDocument* pDocument);
    void closeUnchanged(AcApDocument*) { m_closing.start(documents(), true); }
    void copyPath(AcApDocument* pDocument);
    void openFolder(AcApDocument* pDocument);
    void showHelp(AcApDocument* pDocument) { CHelpBox(Tesk::fileNameOf(pDocument)).DoModal(); }

    CARXMDITabs& m_tabs;
    CSameNames m_sameNames{m_tabs};
    CLongNames m_longNames;
    CDrawingsList m_drawings{m_tabs, m_longNames};
    CStripView m_view{m_tabs};
    CTabOrder m_order{m_tabs};
    CMiddleClick m_middleClick{m_tabs};
    CDragTabs m_drag{m_tabs};
    CWheelScroll m_wheel{m_tabs};
    CMenuCommand m_menuCommand{m_tabs};
    CClosing m_closing;
    CSaveAll m_saving;
};

const CAdditions::Item CAdditions::kItems[] = {
    {IDC_DYNAMIC_MENU_SAVE_ALL, "PopupSaveAllText", Place::BehindClose, kWithChanged, &CAdditions::saveAll},
    {IDC_DYNAMIC_MENU_CLOSE_OTHERS, "PopupCloseOthersText", Place::BehindClose, kWithOthers, &CAdditions::closeOthers},
    {IDC_DYNAMIC_MENU_CLOSE_SAVED, "PopupCloseSavedText", Place::BehindClose, kWithUnchanged,
     &CAdditions::closeUnchanged},
    {IDC_DYNAMIC_MENU_COPY_PATH, "PopupCopyPathText", Place::BeforeOptions, kWithFile, &CAdditions::copyPath},
    {IDC_DYNAMIC_MENU_OPEN_FOLDER, "PopupOpenFolderText", Place::BeforeOptions, kWithFile, &CAdditions::openFolder},
    {IDC_DYNAMIC_MENU_HELP, "PopupHelpText", Place::BehindOptions, kAlways, &CAdditions::showHelp},
};

CString CAdditions::getText(AcApDocument* pDocument, const CString& sName)
{
    CString sText = m_longNames.shorten(pDocument, sName) + m_sameNames.getSuffix(pDocument, sName);
    if (pDocument->isReadOnly())
        sText += getOptInText(Tesk::fileNameOf(pDocument), "ReadOnlyText");
    return sText;
}

void CAdditions::tabRemoved(AcApDocument* pDocument)
{
    m_middleClick.forget(pDocument);
    m_drag.forget(pDocument);
    m_longNames.remove(pDocument);
    m_view.useRoom();
    m_sameNames.remove(pDocument);
}

void CAdditions::appendItems(AcApDocument* pDocument, CMenu& menu, Place place)
{
    bool bAppended = false;
    std::optional<bool> known[kWithFile + 1];  // a disk may be far away: asked once, and only where it matters
    for (const Item& item : kItems) {
        const CString sCaption = item.place == place ? getOptInText(Tesk::fileNameOf(pDocument), item.sKey) : CString();
        if (sCaption.IsEmpty())
            continue;
        std::optional<bool>& offered = known[item.offered];
        if (!offered)
            offered = isOffered(item.offered, pDocument);
        if (!*offered)
            continue;
        TESK_VERIFY(menu.AppendMenu(MF_STRING, item.iItem, sCaption));
        bAppended = true;
    }
    if (place != Place::BeforeOptions)
        return;
    bAppended |= m_drawings.append(pDocument, menu);
    if (bAppended)
        TESK_VERIFY(menu.AppendMenu(MF_SEPARATOR));
}

// Closing may close the active drawing, and so switch.
bool CAdditions::isOffered(Offered offered, const AcApDocument* pDocument)
{
    switch (offered) {
    case kWithOthers:
        return maySwitch() && m_tabs.GetItemCount() > 1;
    case kWithChanged:
        return anyDocument(&CSaveAll::isDue);
    case kWithUnchanged:
        return maySwitch() && anyDocument(std::not_fn(&CDocManagerReactor::isDatabaseModified));
    case kWithFile:
        return hasFile(pDocument);
    default:
        return true;
    }
}

bool CAdditions::processItem(AcApDocument* pDocument, UINT iItem)
{
    for (const Item& item : kItems)
        if (item.iItem == iItem && !getOptInText(Tesk::fileNameOf(pDocument), item.sKey).IsEmpty()) {
            (this->*item.pDo)(pDocument);
            return true;
        }
    return m_drawings.activate(iItem);
}

std::vector<AcApDocument*> CAdditions::documents()
{
    std::vector<AcApDocument*> vecDocuments;
    const int iCount = m_tabs.GetItemCount();
    for (int iItem = 0; iItem < iCount; ++iItem)
        if (AcApDocument* pDocument = m_tabs.getDocument(iItem); isOpen(pDocument))
            vecDocuments.push_back(pDocument);
    return vecDocuments;
}

void CAdditions::report(const char* sMessage)
{
    const CString sTitle = Tesk::CVersionBlock::getCompanyName() + " " + Tesk::CVersionBlock::getInternalName();
    ::MessageBoxA(::GetAncestor(m_tabs.m_hWnd, GA_ROOT), sMessage, sTitle, MB_OK | MB_ICONWARNING);
}

void CAdditions::closeOthers(AcApDocument* pDocument)
{
    std::vector<AcApDocument*> vecOthers = documents();
    vecOthers.erase(std::remove(vecOthers.begin(), vecOthers.end(), pDocument), vecOthers.end());
    m_closing.start(vecOthers, false);
}

void CAdditions::copyPath(AcApDocument* pDocument)
{
    if (!Tesk::copyToClipboard(m_tabs.m_hWnd, Tesk::Network::getUniversalName(Tesk::fileNameOf(pDocument))))
        report("The path could not be copied: another program is using the clipboard.");
}

void CAdditions::openFolder(AcApDocument* pDocument)
{
    if (!Tesk::showInExplorer(m_tabs.m_hWnd, Tesk::fileNameOf(pDocument)))
        report("The drawing's folder could not be opened.");
}

}  // namespace

std::unique_ptr<CTabAdditions> createAdditions(CARXMDITabs& tabs) { return std::make_unique<CAdditions>(tabs); }
