#include "host/ui/MainFrame.h"

#include "host/application/Application.h"
#include "host/ui/DrawingView.h"

#include <cstring>
#include <shellapi.h>

namespace host {

namespace {

struct MenuItem {
    const char* menu;               // null for the one above
    const char* caption;            // null for a separator; what it names behind a tab is its key
    const char* command = nullptr;  // what it types; one that ends in a blank is left to be completed
    bool needsDrawing = false;
    UINT message = 0;  // what the MDI client gets instead
};

constexpr MenuItem kItems[] = {
    {"&File", "&New\tCtrl+N", "_NEW"},
    {nullptr, "&Open...\tCtrl+O", "_OPEN"},
    {nullptr, nullptr},
    {nullptr, "&Save\tCtrl+S", "_QSAVE", true},
    {nullptr, "Save &As...", "_SAVEAS", true},
    {nullptr, "&Close", "_CLOSE", true},
    {nullptr, nullptr},
    {nullptr, "E&xit", "_QUIT"},
    {"&Edit", "&Undo\tCtrl+Z", "_UNDO", true},
    {nullptr, "&Redo\tCtrl+Y", "_REDO", true},
    {"&Draw", "&Line (type x y x y)", "LINE ", true},
    {"External &References", "&Attach...", "_XATTACH", true},
    {nullptr, "&Reload (type its name)", "XRELOAD ", true},
    {nullptr, "&Detach (type its name)", "XDETACH ", true},
    {"&Tools", "Tab &Options...", "_ZavikMDITabs"},
    {nullptr, "&Load Module (type its path)", "ARX L "},
    {"&Window", "&Cascade", nullptr, true, WM_MDICASCADE},
    {nullptr, "&Tile", nullptr, true, WM_MDITILE},
    {nullptr, "&Arrange Icons", nullptr, true, WM_MDIICONARRANGE},
    {"&Help", "&Commands", "_HELP"},
};
constexpr int kWindowPosition = 5;
constexpr UINT kFirstItem = 100;
constexpr UINT kLastItem = kFirstItem + std::size(kItems) - 1;

HMENU menuBar()
{
    const HMENU bar = ::CreateMenu();
    HMENU popup = nullptr;
    for (UINT id = kFirstItem; id <= kLastItem; ++id) {
        const MenuItem& item = kItems[id - kFirstItem];
        if (item.menu != nullptr) {
            popup = ::CreatePopupMenu();
            ::AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), item.menu);
        }
        ::AppendMenuA(popup, item.caption != nullptr ? MF_STRING : MF_SEPARATOR, id, item.caption);
    }
    return bar;
}

HACCEL accelerators()
{
    std::vector<ACCEL> table;
    for (UINT id = kFirstItem; id <= kLastItem; ++id)
        if (const char* const sCaption = kItems[id - kFirstItem].caption; sCaption != nullptr)
            if (const char* const sKey = std::strstr(sCaption, "\tCtrl+"))
                table.push_back({FVIRTKEY | FCONTROL, static_cast<WORD>(sKey[6]), static_cast<WORD>(id)});
    return ::CreateAcceleratorTableA(table.data(), static_cast<int>(table.size()));
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
    ON_MESSAGE(WM_DROPFILES, &MainFrame::OnDropFiles)
    ON_COMMAND_RANGE(kFirstItem, kLastItem, &MainFrame::OnMenuCommand)
    ON_UPDATE_COMMAND_UI_RANGE(kFirstItem, kLastItem, &MainFrame::OnUpdateMenuItem)
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
    if (!CreateEx(WS_EX_ACCEPTFILES, windowClass, "Cadhost", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                  CRect(40, 40, 1040, 740), nullptr, 0))
        return false;
    const HMENU bar = menuBar();
    ::SetMenu(m_hWnd, bar);
    m_accelerators = accelerators();
    m_hAccelTable = m_accelerators;

    if (!CreateClient(::GetSubMenu(bar, kWindowPosition)) || !m_client.SubclassWindow(m_hWndMDIClient) ||
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
    // Its window may be the one that is being closed right now, so the object goes last.
    const auto view = m_views.extract(&document);
    if (!view.empty())
        view.mapped()->DestroyWindow();
}

void MainFrame::activate(Document& document)
{
    if (m_views.contains(&document))
        MDIActivate(m_views[&document].get());
}

void MainFrame::refresh(Document& document)
{
    if (m_views.contains(&document))
        m_views[&document]->refresh();
}

int MainFrame::askAboutChanges(const Document& document)
{
    const std::string sQuestion = "Save the changes to " + document.title() + "?";
    return MessageBox(sQuestion.c_str(), "Cadhost", MB_YESNOCANCEL | MB_ICONQUESTION);
}

std::vector<std::string> MainFrame::askForFiles()
{
    return ask(::GetOpenFileNameA, {}, OFN_FILEMUSTEXIST | OFN_ALLOWMULTISELECT | OFN_EXPLORER);
}

std::string MainFrame::askForTarget(const std::string& sOffered)
{
    const std::vector<std::string> chosen = ask(::GetSaveFileNameA, sOffered, OFN_OVERWRITEPROMPT);
    return chosen.empty() ? std::string() : chosen.front();
}

std::vector<std::string> MainFrame::ask(BOOL(WINAPI* dialog)(OPENFILENAMEA*), const std::string& sOffered, DWORD flags)
{
    std::vector<char> names(32000);
    sOffered.copy(names.data(), MAX_PATH);
    OPENFILENAMEA options{};
    options.lStructSize = sizeof options;
    options.hwndOwner = m_hWnd;
    options.lpstrFilter = "Drawings (*.dwg; *.dxf)\0*.dwg;*.dxf\0All files\0*.*\0";
    options.lpstrFile = names.data();
    options.nMaxFile = static_cast<DWORD>(names.size());
    options.lpstrDefExt = "dwg";
    options.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | flags;
    if (!dialog(&options))
        return {};
    // One path; or a folder and the names of several files in it.
    const std::string sFirst = names.data();
    std::vector<std::string> paths;
    for (const char* sName = names.data() + sFirst.size() + 1; *sName != '\0'; sName += std::strlen(sName) + 1)
        paths.push_back(sFirst + "\\" + sName);
    return paths.empty() ? std::vector<std::string>{sFirst} : paths;
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

void MainFrame::OnMenuCommand(UINT id)
{
    const MenuItem& item = kItems[id - kFirstItem];
    if (item.command == nullptr)
        ::SendMessageA(m_hWndMDIClient, item.message, 0, 0);
    else if (std::string_view(item.command).ends_with(' '))
        typeCommand(item.command);
    else
        m_application.submit(item.command);
}

LRESULT MainFrame::OnDropFiles(WPARAM wParam, LPARAM)
{
    const auto drop = reinterpret_cast<HDROP>(wParam);
    const UINT count = ::DragQueryFileA(drop, UINT(-1), nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        char path[MAX_PATH] = "";
        ::DragQueryFileA(drop, i, path, sizeof path);
        m_application.submit("_OPEN \"" + std::string(path) + "\"");
    }
    ::DragFinish(drop);
    return 0;
}

void MainFrame::OnUpdateMenuItem(CCmdUI* pState)
{
    pState->Enable(!kItems[pState->m_nID - kFirstItem].needsDrawing || m_application.documents().count() != 0);
}

}  // namespace host
