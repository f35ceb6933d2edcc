#pragma once

// The strip as the rest of the module sees it: one tab for every open drawing. The
// control's items are the only list of documents; an item's data is its document.

#include "mfc/afx.h"
#include "settings/FileNameLess.h"
#include "tabs/MDITabsEx.h"
#include "tabs/SameNames.h"

#include <map>
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
    // A document has gone: of those to be closed one after the other the next is due.
    void continueClosing();
    // A person kept a drawing that was to be closed: those behind it stay, too.
    void stopClosing() { m_vecClosing.clear(); }

    // ---- queries

    // The tab's index, or -1. Walks the items.
    int findDocument(AcApDocument* pDocument);
    bool isDocumentPresent(AcApDocument* pDocument);
    // Null, after an assertion, when there is no such tab.
    AcApDocument* getDocument(int iItem);
    // The document under a client point, or null.
    AcApDocument* getDocument(const CPoint point);

    // File name, extension as the user wants it, what tells it from another drawing of
    // that name (where the drawing's texts ask for that), and the marker when modified.
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
    // Asked by the options command, which may delete the strip: true while a handler of
    // the strip waits for the host. The command is then sent anew after it.
    static bool putOffOptions();
    void openXREF(const CString& sPath);
    // Enables the menu's string items, which the frame has greyed for want of handlers.
    void enablePopupMenu(CMenu* pPopupMenu);

    // ---- what an office may switch on (ARXMDITabsExtras.cpp)

    // Asks the documents to close, each when the one before has gone.
    void closeDocuments(const std::vector<AcApDocument*>& vecDocuments);
    // The full path, on a mapped drive the network's name, to the clipboard.
    void copyPath(AcApDocument* pDocument);
    void openFolder(AcApDocument* pDocument);
    void showHelp(AcApDocument* pDocument);

private:
    // Asserts that there is a document; callers leave when it says false.
    static bool checkDocument(const AcApDocument* pDocument);
    // findDocument by the pointer alone, for a document that may be gone.
    int findTab(const AcApDocument* pDocument);
    static void sendCommand(AcApDocument* pDocument, const char* sCommand);

    void OnSelChanging(NMHDR* pNotify, LRESULT* pResult);
    void OnSelChange(NMHDR* pNotify, LRESULT* pResult);
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnContextMenu(CWnd* pWnd, CPoint point);
    void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
    LRESULT OnMiddleButtonDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnMiddleButtonUp(WPARAM wParam, LPARAM lParam);
    void activateSelected();
    void trackToolTip(CPoint point);

    // Items of the menu: nothing is added whose caption is empty or which would do nothing.
    void addClosingItems(AcApDocument* pDocument, CMenu& menu);
    void addPlaceItems(AcApDocument* pDocument, CMenu& menu);
    void addDrawingsMenu(AcApDocument* pDocument, CMenu& menu);
    void addHelpItem(AcApDocument* pDocument, CMenu& menu);
    // False when the item is none of those.
    bool processExtraItem(AcApDocument* pDocument, UINT iItem);
    std::vector<AcApDocument*> getDocuments();
    std::vector<AcApDocument*> getUnmodifiedDocuments();
    CString getTabText(int iItem);
    CString buildTabText(AcApDocument* pDocument, CString sName);
    // The tab's text for the name that the document has now; the texts of those that came
    // to share it, or ceased to, are changed.
    CString renameTab(AcApDocument* pDocument);
    void updateSameNameTexts(const std::vector<AcApDocument*>& vecDocuments);

    CString m_sToolTipDocument;  // whose tooltip the balloon shows; empty: none
    std::map<CString, CString, FileNameLess> m_mapTooltips;
    CMDIFrameWnd* m_pMainFrame = nullptr;  // the host's
    CSameNames m_sameNames;
    std::vector<AcApDocument*> m_vecClosing;         // the first has been asked
    std::vector<AcApDocument*> m_vecMenuDrawings;    // of the submenu that shows or showed last
    const AcApDocument* m_pMiddlePressed = nullptr;  // on whose tab; may be gone

    DECLARE_MESSAGE_MAP()
};
