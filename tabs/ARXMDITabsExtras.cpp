// What an office may switch on: more items of a tab's menu, and the middle mouse button.
#include "tabs/ARXMDITabs.h"
#include "tabs/MenuIds.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "library/diagnostics/VersionBlock.h"
#include "library/network/UniversalName.h"
#include "library/system/Clipboard.h"
#include "library/system/Explorer.h"
#include "mfc/afxwin.h"
#include "objectarx/acdocman.h"
#include "reactors/DocManagerReactor.h"
#include "settings/HelpBox.h"
#include "settings/MDITabSettings.h"
#include "settings/TabOptions.h"

#include <algorithm>
#include <utility>

namespace {

// False when there is no caption and so no item.
bool appendItem(CMenu& menu, UINT iItem, const CString& sCaption)
{
    if (sCaption.IsEmpty())
        return false;
    TESK_VERIFY(menu.AppendMenu(MF_STRING, iItem, sCaption));
    return true;
}

// The drawing is on a disk under the name that the host gives it.
bool hasFile(const AcApDocument* pDocument)
{
    const DWORD dwAttributes = ::GetFileAttributesA(pDocument->fileName());
    return dwAttributes != INVALID_FILE_ATTRIBUTES && (dwAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Each ampersand of the text shows as one, and underlines nothing.
CString asCaption(CString sText)
{
    sText.Replace("&", "&&");
    return sText;
}

// Of an item that is there only with a caption; empty for every other.
CString captionOf(const char* sFilename, UINT iItem)
{
    switch (iItem) {
    case IDC_DYNAMIC_MENU_CLOSE_OTHERS:
        return CMDITabSettings::getPopupCloseOthersText(sFilename);
    case IDC_DYNAMIC_MENU_CLOSE_SAVED:
        return CMDITabSettings::getPopupCloseSavedText(sFilename);
    case IDC_DYNAMIC_MENU_COPY_PATH:
        return CMDITabSettings::getPopupCopyPathText(sFilename);
    case IDC_DYNAMIC_MENU_OPEN_FOLDER:
        return CMDITabSettings::getPopupOpenFolderText(sFilename);
    case IDC_DYNAMIC_MENU_HELP:
        return CMDITabSettings::getPopupHelpText(sFilename);
    default:
        return CString();
    }
}

void report(HWND hOwner, const char* sMessage)
{
    const CString sTitle = Tesk::CVersionBlock::getCompanyName() + " " + Tesk::CVersionBlock::getInternalName();
    ::MessageBoxA(::GetAncestor(hOwner, GA_ROOT), sMessage, sTitle, MB_OK | MB_ICONWARNING);
}

}  // namespace

void CARXMDITabs::addClosingItems(AcApDocument* pDocument, CMenu& menu)
{
    // Either may close the active drawing, and so switch.
    if (!acDocManager->isDocumentActivationEnabled())
        return;
    const char* sFilename = pDocument->fileName();
    if (GetItemCount() > 1)
        appendItem(menu, IDC_DYNAMIC_MENU_CLOSE_OTHERS, captionOf(sFilename, IDC_DYNAMIC_MENU_CLOSE_OTHERS));
    const CString sCloseSaved = captionOf(sFilename, IDC_DYNAMIC_MENU_CLOSE_SAVED);
    if (!sCloseSaved.IsEmpty() && !getUnmodifiedDocuments().empty())
        appendItem(menu, IDC_DYNAMIC_MENU_CLOSE_SAVED, sCloseSaved);
}

void CARXMDITabs::addPlaceItems(AcApDocument* pDocument, CMenu& menu)
{
    const char* sFilename = pDocument->fileName();
    const int iBefore = menu.GetMenuItemCount();
    const CString sCopyPath = captionOf(sFilename, IDC_DYNAMIC_MENU_COPY_PATH);
    const CString sOpenFolder = captionOf(sFilename, IDC_DYNAMIC_MENU_OPEN_FOLDER);
    // Asked for only where it matters: the disk may be far away.
    if ((!sCopyPath.IsEmpty() || !sOpenFolder.IsEmpty()) && hasFile(pDocument)) {
        appendItem(menu, IDC_DYNAMIC_MENU_COPY_PATH, sCopyPath);
        appendItem(menu, IDC_DYNAMIC_MENU_OPEN_FOLDER, sOpenFolder);
    }
    addDrawingsMenu(pDocument, menu);
    if (menu.GetMenuItemCount() > iBefore)
        TESK_VERIFY(menu.AppendMenu(MF_SEPARATOR));
}

void CARXMDITabs::addDrawingsMenu(AcApDocument* pDocument, CMenu& menu)
{
    const CString sCaption = CMDITabSettings::getPopupDrawingsText(pDocument->fileName());
    if (sCaption.IsEmpty() || !acDocManager->isDocumentActivationEnabled())
        return;
    CMenu menuDrawings;
    TESK_VERIFY(menuDrawings.CreatePopupMenu());
    m_vecMenuDrawings = getDocuments();
    m_vecMenuDrawings.resize(
        std::min<std::size_t>(m_vecMenuDrawings.size(), IDC_DYNAMIC_MENU_DRAWINGS_END - IDC_DYNAMIC_MENU_DRAWINGS));
    const AcApDocument* pActive = acDocManager->mdiActiveDocument();
    for (std::size_t i = 0; i < m_vecMenuDrawings.size(); ++i)
        TESK_VERIFY(menuDrawings.AppendMenu(MF_STRING | (m_vecMenuDrawings[i] == pActive ? MF_CHECKED : MF_UNCHECKED),
                                            IDC_DYNAMIC_MENU_DRAWINGS + i, asCaption(getTabText(static_cast<int>(i)))));
    // The menu owns the submenu from here on.
    TESK_VERIFY(menu.AppendMenu(MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(menuDrawings.Detach()), sCaption));
}

void CARXMDITabs::addHelpItem(AcApDocument* pDocument, CMenu& menu)
{
    appendItem(menu, IDC_DYNAMIC_MENU_HELP, captionOf(pDocument->fileName(), IDC_DYNAMIC_MENU_HELP));
}

bool CARXMDITabs::processExtraItem(AcApDocument* pDocument, UINT iItem)
{
    std::vector<AcApDocument*> vecDocuments;
    switch (captionOf(pDocument->fileName(), iItem).IsEmpty() ? 0 : iItem) {
    case IDC_DYNAMIC_MENU_CLOSE_OTHERS:
        vecDocuments = getDocuments();
        vecDocuments.erase(std::remove(vecDocuments.begin(), vecDocuments.end(), pDocument), vecDocuments.end());
        closeDocuments(vecDocuments);
        return true;
    case IDC_DYNAMIC_MENU_CLOSE_SAVED:
        closeDocuments(getUnmodifiedDocuments());
        return true;
    case IDC_DYNAMIC_MENU_COPY_PATH:
        copyPath(pDocument);
        return true;
    case IDC_DYNAMIC_MENU_OPEN_FOLDER:
        openFolder(pDocument);
        return true;
    case IDC_DYNAMIC_MENU_HELP:
        showHelp(pDocument);
        return true;
    default:
        break;
    }
    const UINT iDrawing = iItem - IDC_DYNAMIC_MENU_DRAWINGS;
    if (iDrawing >= m_vecMenuDrawings.size())
        return false;
    // It may have been closed by others while the menu was up.
    AcApDocument* pChosen = m_vecMenuDrawings[iDrawing];
    if (findTab(pChosen) != -1)
        TESK_VERIFY_TEXT(acDocManager->activateDocument(pChosen) == Acad::eOk,
                         "acDocManager->activateDocument(pDocument) == Acad::eOk");
    return true;
}

CString CARXMDITabs::getTabText(int iItem)
{
    char sText[1024] = "";
    TCITEMA tabItem = {};
    tabItem.mask = TCIF_TEXT;
    tabItem.pszText = sText;
    tabItem.cchTextMax = sizeof sText;
    TESK_VERIFY(GetItem(iItem, &tabItem));
    return CString(tabItem.pszText);
}

std::vector<AcApDocument*> CARXMDITabs::getDocuments()
{
    std::vector<AcApDocument*> vecDocuments;
    const int iCount = GetItemCount();
    for (int iItem = 0; iItem < iCount; ++iItem)
        vecDocuments.push_back(getDocument(iItem));
    return vecDocuments;
}

// Without the reactor no state is known.
std::vector<AcApDocument*> CARXMDITabs::getUnmodifiedDocuments()
{
    CDocManagerReactor* pReactor = CDocManagerReactor::getReactor();
    std::vector<AcApDocument*> vecDocuments;
    if (pReactor == nullptr)
        return vecDocuments;
    for (AcApDocument* pDocument : getDocuments())
        if (!pReactor->wasDatabaseModified(pDocument))
            vecDocuments.push_back(pDocument);
    return vecDocuments;
}

void CARXMDITabs::updateSameNameTexts(const std::vector<AcApDocument*>& vecDocuments)
{
    for (AcApDocument* pDocument : vecDocuments)
        if (!CMDITabSettings::getSameNameText(pDocument->fileName()).IsEmpty())
            updateTabText(pDocument);
}

void CARXMDITabs::closeDocuments(const std::vector<AcApDocument*>& vecDocuments)
{
    TESK_TRACE("CARXMDITabs::closeDocuments(...)\n");
    m_vecClosing = vecDocuments;
    if (!m_vecClosing.empty())
        closeDocument(m_vecClosing.front());
}

void CARXMDITabs::continueClosing()
{
    if (m_vecClosing.empty() || findTab(m_vecClosing.front()) != -1)
        return;
    // Those that were closed by others meanwhile are passed over.
    const auto next = std::find_if(m_vecClosing.begin(), m_vecClosing.end(),
                                   [this](const AcApDocument* pDocument) { return findTab(pDocument) != -1; });
    m_vecClosing.erase(m_vecClosing.begin(), next);
    if (!m_vecClosing.empty())
        closeDocument(m_vecClosing.front());
}

void CARXMDITabs::copyPath(AcApDocument* pDocument)
{
    TESK_TRACE("CARXMDITabs::copyPath(\"%s\")\n", pDocument->fileName());
    if (!Tesk::copyToClipboard(m_hWnd, Tesk::Network::getUniversalName(pDocument->fileName())))
        report(m_hWnd, "The path could not be copied: another program is using the clipboard.");
}

void CARXMDITabs::openFolder(AcApDocument* pDocument)
{
    TESK_TRACE("CARXMDITabs::openFolder(\"%s\")\n", pDocument->fileName());
    if (!Tesk::showInExplorer(m_hWnd, pDocument->fileName()))
        report(m_hWnd, "The drawing's folder could not be opened.");
}

void CARXMDITabs::showHelp(AcApDocument* pDocument)
{
    TESK_TRACE("CARXMDITabs::showHelp(\"%s\")\n", pDocument->fileName());
    CHelpBox(pDocument->fileName()).DoModal();
}

LRESULT CARXMDITabs::OnMiddleButtonDown(WPARAM, LPARAM lParam)
{
    Tesk::guarded("CARXMDITabs::OnMiddleButtonDown", [&] {
        m_pMiddlePressed = CTabOptions::readMiddleClickCloses() ? getDocument(CPoint(lParam)) : nullptr;
    });
    return Default();
}

LRESULT CARXMDITabs::OnMiddleButtonUp(WPARAM, LPARAM lParam)
{
    const AcApDocument* pPressed = std::exchange(m_pMiddlePressed, nullptr);
    const LRESULT result = Default();
    Tesk::guarded("CARXMDITabs::OnMiddleButtonUp", [&] {
        AcApDocument* pReleased = pPressed != nullptr ? getDocument(CPoint(lParam)) : nullptr;
        if (pReleased != nullptr && pReleased == pPressed)
            closeDocument(pReleased);
    });
    return result;
}
