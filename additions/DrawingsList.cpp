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
    const auto begin = m_vecDrawings.begin(), end = m_vecDrawings.end();
    if (m_bRecent)
        for (const AcApDocument* pUsed : s_vecUsed)
            if (const auto used = std::find(begin, end, pUsed); used != end)
                std::rotate(begin, used, used + 1);
    const auto active = std::find(begin, end, acDocManager->mdiActiveDocument());
    constexpr std::ptrdiff_t kBefore = 5;
    if (active == end)
        return;
    if (m_bRecent)
        std::rotate(active, active + 1, end);  // behind those that were never used
    else if (end - begin > ::GetSystemMetrics(SM_CYSCREEN) / ::GetSystemMetrics(SM_CYMENU) && active - begin > kBefore)
        std::rotate(begin, active - kBefore, end);
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
