#include "host/ui/MainFrame.h"

#include "host/application/Application.h"
#include "host/ui/DrawingView.h"

#include <cstring>
#include <shellapi.h>
#include <span>

namespace host {

namespace {

// Commands, in this order of their kinds: always there, for a drawing, for windows.
enum : UINT {
    kFileNew = 100,
    kFileOpen,
    kFileExit,
    kToolsOptions,
    kToolsModule,
    kHelpCommands,
    kFileSave,
    kFileSaveAs,
    kFileClose,
    kEditUndo,
    kEditRedo,
    kDrawLine,
    kXrefAttach,
    kXrefReload,
    kXrefDetach,
    kWindowCascade,
    kWindowTile,
    kWindowArrange,
};

struct MenuCommand {
    UINT id;
    const char* caption;
    const char* command;  // what it types; one that ends in a blank is left to be completed
};

constexpr MenuCommand kSeparator = {0, nullptr, nullptr};
constexpr MenuCommand kFileMenu[] = {
    {kFileNew, "&New\tCtrl+N", "_NEW"},
    {kFileOpen, "&Open...\tCtrl+O", "_OPEN"},
    kSeparator,
    {kFileSave, "&Save\tCtrl+S", "_QSAVE"},
    {kFileSaveAs, "Save &As...", "_SAVEAS"},
    {kFileClose, "&Close", "_CLOSE"},
    kSeparator,
    {kFileExit, "E&xit", "_QUIT"},
};
constexpr MenuCommand kEditMenu[] = {{kEditUndo, "&Undo\tCtrl+Z", "_UNDO"}, {kEditRedo, "&Redo\tCtrl+Y", "_REDO"}};
constexpr MenuCommand kDrawMenu[] = {{kDrawLine, "&Line (type x y x y)", "LINE "}};
constexpr MenuCommand kXrefMenu[] = {
    {kXrefAttach, "&Attach...", "_XATTACH"},
    {kXrefReload, "&Reload (type its name)", "XRELOAD "},
    {kXrefDetach, "&Detach (type its name)", "XDETACH "},
};
constexpr MenuCommand kToolsMenu[] = {
    {kToolsOptions, "Tab &Options...", "_ZavikMDITabs"},
    {kToolsModule, "&Load Module (type its path)", "ARX L "},
};
constexpr MenuCommand kHelpMenu[] = {{kHelpCommands, "&Commands", "_HELP"}};
constexpr MenuCommand kWindowMenu[] = {
    {kWindowCascade, "&Cascade", nullptr},
    {kWindowTile, "&Tile", nullptr},
    {kWindowArrange, "&Arrange Icons", nullptr},
};

struct Menu {
    const char* caption;
    std::span<const MenuCommand> items;
};

constexpr Menu kMenus[] = {
    {"&File", kFileMenu},   {"&Edit", kEditMenu},     {"&Draw", kDrawMenu}, {"External &References", kXrefMenu},
    {"&Tools", kToolsMenu}, {"&Window", kWindowMenu}, {"&Help", kHelpMenu},
};
constexpr int kWindowPosition = 5;

HMENU menuBar()
{
    const HMENU bar = ::CreateMenu();
    for (const Menu& menu : kMenus) {
        const HMENU popup = ::CreatePopupMenu();
        for (const MenuCommand& item : menu.items)
            ::AppendMenuA(popup, item.caption != nullptr ? MF_STRING : MF_SEPARATOR, item.id, item.caption);
        ::AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), menu.caption);
    }
    return bar;
}

HACCEL accelerators()
{
    ACCEL table[] = {{FVIRTKEY | FCONTROL, 'N', kFileNew},
                     {FVIRTKEY | FCONTROL, 'O', kFileOpen},
                     {FVIRTKEY | FCONTROL, 'S', kFileSave},
                     {FVIRTKEY | FCONTROL, 'Z', kEditUndo},
                     {FVIRTKEY | FCONTROL, 'Y', kEditRedo}};
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
    ON_MESSAGE(WM_DROPFILES, &MainFrame::OnDropFiles)
    ON_COMMAND_RANGE(kFileNew, kXrefDetach, &MainFrame::OnMenuCommand)
    ON_COMMAND_RANGE(kWindowCascade, kWindowArrange, &MainFrame::OnWindowCommand)
    ON_UPDATE_COMMAND_UI_RANGE(kFileSave, kXrefDetach, &MainFrame::OnUpdateDrawingCommand)
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
    for (const Menu& menu : kMenus)
        for (const MenuCommand& item : menu.items)
            if (item.id == id && std::string_view(item.command).ends_with(' '))
                typeCommand(item.command);
            else if (item.id == id)
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

void MainFrame::OnUpdateDrawingCommand(CCmdUI* pState) { pState->Enable(m_application.documents().count() != 0); }

void MainFrame::OnWindowCommand(UINT id)
{
    const UINT message = id == kWindowCascade ? WM_MDICASCADE : id == kWindowTile ? WM_MDITILE : WM_MDIICONARRANGE;
    ::SendMessageA(m_hWndMDIClient, message, 0, 0);
}

}  // namespace host
