#include "additions/Additions.h"

#include "additions/Closing.h"
#include "additions/DragTabs.h"
#include "additions/DrawingsList.h"
#include "additions/HelpBox.h"
#include "additions/LongNames.h"
#include "additions/MenuCommand.h"
#include "additions/MenuIds.h"
#include "additions/MiddleClick.h"
#include "additions/OpenTabs.h"
#include "additions/OptInText.h"
#include "additions/SameNames.h"
#include "additions/SaveAll.h"
#include "additions/WheelScroll.h"
#include "library/diagnostics/Guard.h"
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

#include <algorithm>
#include <functional>
#include <utility>

namespace {

// Posted to the strip itself.
constexpr UINT kUseRoom = WM_APP;

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
    void tabActivated(AcApDocument* pDocument) override { m_drawings.use(pDocument); }
    void stripSized() override { m_view.useRoom(); }
    void appendItems(AcApDocument* pDocument, CMenu& menu, Place place) override;
    void openMenu(CMenu& menu) override;
    bool processItem(AcApDocument* pDocument, UINT iItem) override;
    bool handleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == kUseRoom && std::exchange(m_bRoomDue, false))
            m_view.useRoom();
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

    bool isOffered(Offered offered, const AcApDocument* pDocument);
    void report(const char* sMessage);

    void saveAll(AcApDocument*) { m_saving.start(openTabs(m_tabs)); }
    void closeOthers(AcApDocument* pDocument);
    void closeUnchanged(AcApDocument*) { m_closing.start(openTabs(m_tabs), true); }
    void copyPath(AcApDocument* pDocument);
    void openFolder(AcApDocument* pDocument);
    void showHelp(AcApDocument* pDocument) { CHelpBox(Tesk::fileNameOf(pDocument)).DoModal(); }

    CARXMDITabs& m_tabs;
    CSameNames m_sameNames{m_tabs};
    CLongNames m_longNames;
    bool m_bWholeNames = false;
    CDrawingsList m_drawings{m_tabs};
    CStripView m_view{m_tabs};
    bool m_bRoomDue = false;
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
    CString sText = (m_bWholeNames ? sName : m_longNames.shorten(sName)) + m_sameNames.getSuffix(pDocument, sName);
    if (pDocument->isReadOnly())
        sText += getOptInText(Tesk::fileNameOf(pDocument), "ReadOnlyText");
    return sText;
}

void CAdditions::tabRemoved(AcApDocument* pDocument)
{
    m_middleClick.forget(pDocument);
    m_drag.forget(pDocument);
    // Many may go at a time: the room that they leave is used once, before the strip is painted.
    m_bRoomDue = m_bRoomDue || m_tabs.PostMessage(kUseRoom);
    m_sameNames.remove(pDocument);
}

void CAdditions::appendItems(AcApDocument* pDocument, CMenu& menu, Place place)
{
    bool bAppended = false;
    for (const Item& item : kItems) {
        const CString sCaption = item.place == place ? getOptInText(Tesk::fileNameOf(pDocument), item.sKey) : CString();
        if (sCaption.IsEmpty() || !isOffered(item.offered, pDocument))
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

void CAdditions::openMenu(CMenu& menu)
{
    m_bWholeNames = true;
    Tesk::guarded("CDrawingsList::fill", [&] { m_drawings.fill(menu); });
    m_bWholeNames = false;
}

// Closing may close the active drawing, and so switch.
bool CAdditions::isOffered(Offered offered, const AcApDocument* pDocument)
{
    const auto any = [this](const auto& condition) {
        const std::vector<AcApDocument*> vecDocuments = openTabs(m_tabs);
        return std::any_of(vecDocuments.begin(), vecDocuments.end(), condition);
    };
    switch (offered) {
    case kWithOthers:
        return maySwitch() && m_tabs.GetItemCount() > 1;
    case kWithChanged:
        return any(&CSaveAll::isDue);
    case kWithUnchanged:
        return maySwitch() && any(std::not_fn(&CDocManagerReactor::isDatabaseModified));
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

void CAdditions::report(const char* sMessage)
{
    const CString sTitle = Tesk::CVersionBlock::getCompanyName() + " " + Tesk::CVersionBlock::getInternalName();
    ::MessageBoxA(::GetAncestor(m_tabs.m_hWnd, GA_ROOT), sMessage, sTitle, MB_OK | MB_ICONWARNING);
}

void CAdditions::closeOthers(AcApDocument* pDocument)
{
    std::vector<AcApDocument*> vecOthers = openTabs(m_tabs);
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
