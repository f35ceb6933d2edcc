#include "additions/DrawingsList.h"

#include "additions/MenuIds.h"
#include "additions/OptInText.h"
#include "library/diagnostics/Prerelease.h"
#include "library/drawing/DocumentName.h"
#include "mfc/afxwin.h"
#include "objectarx/acdocman.h"
#include "reactors/OpenDocuments.h"

#include <algorithm>
#include <numeric>

std::vector<const AcApDocument*> CDrawingsList::s_vecUsed;

namespace {

constexpr std::size_t kMost = IDC_DYNAMIC_MENU_DRAWINGS_END - IDC_DYNAMIC_MENU_DRAWINGS;

// Each ampersand of the text shows as one, and underlines nothing.
CString asCaption(CString sText)
{
    sText.Replace("&", "&&");
    return sText;
}

}  // namespace

bool CDrawingsList::append(const AcApDocument* pDocument, CMenu& menu)
{
    const CString sCaption = getOptInText(Tesk::fileNameOf(pDocument), "PopupDrawingsText");
    if (sCaption.IsEmpty() || !acDocManager->isDocumentActivationEnabled())
        return false;
    m_bRecent = getOptInText(Tesk::fileNameOf(pDocument), "DrawingsOrder").CompareNoCase("recent") == 0;
    CMenu menuDrawings;
    TESK_VERIFY(menuDrawings.CreatePopupMenu());
    m_vecDrawings.clear();
    m_hMenu = menuDrawings.m_hMenu;
    // The menu owns the submenu from here on.
    TESK_VERIFY(menu.AppendMenu(MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(menuDrawings.Detach()), sCaption));
    return true;
}

// The list is long, and looked at less often than the menu.
void CDrawingsList::fill(CMenu& menu)
{
    if (menu.m_hMenu != m_hMenu || menu.GetMenuItemCount() != 0)
        return;
    const AcApDocument* pActive = acDocManager->mdiActiveDocument();
    for (const int iItem : order()) {
        if (m_vecDrawings.size() == kMost)
            break;
        char sText[1024] = "";
        TCITEMA tabItem = {};
        tabItem.mask = TCIF_TEXT | TCIF_PARAM;
        tabItem.pszText = sText;
        tabItem.cchTextMax = sizeof sText;
        TESK_VERIFY(m_tabs.GetItem(iItem, &tabItem));
        const UINT iId = IDC_DYNAMIC_MENU_DRAWINGS + static_cast<UINT>(m_vecDrawings.size());
        m_vecDrawings.push_back(reinterpret_cast<AcApDocument*>(tabItem.lParam));
        TESK_VERIFY(menu.AppendMenu(MF_STRING | (m_vecDrawings.back() == pActive ? MF_CHECKED : MF_UNCHECKED), iId,
                                    asCaption(m_longNames.unshorten(m_vecDrawings.back(), tabItem.pszText))));
    }
}

// The tabs' numbers. A list that is longer than the screen begins shortly before the active
// drawing, and goes on with the first behind the last.
std::vector<int> CDrawingsList::order() const
{
    std::vector<int> vecItems(static_cast<std::size_t>(m_tabs.GetItemCount()));
    std::iota(vecItems.begin(), vecItems.end(), 0);
    if (!m_bRecent) {
        constexpr int kBefore = 5;
        const int iFit = ::GetSystemMetrics(SM_CYSCREEN) / ::GetSystemMetrics(SM_CYMENU);
        const int iBegin = m_tabs.GetCurSel() - kBefore;
        if (m_tabs.GetItemCount() > iFit && iBegin > 0)
            std::rotate(vecItems.begin(), vecItems.begin() + iBegin, vecItems.end());
        return vecItems;
    }
    // Who was used before the active one comes first, who was never used before the active one.
    const auto age = [](const AcApDocument* pDocument) {
        const auto used = std::find(s_vecUsed.rbegin(), s_vecUsed.rend(), pDocument);
        return used == s_vecUsed.rbegin() ? s_vecUsed.rend() - used + 1 : used - s_vecUsed.rbegin();
    };
    std::vector<std::pair<std::ptrdiff_t, int>> vecAges;
    for (const int iItem : vecItems)
        vecAges.emplace_back(age(m_tabs.getDocument(iItem)), iItem);
    std::sort(vecAges.begin(), vecAges.end());
    std::transform(vecAges.begin(), vecAges.end(), vecItems.begin(), [](const auto& aged) { return aged.second; });
    return vecItems;
}

bool CDrawingsList::activate(UINT iItem)
{
    const UINT iDrawing = iItem - IDC_DYNAMIC_MENU_DRAWINGS;
    if (iDrawing >= m_vecDrawings.size())
        return false;
    // It may have been closed by others while the menu was up.
    AcApDocument* pChosen = m_vecDrawings[iDrawing];
    if (isOpen(pChosen))
        TESK_VERIFY(acDocManager->activateDocument(pChosen) == Acad::eOk);
    return true;
}

// Who asks for it is known when the list opens; until then nothing is read.
void CDrawingsList::use(AcApDocument* pDocument)
{
    s_vecUsed.erase(std::remove(s_vecUsed.begin(), s_vecUsed.end(), pDocument), s_vecUsed.end());
    s_vecUsed.push_back(pDocument);
    if (s_vecUsed.size() > kMost)
        s_vecUsed.erase(s_vecUsed.begin());
}
