#pragma once

// The host's main window: menu, MDI client with a window a drawing, command line.

#include "host/ui/CommandPane.h"
#include "mfc/afxwin.h"

#include <commdlg.h>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class Application;
class Document;
class DrawingView;

// The MDI client, which refuses to switch windows while the host forbids it.
class MdiClient : public CWnd {
public:
    explicit MdiClient(Application& application) : m_application(application) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    Application& m_application;
};

class MainFrame : public CMDIFrameWnd {
public:
    explicit MainFrame(Application& application);
    ~MainFrame() override;

    bool create(bool visible);

    // Makes the document's window, without activating another document's meanwhile.
    void open(Document& document);
    void close(Document& document);
    // Brings the window to the front.
    void activate(Document& document);
    // The document's name or contents changed.
    void refresh(Document& document);

    void showHistory(std::string_view text) { m_pane.show(text); }
    void clearHistory() { m_pane.clear(); }
    void typeCommand(std::string_view text) { m_pane.type(text); }
    // IDYES to save them, IDNO to discard them, or IDCANCEL.
    int askAboutChanges(const Document& document);
    // Each empty when cancelled.
    std::vector<std::string> askForFiles();
    std::string askForTarget(const std::string& sOffered);

protected:
    LRESULT OnKickIdle(WPARAM wParam, LPARAM lParam);
    void OnClose();
    void OnMenuCommand(UINT id);
    LRESULT OnDropFiles(WPARAM wParam, LPARAM lParam);
    void OnUpdateMenuItem(CCmdUI* pState);

    DECLARE_MESSAGE_MAP()

private:
    std::vector<std::string> ask(BOOL(WINAPI* dialog)(OPENFILENAMEA*), const std::string& sOffered, DWORD flags);

    Application& m_application;
    MdiClient m_client;
    CommandPane m_pane;
    HACCEL m_accelerators = nullptr;
    std::map<const Document*, std::unique_ptr<DrawingView>> m_views;
};

}  // namespace host
