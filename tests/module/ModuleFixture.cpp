#include "ModuleFixture.h"

#include "host/ui/MainFrame.h"
#include "library/diagnostics/Prerelease.h"
#include "mfc/afxcmn.h"
#include "module/ZavikMDITabs.h"
#include "settings/MDITabSettings.h"

ModuleFixture::ModuleFixture() : frame(app.frame().m_hWnd), client(app.frame().m_hWndMDIClient)
{
    Tesk::setDiagnosticsLevel(0);
}

ModuleFixture::~ModuleFixture()
{
    Tesk::setDiagnosticsLevel(0);
    app.linker().unloadAll();
    CMDITabSettings::clearDefaultSettings();
}

std::string ModuleFixture::load() { return app.linker().attach("ZavikMDITabs", &acrxEntryPoint); }

std::string ModuleFixture::unload() { return app.linker().unload("ZavikMDITabs"); }

AcApDocument* ModuleFixture::open(const std::string& name)
{
    app.documents().open(folder.writeDrawing(name));
    app.pumpUntilIdle();
    return app.documents().active();
}

void ModuleFixture::close(AcApDocument* pDocument)
{
    app.documents().close(*static_cast<host::Document*>(pDocument));
    app.pumpUntilIdle();
}

void ModuleFixture::type(const std::string& line)
{
    app.submit(line);
    app.pumpUntilIdle();
}

std::vector<std::string> ModuleFixture::tabs() const
{
    std::vector<std::string> texts;
    const auto count = ::SendMessageA(strip(), TCM_GETITEMCOUNT, 0, 0);
    for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
        char text[MAX_PATH] = "";
        TCITEMA item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        ::SendMessageA(strip(), TCM_GETITEMA, i, reinterpret_cast<LPARAM>(&item));
        texts.emplace_back(text);
    }
    return texts;
}

CPoint ModuleFixture::middleOf(int tab) const
{
    CRect rect;
    ::SendMessageA(strip(), TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&rect));
    return rect.CenterPoint();
}

void ModuleFixture::send(UINT message, CPoint point, WPARAM buttons) const
{
    ::SendMessageA(strip(), message, buttons, MAKELPARAM(point.x, point.y));
}

void ModuleFixture::click(int tab) const
{
    send(WM_LBUTTONDOWN, middleOf(tab), MK_LBUTTON);
    send(WM_LBUTTONUP, middleOf(tab));
}

void ModuleFixture::moveMouse(int tab) const { send(WM_MOUSEMOVE, middleOf(tab)); }
