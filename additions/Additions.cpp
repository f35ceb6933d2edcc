#include "additions/Additions.h"

#include "additions/Closing.h"
#include "additions/HelpBox.h"
#include "additions/MenuIds.h"
#include "additions/MiddleClick.h"
#include "additions/OptInText.h"
#include "additions/SameNames.h"
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

// Each ampersand of the text shows as one, and underlines nothing.
CString asCaption(CString sText)
{
    sText.Replace("&", "&&");
    return sText;
}

class CAdditions : public CTabAdditions {
public:
    explicit CAdditions(CARXMDITabs& tabs) : m_tabs(tabs)
    {
        // Shown nowhere; a screen reader says it.
        m_tabs.SetWindowText("Drawing tabs");
    }

    CString getSuffix(AcApDocument* pDocument, const CString& sName) override
    {
        return m_sameNames.getSuffix(pDocument, sName);
    }
    void tabChanged() override { m_sameNames.updateOthers(); }
    void tabRemoved(AcApDocument* pDocument) override;
    void appendItems(AcApDocument* pDocument, CMenu& menu, Place place) override;
    void openMenu(CMenu& menu) override;
    bool processItem(AcApDocument* pDocument, UINT iItem) override;
    bool handleMouse(UINT message, CPoint point) override
    {
        m_middleClick.handle(message, point);
        return false;
    }

private:
    enum Offered { kAlways, kWithOthers, kWithUnchanged, kWithFile };
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
    bool hasUnchanged();
    bool isOffered(Offered offered, const AcApDocument* pDocument);
    bool appendDrawings(const AcApDocument* pDocument, CMenu& menu);
    void report(const char* sMessage);

    void closeOthers(AcApDocument* pDocument);
    void closeUnchanged(AcApDocument*) { m_closing.start(documents(), true); }
    void copyPath(AcApDocument* pDocument);
    void openFolder(AcApDocument* pDocument);
    void showHelp(AcApDocument* pDocument) { CHelpBox(Tesk::fileNameOf(pDocument)).DoModal(); }

    CARXMDITabs& m_tabs;
    CSameNames m_sameNames{m_tabs};
    CMiddleClick m_middleClick{m_tabs};
    CClosing m_closing;
    HMENU m_hDrawings = nullptr;               // the submenu
    std::vector<AcApDocument*> m_vecDrawings;  // in it, null for one that has gone since
};

const CAdditions::Item CAdditions::kItems[] = {
    {IDC_DYNAMIC_MENU_CLOSE_OTHERS, "PopupCloseOthersText", Place::BehindClose, kWithOthers, &CAdditions::closeOthers},
    {IDC_DYNAMIC_MENU_CLOSE_SAVED, "PopupCloseSavedText", Place::BehindClose, kWithUnchanged,
     &CAdditions::closeUnchanged},
    {IDC_DYNAMIC_MENU_COPY_PATH, "PopupCopyPathText", Place::BeforeOptions, kWithFile, &CAdditions::copyPath},
    {IDC_DYNAMIC_MENU_OPEN_FOLDER, "PopupOpenFolderText", Place::BeforeOptions, kWithFile, &CAdditions::openFolder},
    {IDC_DYNAMIC_MENU_HELP, "PopupHelpText", Place::BehindOptions, kAlways, &CAdditions::showHelp},
};

void CAdditions::tabRemoved(AcApDocument* pDocument)
{
    m_middleClick.forget(pDocument);
    std::replace(m_vecDrawings.begin(), m_vecDrawings.end(), pDocument, static_cast<AcApDocument*>(nullptr));
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
    bAppended |= appendDrawings(pDocument, menu);
    if (bAppended)
        TESK_VERIFY(menu.AppendMenu(MF_SEPARATOR));
}

// Closing may close the active drawing, and so switch.
bool CAdditions::isOffered(Offered offered, const AcApDocument* pDocument)
{
    switch (offered) {
    case kWithOthers:
        return maySwitch() && m_tabs.GetItemCount() > 1;
    case kWithUnchanged:
        return maySwitch() && hasUnchanged();
    case kWithFile:
        return hasFile(pDocument);
    default:
        return true;
    }
}

bool CAdditions::appendDrawings(const AcApDocument* pDocument, CMenu& menu)
{
    const CString sCaption = getOptInText(Tesk::fileNameOf(pDocument), "PopupDrawingsText");
    if (sCaption.IsEmpty() || !maySwitch())
        return false;
    CMenu menuDrawings;
    TESK_VERIFY(menuDrawings.CreatePopupMenu());
    m_vecDrawings.clear();
    m_hDrawings = menuDrawings.m_hMenu;
    // The menu owns the submenu from here on.
    TESK_VERIFY(menu.AppendMenu(MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(menuDrawings.Detach()), sCaption));
    return true;
}

// The list is long, and looked at less often than the menu.
void CAdditions::openMenu(CMenu& menu)
{
    if (menu.m_hMenu != m_hDrawings || menu.GetMenuItemCount() != 0)
        return;
    const AcApDocument* pActive = acDocManager->mdiActiveDocument();
    const int iCount = std::min<int>(m_tabs.GetItemCount(), IDC_DYNAMIC_MENU_DRAWINGS_END - IDC_DYNAMIC_MENU_DRAWINGS);
    for (int iItem = 0; iItem < iCount; ++iItem) {
        char sText[1024] = "";
        TCITEMA tabItem = {};
        tabItem.mask = TCIF_TEXT | TCIF_PARAM;
        tabItem.pszText = sText;
        tabItem.cchTextMax = sizeof sText;
        TESK_VERIFY(m_tabs.GetItem(iItem, &tabItem));
        m_vecDrawings.push_back(reinterpret_cast<AcApDocument*>(tabItem.lParam));
        TESK_VERIFY(menu.AppendMenu(MF_STRING | (m_vecDrawings.back() == pActive ? MF_CHECKED : MF_UNCHECKED),
                                    IDC_DYNAMIC_MENU_DRAWINGS + static_cast<UINT>(iItem), asCaption(tabItem.pszText)));
    }
}

bool CAdditions::processItem(AcApDocument* pDocument, UINT iItem)
{
    for (const Item& item : kItems)
        if (item.iItem == iItem && !getOptInText(Tesk::fileNameOf(pDocument), item.sKey).IsEmpty()) {
            (this->*item.pDo)(pDocument);
            return true;
        }
    const UINT iDrawing = iItem - IDC_DYNAMIC_MENU_DRAWINGS;
    if (iDrawing >= m_vecDrawings.size())
        return false;
    // It may have been closed by others while the menu was up.
    AcApDocument* pChosen = m_vecDrawings[iDrawing];
    if (isOpen(pChosen))
        TESK_VERIFY(acDocManager->activateDocument(pChosen) == Acad::eOk);
    return true;
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

bool CAdditions::hasUnchanged()
{
    const int iCount = m_tabs.GetItemCount();
    for (int iItem = 0; iItem < iCount; ++iItem)
        if (AcApDocument* pDocument = m_tabs.getDocument(iItem);
            isOpen(pDocument) && !CDocManagerReactor::isDatabaseModified(pDocument))
            return true;
    return false;
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
