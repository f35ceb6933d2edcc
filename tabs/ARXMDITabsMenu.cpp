// The context menu of a tab and its commands.
#include "tabs/ARXMDITabs.h"
#include "tabs/MenuIds.h"
#include "tabs/OptionsKick.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ARXVariable.h"
#include "library/drawing/DocumentName.h"
#include "library/files/PathParts.h"
#include "library/system/Handles.h"
#include "library/text/StringView.h"
#include "mfc/afxwin.h"
#include "objectarx/acdocman.h"
#include "objectarx/rxmfcapi.h"
#include "reactors/OpenDocuments.h"
#include "settings/MDITabSettings.h"

namespace {

constexpr const char* kOptionsCommand = "_ZavikMDITabs\n";

// A missing file cannot be written either.
bool canWrite(const char* sPath)
{
    const UniqueHandle file(::CreateFileA(sPath, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(file);
}

// Several drawings may be open unless the host says otherwise.
bool isSingleDocumentMode()
{
    bool bSingle = false;
    Tesk::guarded("SDI", [&] { bSingle = Tesk::CARXVariable("SDI").readBool(); });
    return bSingle;
}

void sendCommand(AcApDocument* pDocument, const char* sCommand)
{
    acDocManager->sendStringToExecute(pDocument, sCommand, false, true, true);
}

}  // namespace

void CARXMDITabs::OnContextMenu(CWnd*, CPoint point)
{
    TESK_TRACE("CARXMDITabs::OnContextMenu(...)\n");
    Tesk::guarded("CARXMDITabs::OnContextMenu", [&] {
        CPoint client = point;
        ScreenToClient(&client);
        AcApDocument* pDocument = getDocument(client);
        if (isOpen(pDocument))
            popupMenu(pDocument, point.x, point.y);
    });
}

void CARXMDITabs::popupMenu(AcApDocument* pDocument, int x, int y)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::popupMenu(\"%s\")\n", Tesk::fileNameOf(pDocument));
    const CString sFilename(Tesk::fileNameOf(pDocument));

    CMenu menuMain;
    TESK_VERIFY(menuMain.CreatePopupMenu());
    if (!pDocument->isReadOnly())
        TESK_VERIFY(
            menuMain.AppendMenu(MF_STRING, IDC_DYNAMIC_MENU_SAVE, CMDITabSettings::getPopupSaveText(sFilename)));
    TESK_VERIFY(menuMain.AppendMenu(MF_STRING, IDC_DYNAMIC_MENU_CLOSE, CMDITabSettings::getPopupCloseText(sFilename)));
    appendAdditions(pDocument, menuMain, CTabAdditions::Place::BehindClose);
    TESK_VERIFY(menuMain.AppendMenu(MF_SEPARATOR));
    appendAdditions(pDocument, menuMain, CTabAdditions::Place::BeforeOptions);
    TESK_VERIFY(
        menuMain.AppendMenu(MF_STRING, IDC_DYNAMIC_MENU_OPTIONS, CMDITabSettings::getPopupOptionsText(sFilename)));
    appendAdditions(pDocument, menuMain, CTabAdditions::Place::BehindOptions);
    // A copy: the drawing may be saved or closed by others while the menu is up. Without
    // the drawing's data the menu shows with what there is.
    std::vector<CString> xrefs;
    Tesk::guarded("CARXMDITabs::getXrefs", [&] { xrefs = getXrefs(pDocument); });
    if (!isSingleDocumentMode() && !xrefs.empty())
        appendXrefs(pDocument, menuMain, xrefs);

    const HWND hWnd = m_hWnd;
    const auto iItem =
        static_cast<UINT>(menuMain.TrackPopupMenu(TPM_RETURNCMD | TPM_VCENTERALIGN | TPM_RIGHTBUTTON, x, y, this));
    // Nothing is left to act on when the strip or the drawing went away meanwhile.
    if (iItem != 0 && ::IsWindow(hWnd) && isOpen(pDocument))
        processPopupMenuItem(pDocument, iItem, xrefs);
    TESK_VERIFY(menuMain.DestroyMenu());
}

void CARXMDITabs::appendAdditions(AcApDocument* pDocument, CMenu& menu, CTabAdditions::Place place)
{
    askAdditions([&](CTabAdditions& additions) { additions.appendItems(pDocument, menu, place); });
}

void CARXMDITabs::appendXrefs(AcApDocument* pDocument, CMenu& menuMain, const std::vector<CString>& xrefs)
{
    const CString sCaption = CMDITabSettings::getPopupXrefsText(Tesk::fileNameOf(pDocument));
    TESK_VERIFY(menuMain.AppendMenu(MF_SEPARATOR));
    CMenu menuXrefs;
    TESK_VERIFY(menuXrefs.CreatePopupMenu());
    addXrefsToMenu(pDocument, menuXrefs, IDC_DYNAMIC_MENU_XREFS, xrefs);
    // The main menu owns the submenu from here on.
    const HMENU hXrefsMenu = menuXrefs.Detach();
    TESK_VERIFY_TEXT(menuMain.AppendMenu(MF_STRING | MF_POPUP, (UINT_PTR)hXrefsMenu, sCaption),
                     "menuMain.AppendMenu(MF_STRING | MF_POPUP, (UINT_PTR)hXrefsMenu, "
                     "CMDITabSettings::getPopupXrefsText(sFilename))");
}

void CARXMDITabs::addXrefsToMenu(AcApDocument* pDocument, CMenu& menu, UINT iBaseID, const std::vector<CString>& xrefs)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::addXrefsToMenu(...)\n");
    const CString sReadOnly = CMDITabSettings::getXrefsReadOnlyText(Tesk::fileNameOf(pDocument));
    for (UINT i = 0; i < xrefs.size(); ++i) {
        CString sItem = Tesk::toCString(Tesk::CPathParts(Tesk::viewOf(xrefs[i])).fileName());
        if (!canWrite(xrefs[i]))
            sItem += sReadOnly;
        TESK_VERIFY(menu.AppendMenu(MF_STRING, iBaseID + i, sItem));
    }
}

void CARXMDITabs::processPopupMenuItem(AcApDocument* pDocument, UINT iItem, const std::vector<CString>& xrefs)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::processPopupMenuItem(\"%s\", iItem = %x)\n", Tesk::fileNameOf(pDocument), iItem);
    switch (iItem) {
    case IDC_DYNAMIC_MENU_OPTIONS:
        showOptions();
        break;
    case IDC_DYNAMIC_MENU_SAVE:
        saveDocument(pDocument);
        break;
    case IDC_DYNAMIC_MENU_CLOSE:
        closeDocument(pDocument);
        break;
    default:
        bool bProcessed = false;
        askAdditions([&](CTabAdditions& additions) { bProcessed = additions.processItem(pDocument, iItem); });
        if (bProcessed)
            break;
        // Below the base wraps round to a large index, which is outside too.
        const UINT iXref = iItem - IDC_DYNAMIC_MENU_XREFS;
        const bool bOK = iXref < xrefs.size();
        TESK_ASSERT(bOK);
        if (bOK)
            openXREF(xrefs[iXref]);
    }
}

void CARXMDITabs::saveDocument(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::saveDocument(\"%s\")\n", Tesk::fileNameOf(pDocument));
    sendCommand(pDocument, "_.QSAVE\n");
}

void CARXMDITabs::closeDocument(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::closeDocument(\"%s\")\n", Tesk::fileNameOf(pDocument));
    sendCommand(pDocument, "_.CLOSE\n");
}

void CARXMDITabs::showOptions()
{
    TESK_TRACE("CARXMDITabs::showOptions()\n");
    const HWND hFrame = acedGetAcadFrame()->m_hWnd;
    sendCommand(acDocManager->mdiActiveDocument(), kOptionsCommand);
    const COptionsKick kick;
    ::SendMessageA(hFrame, WM_KICKIDLE, 0, 0);
    if (kick.wasPutOff()) {
        sendCommand(acDocManager->mdiActiveDocument(), kOptionsCommand);
        ::PostMessageA(hFrame, WM_KICKIDLE, 0, 0);
    }
}

void CARXMDITabs::openXREF(const CString& sPath)
{
    TESK_TRACE("CARXMDITabs::openXREF(\"%s\")\n", sPath.GetString());
    if (acDocManager->appContextOpenDocument(sPath) != Acad::eOk)
        TESK_TRACE("error opening \"%s\"\n", sPath.GetString());
}

void CARXMDITabs::OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu)
{
    TESK_TRACE("CARXMDITabs::OnInitMenuPopup(...)\n");
    askAdditions([&](CTabAdditions& additions) { additions.openMenu(*pPopupMenu); });
    if (m_pMainFrame != nullptr)
        ::SendMessageA(m_pMainFrame->m_hWnd, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(pPopupMenu->m_hMenu),
                       MAKELPARAM(nIndex, bSysMenu));
    Tesk::guarded("CARXMDITabs::OnInitMenuPopup", [&] { enablePopupMenu(pPopupMenu); });
}

void CARXMDITabs::enablePopupMenu(CMenu* pPopupMenu)
{
    TESK_TRACE("CARXMDITabs::enablePopupMenu(...)\n");
    const int iCount = pPopupMenu->GetMenuItemCount();
    for (int iPosition = 0; iPosition < iCount; ++iPosition) {
        MENUITEMINFOA info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE | MIIM_SUBMENU;
        // The frame leaves submenus alone, and they have no identifier to enable them by.
        if (!pPopupMenu->GetMenuItemInfo(static_cast<UINT>(iPosition), &info, TRUE) || info.fType != MFT_STRING ||
            info.hSubMenu != nullptr)
            continue;
        const UINT iItemID = pPopupMenu->GetMenuItemID(iPosition);
        TESK_VERIFY_TEXT(pPopupMenu->EnableMenuItem(iItemID, MF_ENABLED) != UINT(-1),
                         "pPopupMenu->EnableMenuItem(iItemID, MF_ENABLED) != -1");
    }
}
