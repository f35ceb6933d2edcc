#include "host/ui/MainFrame.h"

#include "host/application/Application.h"
#include "host/ui/DrawingView.h"

#include <commdlg.h>

namespace host {

namespace {

enum : UINT {
    kFileNew = 100,
    kFileOpen,
    kFileSave,
    kFileSaveAs,
    kFileClose,
    kFileExit,
    kEditUndo,
    kWindowCascade = 120,
    kWindowTile,
    kWindowArrange,
};

struct MenuCommand {
    UINT id;
    const char* caption;
    const char* command;  // what it types
};

constexpr MenuCommand kFileMenu[] = {
    {kFileNew, "&New\tCtrl+N", "_NEW"},
    {kFileOpen, "&Open...\tCtrl+O", "_OPEN"},
    {0, nullptr, nullptr},
    {kFileSave, "&Save\tCtrl+S", "_QSAVE"},
    {kFileSaveAs, "Save &As...", "_SAVEAS"},
    {kFileClose, "&Close", "_CLOSE"},
    {0, nullptr, nullptr},
    {kEditUndo, "&Undo\tCtrl+Z", "_UNDO"},
    {0, nullptr, nullptr},
    {kFileExit, "E&xit", "_QUIT"},
};
constexpr MenuCommand kWindowMenu[] = {
    {kWindowCascade, "&Cascade", nullptr},
    {kWindowTile, "&Tile", nullptr},
    {kWindowArrange, "&Arrange Icons", nullptr},
};

template <std::size_t Count>
HMENU popup(const MenuCommand (&items)[Count])
{
    const HMENU menu = ::CreatePopupMenu();
    for (const MenuCommand& item : items)
        ::AppendMenuA(menu, item.caption != nullptr ? MF_STRING : MF_SEPARATOR, item.id, item.caption);
    return menu;
}

HACCEL accelerators()
{
    ACCEL table[] = {{FVIRTKEY | FCONTROL, 'N', kFileNew},
                     {FVIRTKEY | FCONTROL, 'O', kFileOpen},
                     {FVIRTKEY | FCONTROL, 'S', kFileSave},
                     {FVIRTKEY | FCONTROL, 'Z', kEditUndo}};
    return ::CreateAcceleratorTableA(table, static_cast<int>(std::size(table)));
}

}  // namespace

LRESULT MdiClient::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool switches = message == WM_MDIACTIVATE || message == WM_MDINEXT;
    if (switches && !m_application.documents().isDocumentActivationEnabled())
        return 0;
    return CWnd::WindowProc(message, wParam, lParam);
}

BEGIN_MESSAGE_MAP(MainFrame, CMDIFrameWnd)
    ON_MESSAGE(WM_KICKIDLE, &MainFrame::OnKickIdle)
    ON_WM_CLOSE()
    ON_COMMAND_RANGE(kFileNew, kEditUndo, &MainFrame::OnFileCommand)
    ON_COMMAND_RANGE(kWindowCascade, kWindowArrange, &MainFrame::OnWindowCommand)
    ON_UPDATE_COMMAND_UI_RANGE(kFileSave, kFileClose, &MainFrame::OnUpdateDrawingCommand)
    ON_UPDATE_COMMAND_UI(kEditUndo, &MainFrame::OnUpdateDrawingCommand)
END_MESSAGE_MAP()

MainFrame::MainFrame(Application& application) : m_application(application), m_client(application) {}

MainFrame::~MainFrame()
{
    if (m_hWnd != nullptr) {
        if (m_client.m_hWnd != nullptr)
            m_client.UnsubclassWindow();
        DestroyWindow();
    }
    if (m_accelerators != nullptr)
        ::DestroyAcceleratorTable(m_accelerators);
}

bool MainFrame::create(bool visible)
{
    const char* const windowClass =
        AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW), reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1),
                            ::LoadIconA(nullptr, IDI_APPLICATION));
    if (!CreateEx(0, windowClass, "Cadhost", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CRect(40, 40, 1040, 740), nullptr,
                  0))
        return false;
    const HMENU windowMenu = popup(kWindowMenu);
    const HMENU bar = ::CreateMenu();
    ::AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup(kFileMenu)), "&File");
    ::AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(windowMenu), "&Window");
    ::SetMenu(m_hWnd, bar);
    m_accelerators = accelerators();
    m_hAccelTable = m_accelerators;

    if (!CreateClient(windowMenu) || !m_client.SubclassWindow(m_hWndMDIClient) ||
        !m_pane.create(*this, [this](const std::string& sLine) { m_application.submit(sLine); }))
        return false;
    if (visible) {
        ShowWindow(SW_SHOW);
        ::SetForegroundWindow(m_hWnd);
    }
    RecalcLayout();
    return true;
}

void MainFrame::open(Document& document)
{
    auto view = std::make_unique<DrawingView>(m_application, document);
    DrawingView& opened = *view;
    m_views[&document] = std::move(view);
    BOOL maximized = m_views.size() == 1;
    if (m_views.size() > 1)
        MDIGetActive(&maximized);
    opened.create(*this);
    if (maximized)
        ::SendMessageA(m_hWndMDIClient, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(opened.m_hWnd), 0);
    opened.refresh();
}

void MainFrame::close(Document& document)
{
    const auto place = m_views.find(&document);
    if (place == m_views.end())
        return;
    // Its window may be the one that is being closed right now, so the object goes last.
    const std::unique_ptr<DrawingView> view = std::move(place->second);
    m_views.erase(place);
    view->DestroyWindow();
}

void MainFrame::activate(Document& document)
{
    const auto place = m_views.find(&document);
    if (place != m_views.end())
        MDIActivate(place->second.get());
}

void MainFrame::refresh(Document& document)
{
    const auto place = m_views.find(&document);
    if (place != m_views.end())
        place->second->refresh();
}

int MainFrame::askAboutChanges(const Document& document)
{
    const std::string sQuestion = "Save the changes to " + document.title() + "?";
    return MessageBox(sQuestion.c_str(), "Cadhost", MB_YESNOCANCEL | MB_ICONQUESTION);
}

std::string MainFrame::askForPath(bool forSaving)
{
    char path[1024] = "";
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = m_hWnd;
    dialog.lpstrFilter = "Drawings (*.dwg; *.dxf)\0*.dwg;*.dxf\0All files\0*.*\0";
    dialog.lpstrFile = path;
    dialog.nMaxFile = sizeof path;
    dialog.lpstrDefExt = "dwg";
    dialog.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | (forSaving ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL chosen = forSaving ? ::GetSaveFileNameA(&dialog) : ::GetOpenFileNameA(&dialog);
    return chosen ? path : "";
}

// The message itself has woken the pump, which goes idle next and runs what is queued.
LRESULT MainFrame::OnKickIdle(WPARAM, LPARAM)
{
    PostMessage(WM_NULL);
    return 0;
}

void MainFrame::OnClose()
{
    if (!m_application.isBusy())
        m_application.quit();
}

void MainFrame::OnFileCommand(UINT id)
{
    for (const MenuCommand& item : kFileMenu)
        if (item.id == id && item.command != nullptr)
            m_application.submit(item.command);
}

void MainFrame::OnUpdateDrawingCommand(CCmdUI* pState) { pState->Enable(m_application.documents().count() != 0); }

void MainFrame::OnWindowCommand(UINT id)
{
    const UINT message = id == kWindowCascade ? WM_MDICASCADE : id == kWindowTile ? WM_MDITILE : WM_MDIICONARRANGE;
    ::SendMessageA(m_hWndMDIClient, message, 0, 0);
}

}  // namespace host
