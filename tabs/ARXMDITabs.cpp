#include "tabs/ARXMDITabs.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/DocumentName.h"
#include "library/files/PathParts.h"
#include "library/text/StringView.h"
#include "objectarx/acdocman.h"
#include "reactors/DatabaseData.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/EditorReactor.h"
#include "reactors/OpenDocuments.h"
#include "settings/MDITabSettings.h"
#include "settings/TabOptions.h"
#include "settings/TooltipRule.h"

#include <cstring>

BEGIN_MESSAGE_MAP(CARXMDITabs, CMDITabsEx)
    ON_NOTIFY_REFLECT(TCN_SELCHANGING, &ThisClass::OnSelChanging)
    ON_NOTIFY_REFLECT(TCN_SELCHANGE, &ThisClass::OnSelChange)
    ON_WM_MOUSEMOVE()
    ON_WM_CONTEXTMENU()
    ON_WM_INITMENUPOPUP()
END_MESSAGE_MAP()

namespace {

// What there is without a document.
const CString kNoTooltip;
const std::vector<CString> kNoXrefs;

// As the user wants it.
CString shownName(const AcApDocument* pDocument)
{
    const Tesk::CPathParts parts(Tesk::fileNameOf(pDocument));
    return Tesk::toCString(CTabOptions::readExtensions() ? parts.fileName() : parts.m_sBase);
}

}  // namespace

CARXMDITabs::~CARXMDITabs() = default;

void CARXMDITabs::Create(CMDIFrameWnd* pMainFrame, DWORD dwStyle)
{
    CMDITabsEx::Create(pMainFrame, dwStyle);
    m_pMainFrame = pMainFrame;
}

bool CARXMDITabs::checkDocument(const AcApDocument* pDocument)
{
    TESK_ASSERT(pDocument != NULL);
    return pDocument != nullptr;
}

void CARXMDITabs::addDocument(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::addDocument(\"%s\")\n", Tesk::fileNameOf(pDocument));
    if (isDocumentPresent(pDocument))
        return;

    CString sText = buildTabText(pDocument);
    TCITEMA tabItem = {};
    tabItem.mask = TCIF_TEXT | TCIF_PARAM | (CTabOptions::readIcons() ? static_cast<UINT>(TCIF_IMAGE) : 0U);
    tabItem.pszText = sText.GetBuffer(sText.GetLength());
    tabItem.iImage = 0;
    tabItem.lParam = reinterpret_cast<LPARAM>(pDocument);
    InsertItem(GetItemCount(), &tabItem);
    askAdditions([=](CTabAdditions& additions) { additions.tabAdded(pDocument); });
    askAdditions([](CTabAdditions& additions) { additions.tabChanged(); });
}

void CARXMDITabs::removeDocument(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::removeDocument(\"%s\")\n", Tesk::fileNameOf(pDocument));
    const int iItem = findDocument(pDocument);
    if (iItem != -1) {
        TESK_VERIFY(DeleteItem(iItem));
        hideToolTip();
    }
    askAdditions([=](CTabAdditions& additions) { additions.tabRemoved(pDocument); });
}

// The balloon would go on naming a drawing that is closed, or has moved away, under the mouse.
void CARXMDITabs::hideToolTip()
{
    m_sToolTipDocument.Empty();
    if (m_pToolTip != nullptr && m_pToolTip->m_hWnd != nullptr)
        m_pToolTip->SendMessage(TTM_POP);
}

void CARXMDITabs::activateDocument(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::activateDocument(\"%s\")\n", Tesk::fileNameOf(pDocument));
    const int iItem = findDocument(pDocument);
    if (iItem != -1)
        SetCurSel(iItem);
    askAdditions([=](CTabAdditions& additions) { additions.tabActivated(pDocument); });
}

void CARXMDITabs::updateDocumentModified(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::updateDocumentModified(...)\n");
    updateTabText(pDocument);
    updateTooltip(pDocument);
    m_sToolTipDocument.Empty();
}

int CARXMDITabs::findDocument(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return -1;
    TESK_TRACE("CARXMDITabs::findDocument(\"%s\")\n", Tesk::fileNameOf(pDocument));
    const int iCount = GetItemCount();
    for (int iItem = 0; iItem < iCount; ++iItem)
        if (getDocument(iItem) == pDocument)
            return iItem;
    return -1;
}

bool CARXMDITabs::isDocumentPresent(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return false;
    TESK_TRACE("CARXMDITabs::isDocumentPresent(\"%s\")\n", Tesk::fileNameOf(pDocument));
    return findDocument(pDocument) != -1;
}

AcApDocument* CARXMDITabs::getDocument(int iItem)
{
    TESK_TRACE("CARXMDITabs::getDocument(iItem = %x)\n", static_cast<unsigned>(iItem));
    TCITEMA tabItem = {};
    tabItem.mask = TCIF_PARAM;
    TESK_VERIFY(GetItem(iItem, &tabItem));
    return reinterpret_cast<AcApDocument*>(tabItem.lParam);
}

AcApDocument* CARXMDITabs::getDocument(const CPoint point)
{
    TESK_TRACE("CARXMDITabs::getDocument(const CPoint point)\n");
    TCHITTESTINFO hit = {};
    hit.pt = point;
    const int iItem = HitTest(&hit);
    return iItem != -1 ? getDocument(iItem) : nullptr;
}

CString CARXMDITabs::buildTabText(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return CString();
    TESK_TRACE("CARXMDITabs::buildTabText(\"%s\")\n", Tesk::fileNameOf(pDocument));
    CString sText = shownName(pDocument);
    askAdditions([&](CTabAdditions& additions) { sText = additions.getText(pDocument, sText); });
    // Without the reactor the state is not known and no marker is shown.
    CDocManagerReactor* pReactor = CDocManagerReactor::getReactor();
    if (pReactor != nullptr && pReactor->wasDatabaseModified(pDocument))
        sText += CMDITabSettings::getModifiedText(Tesk::fileNameOf(pDocument));
    return sText;
}

CString CARXMDITabs::buildTooltip(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return CString();
    TESK_TRACE("CARXMDITabs::buildTooltip(\"%s\")\n", Tesk::fileNameOf(pDocument));
    const char* sFilename = Tesk::fileNameOf(pDocument);
    const CString sTooltip = CMDITabSettings::getDefaultTooltipText(sFilename);
    CEditorReactor* pReactor = CEditorReactor::getReactor();
    if (pReactor == nullptr)
        return sTooltip;

    CDatabaseData& data = pReactor->getDatabaseData(pDocument);
    switch (chooseTooltipRule(data.keywordExpansion(), data.drawingProperties())) {
    case TooltipRule::Template:
        return data.keywordExpansion().expandString(CMDITabSettings::getTooltipText(sFilename));
    case TooltipRule::Title:
        return data.drawingProperties().getTitle();
    default:
        return sTooltip;
    }
}

void CARXMDITabs::updateTabText(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::updateTabText(\"%s\")\n", Tesk::fileNameOf(pDocument));
    const int iItem = findDocument(pDocument);
    if (iItem == -1)
        return;
    CString sText = buildTabText(pDocument);
    TCITEMA tabItem = {};
    tabItem.mask = TCIF_TEXT;
    tabItem.pszText = sText.GetBuffer(sText.GetLength());
    TESK_VERIFY(SetItem(iItem, &tabItem));
    askAdditions([](CTabAdditions& additions) { additions.tabChanged(); });
}

void CARXMDITabs::updateTooltip(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return;
    TESK_TRACE("CARXMDITabs::updateTooltip(\"%s\")\n", Tesk::fileNameOf(pDocument));
    m_mapTooltips.insert_or_assign(Tesk::fileNameOf(pDocument), buildTooltip(pDocument));
}

const CString& CARXMDITabs::getTooltip(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return kNoTooltip;
    TESK_TRACE("CARXMDITabs::getTooltip(\"%s\")\n", Tesk::fileNameOf(pDocument));
    const CString sFilename(Tesk::fileNameOf(pDocument));
    auto iter = m_mapTooltips.find(sFilename);
    if (iter == m_mapTooltips.end()) {
        m_mapTooltips.emplace(sFilename, buildTooltip(pDocument));
        iter = m_mapTooltips.find(sFilename);
    }
    TESK_ASSERT(iter != m_mapTooltips.end());
    return iter->second;
}

const std::vector<CString>& CARXMDITabs::getXrefs(AcApDocument* pDocument)
{
    if (!checkDocument(pDocument))
        return kNoXrefs;
    TESK_TRACE("CARXMDITabs::getXrefs(\"%s\")\n", Tesk::fileNameOf(pDocument));
    CEditorReactor* pReactor = CEditorReactor::getReactor();
    return pReactor != nullptr ? pReactor->getDatabaseData(pDocument).xrefPaths() : kNoXrefs;
}

LRESULT CARXMDITabs::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    bool bHandled = false;
    if ((message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) || message == WM_CAPTURECHANGED || message == WM_TIMER ||
        message == WM_APP)
        askAdditions([&](CTabAdditions& additions) { bHandled = additions.handleMessage(message, wParam, lParam); });
    const LRESULT result = bHandled ? 0 : CMDITabsEx::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE)
        askAdditions([](CTabAdditions& additions) { additions.stripSized(); });
    return result;
}

void CARXMDITabs::OnSelChanging(NMHDR*, LRESULT* pResult)
{
    TESK_TRACE("CARXMDITabs::OnSelChanging(...)\n");
    Tesk::guarded("CARXMDITabs::OnSelChanging", [&] { *pResult = !acDocManager->isDocumentActivationEnabled(); });
}

void CARXMDITabs::OnSelChange(NMHDR*, LRESULT* pResult)
{
    TESK_TRACE("CARXMDITabs::OnSelChange(...)\n");
    *pResult = 0;
    Tesk::guarded("CARXMDITabs::OnSelChange", [this] { activateSelected(); });
}

void CARXMDITabs::activateSelected()
{
    AcApDocument* pCurrent = acDocManager->curDocument();
    TESK_ASSERT(pCurrent != NULL);
    const int iSelected = GetCurSel();
    if (iSelected == -1 || (pCurrent != nullptr && findDocument(pCurrent) == iSelected))
        return;
    AcApDocument* pNew = getDocument(iSelected);
    if (isOpen(pNew))
        TESK_VERIFY(acDocManager->activateDocument(pNew) == Acad::eOk);
}

void CARXMDITabs::OnMouseMove(UINT nFlags, CPoint point)
{
    if (m_bToolTips)
        Tesk::guarded("CARXMDITabs::OnMouseMove", [&] { trackToolTip(point); });
    CMDITabsEx::OnMouseMove(nFlags, point);
}

// Runs on every move: nothing is built or copied unless the mouse has come to
// another drawing's tab.
void CARXMDITabs::trackToolTip(CPoint point)
{
    TESK_ASSERT(m_pToolTip != NULL);
    if (m_pToolTip == nullptr || m_pToolTip->m_hWnd == nullptr)
        return;
    AcApDocument* pDocument = getDocument(point);
    if (!isOpen(pDocument) || std::strcmp(Tesk::fileNameOf(pDocument), m_sToolTipDocument.GetString()) == 0)
        return;
    m_pToolTip->UpdateTipText(getTooltip(pDocument), this, 0);
    m_sToolTipDocument = Tesk::fileNameOf(pDocument);
}
