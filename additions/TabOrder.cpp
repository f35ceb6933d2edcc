#include "additions/TabOrder.h"

#include "additions/OpenTabs.h"
#include "library/diagnostics/Prerelease.h"
#include "library/drawing/DocumentName.h"

#include <algorithm>

std::vector<CString> CTabOrder::s_vecOrder;

void CTabOrder::move(int iFrom, int iTo)
{
    reinsert(iFrom, iTo);
    s_vecOrder.clear();
    for (const AcApDocument* pDocument : openTabs(m_tabs))
        s_vecOrder.emplace_back(Tesk::fileNameOf(pDocument));
}

// The selected drawing and what of the strip shows stay.
void CTabOrder::reinsert(int iFrom, int iTo)
{
    const CStripView view(m_tabs);
    const int iFirst = view.first();
    int iSelected = m_tabs.GetCurSel();
    char sText[1024] = "";
    TCITEMA tabItem = {};
    tabItem.mask = TCIF_TEXT | TCIF_IMAGE | TCIF_PARAM;
    tabItem.pszText = sText;
    tabItem.cchTextMax = sizeof sText;
    TESK_VERIFY(m_tabs.GetItem(iFrom, &tabItem));
    TESK_VERIFY(m_tabs.DeleteItem(iFrom));
    m_tabs.InsertItem(iTo, &tabItem);
    if (iSelected == iFrom)
        iSelected = iTo;
    else
        iSelected += (iSelected >= iTo && iSelected < iFrom) - (iSelected <= iTo && iSelected > iFrom);
    m_tabs.SetCurSel(iSelected);
    view.scroll(iFirst - view.first());
}

void CTabOrder::place(const AcApDocument* pDocument)
{
    const auto placeOf = [](const AcApDocument* pSought) {
        return std::find_if(s_vecOrder.begin(), s_vecOrder.end(),
                            [=](const CString& sName) { return sName.Compare(Tesk::fileNameOf(pSought)) == 0; });
    };
    const auto own = placeOf(pDocument);
    if (own == s_vecOrder.end())
        return;
    // Before the first that stands behind it.
    const std::vector<AcApDocument*> vecTabs = openTabs(m_tabs);
    const auto next =
        std::find_if(vecTabs.begin(), vecTabs.end(), [&](const AcApDocument* pTab) { return placeOf(pTab) > own; });
    if (next != vecTabs.end())
        reinsert(m_tabs.GetItemCount() - 1, m_tabs.findDocument(*next));
}
