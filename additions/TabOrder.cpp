#include "additions/TabOrder.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/DocumentName.h"
#include "reactors/OpenDocuments.h"

#include <algorithm>

std::vector<AcApDocument*> CTabOrder::s_vecOrder;
std::vector<AcApDocument*> CTabOrder::s_vecDue;
std::map<const AcApDocument*, CString> CTabOrder::s_mapNames;

void CTabOrder::move(int iFrom, int iTo)
{
    reinsert(iFrom, iTo);
    s_vecDue.clear();
    s_vecOrder.clear();
    s_mapNames.clear();
    for (int iItem = 0; iItem < m_tabs.GetItemCount(); ++iItem) {
        AcApDocument* pDocument = m_tabs.getDocument(iItem);
        if (isOpen(pDocument))
            append(pDocument);
    }
}

void CTabOrder::append(AcApDocument* pDocument)
{
    s_vecOrder.push_back(pDocument);
    s_mapNames[pDocument] = Tesk::fileNameOf(pDocument);
}

// The selected drawing and what of the strip shows stay.
void CTabOrder::reinsert(int iFrom, int iTo)
{
    if (iFrom == iTo)
        return;
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

void CTabOrder::place(AcApDocument* pDocument)
{
    if (s_vecOrder.empty())
        return;
    const auto isIn = [](const std::vector<AcApDocument*>& vecDocuments, const AcApDocument* pSought) {
        return std::find(vecDocuments.begin(), vecDocuments.end(), pSought) != vecDocuments.end();
    };
    const auto take = [pDocument](std::vector<AcApDocument*>& vecDocuments) {
        vecDocuments.erase(std::remove(vecDocuments.begin(), vecDocuments.end(), pDocument), vecDocuments.end());
    };
    const int iLast = m_tabs.GetItemCount() - 1;
    if (iLast == 0) {
        // The strip is filled anew. What was closed meanwhile does not come again.
        s_vecDue.clear();
        forEachDocument([&](AcApDocument* pOpen) {
            if (isIn(s_vecOrder, pOpen) && s_mapNames[pOpen].Compare(Tesk::fileNameOf(pOpen)) == 0)
                s_vecDue.push_back(pOpen);
        });
    }
    if (!isIn(s_vecDue, pDocument)) {
        take(s_vecOrder);
        append(pDocument);
        return;
    }
    take(s_vecDue);
    // Before the first that stands behind it.
    const auto own = std::find(s_vecOrder.begin(), s_vecOrder.end(), pDocument);
    int iPlace = 0;
    while (iPlace < iLast && std::find(s_vecOrder.begin(), own, m_tabs.getDocument(iPlace)) != own)
        ++iPlace;
    reinsert(iLast, iPlace);
}
