#include "bench/StripSetup.h"

#include "module/ZavikMDITabs.h"
#include "tests/support/DrawingText.h"

#include <string>

namespace {

constexpr const char* MODULE = "ZavikMDITabs";

// Ends the menu that starts to wait, and notes when.
struct MenuWatch {
    Clock clock;
    double shown = 0;
};
MenuWatch* pWatch = nullptr;

LRESULT CALLBACK onMessage(int code, WPARAM wParam, LPARAM lParam)
{
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (message.message == WM_ENTERIDLE && message.wParam == MSGF_MENU && pWatch->shown == 0) {
        pWatch->shown = pWatch->clock.elapsed();
        ::EndMenu();
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
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

double StripSetup::untilMenu(const std::function<void()>& track)
{
    pump();
    const HHOOK hook = ::SetWindowsHookExA(WH_CALLWNDPROC, &onMessage, nullptr, ::GetCurrentThreadId());
    MenuWatch watch;
    pWatch = &watch;
    track();
    ::UnhookWindowsHookEx(hook);
    pump();
    return watch.shown;
}
