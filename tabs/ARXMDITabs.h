#pragma once

// The strip as the rest of the module sees it: one tab for every open drawing. The
// control's items are the only list of documents; an item's data is its document.

#include "library/diagnostics/Guard.h"
#include "mfc/afx.h"
#include "settings/FileNameLess.h"
#include "tabs/MDITabsEx.h"
#include "tabs/TabAdditions.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

class AcApDocument;

class CARXMDITabs : public CMDITabsEx {
public:
    CARXMDITabs() = default;
    ~CARXMDITabs() override;

    void Create(CMDIFrameWnd* pMainFrame, DWORD dwStyle);

    // ---- what the reactors ask for

    // Appends a tab unless the document has one.
    void addDocument(AcApDocument* pDocument);
    // Deletes the document's tab, if any. Its cached tooltip stays.
    void removeDocument(AcApDocument* pDocument);
    // Selects the document's tab, if any; the host is not asked for anything.
    void activateDocument(AcApDocument* pDocument);
    // Refreshes tab text and tooltip; the balloon takes the new text at the next move.
    void updateDocumentModified(AcApDocument* pDocument);

    // ---- queries

    // The tab's index, or -1. Walks the items.
    int findDocument(AcApDocument* pDocument);
    bool isDocumentPresent(AcApDocument* pDocument);
    // Null, after an assertion, when there is no such tab.
    AcApDocument* getDocument(int iItem);
    // The document under a client point, or null.
    AcApDocument* getDocument(const CPoint point);

    // File name, extension as the user wants it, and the marker when modified.
    CString buildTabText(AcApDocument* pDocument);
    // The expanded template, else the drawing's title, else the default text.
    CString buildTooltip(AcApDocument* pDocument);
    void updateTabText(AcApDocument* pDocument);
    void updateTooltip(AcApDocument* pDocument);
    // Built at the first request for a file name; good until the next update.
    const CString& getTooltip(AcApDocument* pDocument);
    // Good until the drawing's data is refreshed.
    const std::vector<CString>& getXrefs(AcApDocument* pDocument);

    // ---- the context menu (ARXMDITabsMenu.cpp)

    // Builds and shows the menu at a screen point, and carries out what was chosen.
    void popupMenu(AcApDocument* pDocument, int x, int y);
    // One item an xref, in order, identified from iBaseID on.
    void addXrefsToMenu(AcApDocument* pDocument, CMenu& menu, UINT iBaseID, const std::vector<CString>& xrefs);
    void processPopupMenuItem(AcApDocument* pDocument, UINT iItem, const std::vector<CString>& xrefs);
    // Each runs in the tab's own document, which need not be the active one.
    void saveDocument(AcApDocument* pDocument);
    void closeDocument(AcApDocument* pDocument);
    void showOptions();
    void openXREF(const CString& sPath);
    // Enables the menu's string items, which the frame has greyed for want of handlers.
    void enablePopupMenu(CMenu* pPopupMenu);

    // What the strip asks from now on; null: nothing.
    void setAdditions(std::unique_ptr<CTabAdditions> pAdditions) { m_pAdditions = std::move(pAdditions); }

protected:
    // Shows the additions the messages that they may want.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // Asserts that there is a document; callers leave when it says false.
    static bool checkDocument(const AcApDocument* pDocument);
    // Asks the additions, if there are any.
    template <class Call>
    void askAdditions(Call&& call)
    {
        if (m_pAdditions != nullptr)
            Tesk::guarded("CTabAdditions", [&] { call(*m_pAdditions); });
    }

    void OnSelChanging(NMHDR* pNotify, LRESULT* pResult);
    void OnSelChange(NMHDR* pNotify, LRESULT* pResult);
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnContextMenu(CWnd* pWnd, CPoint point);
    void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
    void activateSelected();
    void trackToolTip(CPoint point);

    void hideToolTip();
    void appendAdditions(AcApDocument* pDocument, CMenu& menu, CTabAdditions::Place place);
    void appendXrefs(AcApDocument* pDocument, CMenu& menu, const std::vector<CString>& xrefs);

    CString m_sToolTipDocument;  // whose tooltip the balloon shows; empty: none
    std::map<CString, CString, FileNameLess> m_mapTooltips;
    CMDIFrameWnd* m_pMainFrame = nullptr;  // the host's
    std::unique_ptr<CTabAdditions> m_pAdditions;

    DECLARE_MESSAGE_MAP()
};
