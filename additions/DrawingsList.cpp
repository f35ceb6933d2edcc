#include "additions/DrawingsList.h"

#include "additions/MenuIds.h"
#include "additions/OpenTabs.h"
#include "additions/OptInText.h"
#include "library/diagnostics/Prerelease.h"
#include "library/drawing/DocumentName.h"
#include "mfc/afxwin.h"
#include "objectarx/acdocman.h"
#include "reactors/OpenDocuments.h"

#include <algorithm>

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

CDrawingsList::CDrawingsList(CARXMDITabs& tabs)
    : m_tabs(tabs), m_bRecent(getOptInText("", "DrawingsOrder").CompareNoCase("recent") == 0)
{
}

bool CDrawingsList::append(const AcApDocument* pDocument, CMenu& menu)
{
    const CString sCaption = getOptInText(Tesk::fileNameOf(pDocument), "PopupDrawingsText");
    if (sCaption.IsEmpty() || !acDocManager->isDocumentActivationEnabled())
        return false;
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
    m_vecDrawings = openTabs(m_tabs);
    sort();
    m_vecDrawings.resize(std::min(m_vecDrawings.size(), kMost));
    const AcApDocument* pActive = acDocManager->mdiActiveDocument();
    UINT iId = IDC_DYNAMIC_MENU_DRAWINGS;
    for (AcApDocument* pDocument : m_vecDrawings)
        TESK_VERIFY(menu.AppendMenu(MF_STRING | (pDocument == pActive ? MF_CHECKED : MF_UNCHECKED), iId++,
                                    asCaption(m_tabs.buildTabText(pDocument))));
}

void CDrawingsList::sort()
{
    const AcApDocument* pActive = acDocManager->mdiActiveDocument();
    if (m_bRecent) {
        // The active one is the last, behind those that were never used.
        const auto age = [=](const AcApDocument* pDocument) {
            return std::pair(pDocument == pActive,
                             std::find(s_vecUsed.rbegin(), s_vecUsed.rend(), pDocument) - s_vecUsed.rbegin());
        };
        std::stable_sort(m_vecDrawings.begin(), m_vecDrawings.end(),
                         [=](const auto* pOne, const auto* pOther) { return age(pOne) < age(pOther); });
        return;
    }
    // A list that is longer than the screen begins shortly before the active drawing, and
    // goes on with the first behind the last.
    constexpr std::ptrdiff_t kBefore = 5;
    const auto active = std::find(m_vecDrawings.begin(), m_vecDrawings.end(), pActive);
    const std::ptrdiff_t fit = ::GetSystemMetrics(SM_CYSCREEN) / ::GetSystemMetrics(SM_CYMENU);
    if (m_vecDrawings.end() - m_vecDrawings.begin() > fit && active - m_vecDrawings.begin() > kBefore)
        std::rotate(m_vecDrawings.begin(), active - kBefore, m_vecDrawings.end());
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

void CDrawingsList::use(AcApDocument* pDocument)
{
    s_vecUsed.erase(std::remove(s_vecUsed.begin(), s_vecUsed.end(), pDocument), s_vecUsed.end());
    if (m_bRecent)
        s_vecUsed.push_back(pDocument);
    if (s_vecUsed.size() > kMost)
        s_vecUsed.erase(s_vecUsed.begin());
}
