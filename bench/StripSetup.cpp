#include "bench/StripSetup.h"

#include "library/registry/Registry.h"
#include "module/ZavikMDITabs.h"
#include "settings/TabOptions.h"
#include "tests/support/DrawingText.h"

#include <string>

namespace {

constexpr const char* MODULE = "ZavikMDITabs";

// Ends the menu that starts to wait, and notes when. The owner's procedure sees it: a hook
// would make each message a call to Wine's server, and a tab takes more of them than a menu.
struct MenuWatch {
    WNDPROC procedure = nullptr;
    Clock clock;
    double shown = 0;
};
MenuWatch* pWatch = nullptr;

LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_ENTERIDLE && wParam == MSGF_MENU && pWatch->shown == 0) {
        pWatch->shown = pWatch->clock.elapsed();
        ::EndMenu();
    }
    return ::CallWindowProcA(pWatch->procedure, window, message, wParam, lParam);
}

}  // namespace

StripSetup::StripSetup(bool bVisible) : m_application({.visible = bVisible, .standardOutput = false})
{
    for (const char* sOption : {"TabLocation", "UseToolTips", "UseIcons", "Use", "WheelScrolls", "DragTabs"})
        m_user.set(sOption, 1);
    for (const char* sOption : {"IsDiscreet", "UseExtensions"})
        m_user.set(sOption, 0);
    resize(1000);
}

StripSetup::~StripSetup() { unload(); }

void StripSetup::load()
{
    const std::string sReason = m_application.linker().attach(MODULE, &acrxEntryPoint);
    if (!sReason.empty())
        std::printf("%s\n", sReason.c_str());
}

void StripSetup::unload() { m_application.linker().unload(MODULE); }

void StripSetup::open(int iCount)
{
    for (; iCount > 0; --iCount, ++m_iOpened) {
        DrawingText text;
        text.variable("TITLE", "Plan").border("SHEET", {{"NR", "1"}, {"TITLE", "Ground floor"}});
        m_application.documents().open(m_folder.write("A-" + std::to_string(100 + m_iOpened) + ".dwg", text.str()));
    }
    pump();
}

void StripSetup::open(const std::string& sPath)
{
    m_application.documents().open(sPath);
    pump();
}

void StripSetup::closeAll()
{
    while (m_application.documents().count() != 0)
        m_application.documents().close(m_application.documents().at(0));
    pump();
}

void StripSetup::readOptions()
{
    DWORD dwValue = 0;
    for (const char* sOption : {"UseExtensions", "UseIcons"})
        Tesk::Registry::GetValue(HKEY_CURRENT_USER, CTabOptions::getKey(), sOption, dwValue);
}

void StripSetup::resize(int iWidth)
{
    ::SetWindowPos(frame().m_hWnd, nullptr, 0, 0, iWidth, 700, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CPoint StripSetup::showTab(int iTab) const
{
    m_pWndTabs->SetCurSel(iTab);
    CRect rect;
    m_pWndTabs->GetItemRect(iTab, &rect);
    CPoint point = rect.CenterPoint();
    m_pWndTabs->ClientToScreen(&point);
    return point;
}

double StripSetup::untilMenu(HWND owner, const std::function<void()>& track)
{
    pump();
    MenuWatch watch;
    pWatch = &watch;
    const LONG_PTR procedure = ::GetWindowLongPtrA(owner, GWLP_WNDPROC);
    watch.procedure = reinterpret_cast<WNDPROC>(procedure);
    ::SetWindowLongPtrA(owner, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&onMessage));
    watch.clock.restart();
    track();
    ::SetWindowLongPtrA(owner, GWLP_WNDPROC, procedure);
    pump();
    return watch.shown;
}
