#pragma once

// A drawing's window: an MDI child that shows the drawing's lines, texts and
// block references, as a plan to tell drawings apart by.

#include "host/ui/DisplayList.h"
#include "mfc/afxwin.h"

namespace host {

class Application;
class Document;

class DrawingView : public CMDIChildWnd {
public:
    DrawingView(Application& application, Document& document) : m_application(application), m_document(document) {}

    bool create(CMDIFrameWnd& frame);
    Document& document() const { return m_document; }
    // The drawing or its name changed.
    void refresh();

    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    void OnPaint();
    void OnClose();
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    DECLARE_MESSAGE_MAP()

private:
    Application& m_application;
    Document& m_document;
    DisplayList m_display;
    bool m_stale = true;
};

}  // namespace host
